#pragma once

#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/hra.h"

/// The numbers of a cave. The defaults keep the exit shut, the clock running and slime closed.
struct Numbers {
  int time = 100;  // seconds
  int need = 9;
  int pointsBefore = 5;
  int pointsAfter = 20;
  int magicTime = 10;
  int amoebaTime = 50;
  int slime = 0;
};

/// Cave text from rows. Rows are separated by "/"; cells are the characters of cave text, and besides them
///   r d i   a falling rock, gem, red gem
///   : |     an empty cell with Motion 2, with Motion 3
///   e f     a horizontal growing wall with Motion 2, with Motion 3
/// which become "R", "D", "!", "." and "E" here.
std::string TextOfCave(std::string_view rows, const Numbers& numbers = {});

/// Expected rows: "/" becomes a line end, so that a failure shows a diff of the two caves.
std::string Rows(std::string_view rows);

/// A game in a few characters, with what it asks of its surroundings written down in `log`.
class Play {
 public:
  explicit Play(std::string_view rows, const Numbers& numbers = {});
  Play(const Play&) = delete;
  Play& operator=(const Play&) = delete;

  /// Sets up a cave over the one before, in the notation of TextOfCave.
  void Load(std::string_view rows, const Numbers& numbers = {});

  /// Replays ticks, written one after the other with blanks between: DRAWS KEY DRAWS [@HERO], `times` over.
  /// Draws are digits: those before the key belong to the second scan and amoeba (default "2": nothing grows), those
  /// after it to the hero's step (default "2" for an arrow: a step without luck). KEY is l u r d, in capitals with the
  /// action key; - for none; _ when the tick reads no keys; a ~ behind an arrow says that the hero draws nothing.
  /// Every tick has to use up its draws exactly.
  void Run(std::string_view ticks, int times = 1);

  /// Plays ticks with the keys in `held` and fresh random numbers; returns the last recorded line, without its end.
  std::string Live(int ticks = 1);

  /// The cave now, in the notation above.
  std::string Shown() const;

  /// Takes the events called `name` out of the log; their arguments, blanks between: for example "3 5" for "sound".
  std::string Took(std::string_view name);

  Hooks hooks;
  Settings settings;
  Hra game;
  std::set<int> held;            // virtual keys that are down
  std::set<int> pressed;         // virtual keys pressed and let go since they were last asked for
  std::string next;              // the line of the next tick of a replay
  bool ended = false;            // the replay has no more lines
  std::vector<std::string> log;  // "NAME ARGUMENTS"; "." stands for no arguments
};

/// A rule in one line: the cave before and after some ticks, and the sounds between.
struct Case {
  const char* what;
  const char* before;
  const char* ticks;
  const char* after;
  const char* sounds = "";
  Numbers numbers = {};
};

void Check(std::initializer_list<Case> cases);
