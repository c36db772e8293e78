#pragma once

namespace platform {

/// Virtual-key codes that the screens use. Letters and digits of the main keyboard are their capital ASCII codes,
/// numeric pad digits are kNumpad0 + 0..9, function keys kF1 + 0..23. The numeric pad gives its digits with NumLock on
/// and arrows, Home, End and so on with NumLock off.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyTab = 9;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyShift = 16;
inline constexpr int kKeyCtrl = 17;
inline constexpr int kKeyAlt = 18;
inline constexpr int kKeyPause = 19;
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeySpace = 32;
inline constexpr int kKeyPageUp = 33;
inline constexpr int kKeyPageDown = 34;
inline constexpr int kKeyEnd = 35;
inline constexpr int kKeyHome = 36;
inline constexpr int kKeyLeft = 37;
inline constexpr int kKeyUp = 38;
inline constexpr int kKeyRight = 39;
inline constexpr int kKeyDown = 40;
inline constexpr int kKeyInsert = 45;
inline constexpr int kKeyDelete = 46;
inline constexpr int kNumpad0 = 96;
inline constexpr int kF1 = 112;

/// True when the key is held now or has been pressed since the last call for it, so that a tap between two ticks is not
/// lost. The call itself forgets the press. code: 0 to 255.
bool Held(int code);

}  // namespace platform
