#pragma once

// Small caves and sets for tests.

#include <string>
#include <string_view>
#include <vector>

#include "cave/cave_text.h"
#include "cave/set_file.h"

/// A cave from rows with "/" between them, in the characters of cave text. It has a name and numbers that no default
/// has.
inline CaveRecord Cave(std::string_view rows) {
  CaveRecord record;
  record.Name = "Doupe";
  record.Time = 150;
  record.Need = 9;
  record.PointsBefore = 5;
  record.PointsAfter = 20;
  record.MagicTime = 1;
  record.AmoebaTime = 100;
  record.Tint = 2;
  int x = 0;
  for (const char c : rows) {
    if (c == '/') {
      ++record.Height;
      x = 0;
    } else {
      record.Cell(x++, record.Height) = c;
      record.Width = static_cast<std::uint8_t>(x);
    }
  }
  ++record.Height;
  return record;
}

/// A cave of one tile throughout.
inline CaveRecord Filled(int width, int height, char tile) {
  CaveRecord record = Cave(";");
  record.Need = 0;
  record.Width = static_cast<std::uint8_t>(width);
  record.Height = static_cast<std::uint8_t>(height);
  record.Cells.fill(tile);
  return record;
}

/// A cave that is won by one step to the right.
inline CaveRecord WonByOneStep(const std::string& name, int seconds = 100) {
  CaveRecord record = Filled(19, 11, ';');
  record.Name = name;
  record.Description = "Popis " + name;
  record.Time = static_cast<std::int16_t>(seconds);
  record.PointsAfter = 7;
  record.Cell(3, 3) = '1';
  record.Cell(4, 3) = 'T';
  return record;
}

/// A set of caves that are won by one step, with these names; the first one is a start point.
inline EditedSet SetOf(const std::vector<std::string>& caves, const std::string& name = "Sada") {
  EditedSet set;
  set.Name = name;
  set.Author = "Eva";
  set.Mail = "eva@jeskyne.cz";
  set.Description = "Popis\r\nsady";
  for (const std::string& cave : caves) set.KomText[++set.PocetK] = BuildCaveText(WonByOneStep(cave));
  set.Gratulace = "Gratulujeme! $P a $P";
  return set;
}
