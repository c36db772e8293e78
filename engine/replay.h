#pragma once

#include <functional>
#include <string>

#include "engine/hra.h"
#include "engine/recording.h"

/// Runs a recording without a screen, in a game that has never run a cave before.
class Replay {
 public:
  /// The recording has to outlive the replay. strict: numbers outside the range that the rules ask for, and a rest of a
  /// line that is no note, are faults too. Throws Fault when the cave text is none.
  explicit Replay(const Recording& recording, bool strict = false);
  Replay(const Replay&) = delete;
  Replay& operator=(const Replay&) = delete;

  /// Runs one tick; false when the recording has come to its end before. Throws Fault, with the number of the line,
  /// when the line does not fit its tick.
  bool Tick();

  /// Ticks run so far.
  int ticks() const { return static_cast<int>(next_); }
  const Hra& game() const { return game_; }
  bool won() const { return game_.Won; }
  /// What the cave was won with, the points of a bonus cave included.
  int Score() const;

 private:
  void CheckRest() const;

  const Recording& recording_;
  bool strict_;
  bool bonus_ = false;
  std::size_t next_ = 0;
  Hooks hooks_;
  Hra game_;
};

/// The CRC-32 (reflected, polynomial EDB88320) of the cells row by row from (0, 0), four bytes a cell: tile, low byte
/// first, Motion, Aux. Two games agree in all cells when they agree in it.
std::uint32_t CellsCrc(const Hra& game);
