#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "campaign/players.h"
#include "cave/set_file.h"

/// A set that is played, and what a player has reached in it: states of the caves, their scores, what is left. It knows
/// no window; the overview shows it.
struct Progress : PlayedSet {
  std::array<int, 100> Score{};  // of cave 1..99; 0 without a record

  /// Takes over what the player's records tell, for a set that has just been loaded. Throws Fault like
  /// PlayerRecords::Read.
  void ReadRecords(const PlayerRecords& records);
  /// Cave n has been won with so many points: it counts as passed, and what follows is open. Gives back the cave to
  /// select next. Throws Fault when bonus caves open more rows than there are.
  int Win(int n, int score);

  /// The sum of all scores.
  int Total() const;
  /// Caves that are still to be won. An open bonus cave need not be.
  int Left() const;
  /// Tells that number, in the language in force.
  std::string LeftText() const;
  /// The last cave before cave n that is open, and so has to be won first; 0 for none.
  std::size_t OpenBefore(std::size_t n) const;
};
