#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/hooks.h"
#include "engine/hra.h"

/// A cell that a script waits for.
struct CellTest {
  int x = 0;
  int y = 0;
  bool fromHero = false;   // x and y count from the current hero
  bool shows = true;       // false: until the cell shows none of the characters
  std::string characters;  // of cave text
};

/// One step of a script; repetitions are written out.
struct ScriptStep {
  enum class Kind { Walk, Act, Wait, WaitForTick, WaitForGems, WaitForCell, SelectHero };
  Kind kind = Kind::Wait;
  char letter = '.';  // as written, for messages
  int line = 1;       // where it stands in the script
  int key = 0;        // Walk, Act: virtual key of the direction
  int number = 1;     // ticks to wait; the tick, the gems, the hero
  CellTest test;
};

using Script = std::vector<ScriptStep>;

/// The language of scripts in a few lines, for a help text.
extern const char* const kScriptHelp;

/// Reads a script. Throws Fault for anything unknown; its file() is then "FILE:LINE" with the given name of the file.
Script ParseScript(std::string_view text, const std::string& file);

/// Why a played cave has come to its end.
enum class Outcome { Running, Won, HeroDead, TimeOut, ScriptEnded, Stuck };

/// Plays a script in a cave of its own, tick by tick. It looks at what its keys have done and presses them again until
/// the step is done, so that a script does not depend on the draws of the rules.
class ScriptPlayer {
 public:
  /// Sets the cave up and starts it. seed: of the numbers that the rules draw. Throws Fault for a text that is no cave.
  ScriptPlayer(std::string_view caveText, Script script, std::uint64_t seed);
  ScriptPlayer(const ScriptPlayer&) = delete;  // the game's hooks point here
  ScriptPlayer& operator=(const ScriptPlayer&) = delete;

  /// Plays one tick. False when the cave or the script has come to its end; no tick was played then.
  bool Tick();

  const Hra& game() const { return game_; }
  Outcome outcome() const { return outcome_; }
  int ticks() const { return ticks_; }

  /// The recording up to the win, as a record file holds it behind its first two lines; empty until the cave is won.
  const std::string& recording() const { return recording_; }

  /// The line of the script that is at work; 0 behind its end.
  int line() const { return at_ < script_.size() ? script_[at_].line : 0; }

  /// Why the cave is not won, in plain words; empty while it runs and when it is won.
  const std::string& explanation() const { return explanation_; }

 private:
  struct Place {
    int x = 0;
    int y = 0;
    int beyondX = 0;  // column of the cell behind it, in the same row
  };

  bool SkipDoneWaits();
  bool WaitIsOver(const ScriptStep& step) const;
  bool CanBeTried(const ScriptStep& step);
  void Press(const ScriptStep& step);
  bool IsDone(const ScriptStep& step) const;
  bool TargetIsTaken() const;
  void NextStep();
  void LookAtTheCave();
  void End(Outcome outcome, const std::string& explanation);
  Place Target(const ScriptStep& step) const;

  Script script_;
  Hooks hooks_;
  Hra game_;
  std::size_t at_ = 0;  // the step at work
  int tries_ = 0;       // ticks spent on it
  int direction_ = 0;   // keys held in this tick: an arrow or 0,
  bool action_ = false;
  int hero_ = 0;              // the numeric key of a hero or 0
  Place target_;              // before the tick: the cell that the hero goes to or acts on,
  std::uint16_t before_ = 0;  // what stood there,
  std::uint16_t beyond_ = 0;  // and behind it,
  int gems_ = 0;              // and how many gems were taken
  int ticks_ = 0;
  Outcome outcome_ = Outcome::Running;
  std::string explanation_;
  std::string recording_;
};
