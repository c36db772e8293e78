#pragma once

#include <cstdint>
#include <string>

#include "cave/set_file.h"

/// A set under edit: its caves, which one of them is selected, the cave copied, and whether there are unsaved changes.
/// It knows no window; the set editor's form shows it.
struct SetEdit : EditedSet {
  std::uint8_t AktK = 0;   // the selected row, from 1 on
  std::int16_t PracK = 0;  // the row that an operation works on
  std::string Schranka;    // the cave copied; kept until the program ends
  bool Changed = false;    // there are unsaved changes

  /// Puts a cave in front of the selected one. False when the set takes no more.
  bool Add(const std::string& caveText);
  /// Swap the selected cave with its neighbour, with their flags. False at the end of the list.
  bool MoveUp();
  bool MoveDown();
  /// Takes the selected cave away; there has to be another one.
  void Delete();

 private:
  void Swap(std::size_t a, std::size_t b);
};
