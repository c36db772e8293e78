#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "cave/tiles.h"

/// One cave, decoded. Texts are single-byte strings in the author's code page.
struct CaveRecord {
  std::int16_t Time = 0;          // seconds allowed
  std::uint8_t PointsBefore = 0;  // points for a gem until the needed ones are taken
  std::uint8_t PointsAfter = 0;   // points for a gem after that
  std::uint8_t MagicTime = 0;     // seconds a magic wall stays active
  std::uint8_t AmoebaTime = 0;    // seconds until amoeba turns fast
  std::uint8_t Tint = 0;          // colour set 0..14; above 14 means a random one at each set-up
  std::int16_t Need = 0;          // gems to take before the exit opens
  std::string Description;
  std::string Name;
  std::uint8_t Height = 0;        // rows, at most 51
  std::uint8_t Width = 0;         // columns, at most 81
  std::uint8_t SlimeThrough = 0;  // how easily slime lets things through; the editor gives 0..8, a file up to 190
  bool FromText = false;          // the cells inside come from a text, whose bytes may be 0, too

  /// The character of cell (x, y), x 0..80, y 0..50, which is not checked; 0 where nothing was ever written, unless the
  /// byte comes from a text.
  char& Cell(int x, int y) { return Cells[Index(x, y)]; }
  char Cell(int x, int y) const { return Cells[Index(x, y)]; }

  static std::size_t Index(int x, int y) {
    return static_cast<std::size_t>(y) * kMaxWidth + static_cast<std::size_t>(x);
  }

  std::array<char, static_cast<std::size_t>(kMaxWidth* kMaxHeight)> Cells{};  // row by row; use Cell
};
