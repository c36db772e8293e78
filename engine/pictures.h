#pragma once

/// Pictures are known to the engine as plain numbers; the painter turns numbers into pixels. Each constant is the first
/// of a run; frame f of a run is first + f.
namespace picture {

inline constexpr int kEmpty = 0;
inline constexpr int kDirt = 1;  // ZracZed, in the tint of the cave
inline constexpr int kRock = 2;  // ZracZed1
inline constexpr int kGem = 3;
inline constexpr int kWall = 4;   // ZracZed4
inline constexpr int kAnim9 = 5;  // 2: the steel look, the open exit; ZracZed2 and ZracZed3
inline constexpr int kCrate = 7;
inline constexpr int kGrowWallH = 8;
inline constexpr int kGrowWallV = 9;
inline constexpr int kRedGem = 10;     // 3: red, green, blue
inline constexpr int kRedLock = 13;    // 3: red, green, blue
inline constexpr int kAnim6 = 16;      // 4: firefly
inline constexpr int kAnim7 = 20;      // 4: butterfly
inline constexpr int kAnim10 = 24;     // 4: amoeba
inline constexpr int kAnim14 = 28;     // 4: slime
inline constexpr int kAnim15 = 32;     // 2: fly
inline constexpr int kAnimMW = 34;     // 4: running magic wall
inline constexpr int kExpld = 38;      // 16: explosion, by Aux
inline constexpr int kImgRzd = 54;     // 3: border overlays of a splitter: left steel, growing wall, right steel
inline constexpr int kImgTLP = 57;     // 2: overlays of a teleport: entrance, exit
inline constexpr int kImgZBP = 59;     // hero, at rest and walking down
inline constexpr int kImgZBW = 60;     // hero, idle: scratching
inline constexpr int kImgZBW21 = 61;   // hero, idle: half a blink
inline constexpr int kImgZBW22 = 62;   // hero, idle: eyes shut
inline constexpr int kImgZBZ = 63;     // hero, walking up
inline constexpr int kImgZBR = 64;     // hero, walking right
inline constexpr int kImgZBL = 65;     // hero, walking left
inline constexpr int kMultiPes = 66;   // 9: hero number 1..9, not under control; frame = number - 1
inline constexpr int kSinglePes = 75;  // strip: the hero under control
inline constexpr int kMrtvejPes = 76;  // strip: a dead hero
inline constexpr int kCount = 77;

}  // namespace picture
