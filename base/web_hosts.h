#pragma once

// Configuration: whoever publishes the game puts real addresses here. These end in "invalid", which is reserved and
// never resolves, so that a link leads nowhere until then.

/// The web hosts of the game, one a language.
inline constexpr const char* kWebHostCzech = "zorbik.invalid";
inline constexpr const char* kWebHostEnglish = "en.zorbik.invalid";
inline constexpr const char* kWebHostRussian = "ru.zorbik.invalid";

/// The author's web pages, his own and that of his other caves, and his mail address.
inline constexpr const char* kAuthorHost = "autor.zorbik.invalid";
inline constexpr const char* kAuthorCavesHost = "jeskyne.zorbik.invalid";
inline constexpr const char* kAuthorMail = "autor@zorbik.invalid";
