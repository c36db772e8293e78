#pragma once

/// The web hosts of the game, one a language. Configuration: whoever publishes the game puts real ones here. The names
/// end in "invalid", which is reserved and never resolves, so that a link leads nowhere until then.
inline constexpr const char* kWebHostCzech = "zorbik.invalid";
inline constexpr const char* kWebHostEnglish = "en.zorbik.invalid";
inline constexpr const char* kWebHostRussian = "ru.zorbik.invalid";
