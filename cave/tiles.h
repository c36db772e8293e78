#pragma once

#include <cstdint>

/// Tile codes, as they stand in the grid `Tiles`.
enum Tile : std::uint16_t {
  Empty = 0,
  Dirt = 1,
  Rock = 2,
  Gem = 3,
  HeroTile = 4,
  Wall = 5,       // with Motion 1; the same code with Motion 0 is the magic wall
  MagicWall = 5,  // with Motion 0
  Firefly = 6,
  Butterfly = 7,
  SteelWall = 8,
  Exit = 9,
  Amoeba = 10,
  Crate = 11,
  GrowWallH = 12,
  GrowWallV = 13,
  SlimeTile = 14,
  Fly = 15,
  Explosion = 16,
  RedGem = 17,
  GreenGem = 18,
  BlueGem = 19,
  RedLock = 20,
  GreenLock = 21,
  BlueLock = 22,
  Vacated = 65535,  // left by a creature in this tick; turns to Empty before the tick ends
};

/// Tile codes 0..22 have a picture each.
inline constexpr int kTileCodes = 23;

/// Largest cave, in cells.
inline constexpr int kMaxWidth = 81;
inline constexpr int kMaxHeight = 51;

/// What one character of cave text puts into a cell.
struct TileLoad {
  bool known = false;  // false: the character stands for no tile and leaves the cell as it was
  std::uint16_t tile = Empty;
  std::uint8_t motion = 0;
  std::uint8_t aux = 0;
  std::uint8_t hero = 0;  // hero number 1..9, or 0 when the cell holds no hero
};

/// The meaning of a cave text character (any of the 256 byte values).
const TileLoad& LoadOfCharacter(char c);

/// A character of cave text for a cell of a running cave, for showing it as text. Explosions are shown as "*", a cell
/// just left by a creature as ",", any other code without a character as "?".
char CharacterOfCell(std::uint16_t tile, std::uint8_t motion, std::uint8_t aux);
