#pragma once

#include <string>

#include "cave/cave_record.h"
#include "cave/tiles.h"

/// The largest cave, full of things that move: every kind of object and creature, amoeba and growing walls, in a
/// pattern that repeats every few cells.
inline CaveRecord BusyCave() {
  CaveRecord record;
  record.Width = kMaxWidth;
  record.Height = kMaxHeight;
  record.Time = 900;
  record.Need = 500;
  record.MagicTime = 100;
  record.AmoebaTime = 100;
  record.SlimeThrough = 4;
  const std::string pattern = "R.;D.F..R;U.LR.E.D..A;.!R.V..S.KD.XM.O.@R..#Y;..R.D";
  for (int y = 0; y < record.Height; ++y) {
    for (int x = 0; x < record.Width; ++x) {
      record.Cell(x, y) = pattern[static_cast<std::size_t>(x * 7 + y * 13 + x * y % 5) % pattern.size()];
    }
  }
  record.Cell(1, 1) = '1';
  return record;
}

/// A cave of the usual size at rest: dirt, walls, some rocks and gems that lie still.
inline CaveRecord QuietCave() {
  CaveRecord record;
  record.Width = 30;
  record.Height = 20;
  record.Time = 900;
  record.Need = 500;
  record.SlimeThrough = 4;
  for (int y = 0; y < record.Height; ++y) {
    for (int x = 0; x < record.Width; ++x) {
      record.Cell(x, y) = (x + y) % 7 == 0 && y % 3 == 0 ? 'R' : x % 9 == 4 ? 'X' : ';';
    }
  }
  record.Cell(2, 2) = '1';
  return record;
}
