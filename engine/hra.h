#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "base/random.h"
#include "base/settings.h"
#include "cave/cave_record.h"
#include "cave/tiles.h"
#include "engine/grid.h"
#include "engine/hooks.h"
#include "engine/pictures.h"
#include "engine/row_columns.h"

/// Virtual key codes that the rules ask for.
namespace key {
inline constexpr int kTab = 9;
inline constexpr int kShift = 16;
inline constexpr int kControl = 17;
inline constexpr int kSpace = 32;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kC = 67;
inline constexpr int kP = 80;
inline constexpr int kR = 82;
inline constexpr int kNumpad0 = 96;
}  // namespace key

/// One hero of a cave.
struct HeroRecord {
  std::uint16_t x = 0;
  std::uint16_t y = 0;
  std::int16_t alive = 0;  // -1 alive, 0 dead or not in the cave

  bool operator==(const HeroRecord&) const = default;
};

/// How closely the lines of a replay are looked at. A line that is too short is a fault in any case.
enum class ReplayCheck {
  kNone,    // what a line holds is done
  kInput,   // keys, actions and heroes that no game records are faults
  kStrict,  // so are drawn numbers outside the range that the rules ask for
};

/// A cell of the cave.
struct CellPlace {
  std::uint8_t x = 0;
  std::uint8_t y = 0;
};

/// The sum that a won cave is worth.
struct WinSum {
  int need = 0;
  int pointsBefore = 0;
  int over = 0;  // gems taken beyond the needed ones
  int pointsAfter = 0;
  int secondsLeft = 0;
  int aliveHeroes = 0;

  /// need x pointsBefore + over x pointsAfter + aliveHeroes x secondsLeft.
  int Score() const { return need * pointsBefore + over * pointsAfter + aliveHeroes * secondsLeft; }
};

/// The running game: the whole state of a cave and all its rules. A plain value: a copy goes on as the first would
/// have. What it needs of the outside goes through `hooks`, which it does not own.
///
/// A cave set up over an earlier one finds what that one left: cells under unknown characters, hero places, the
/// teleport's cells, animation counters and key ages are not cleared. That is meant.
class Hra {
 public:
  Hra() = default;
  explicit Hra(const Hooks* surroundings, const Settings* wishes = nullptr) : hooks(surroundings), settings(wishes) {}

  // --- Entry points --------------------

  /// Sets up a cave from its text; it is on show then and waits for Command1_Click. An empty text gives a cave of no
  /// cells. Throws Fault for a text that is no cave.
  void PaintCave(std::string_view caveText);

  /// The button "Start": the tick timer runs from here.
  void Command1_Click();

  /// One tick. Throws Fault when a replay line does not fit, when the rules ask for a hero who does not exist or for
  /// more room than amoeba has, and in most cases for a cell outside the grids; see below.
  void tmrHra_Timer();

  /// The cave as text, one line a row, in the characters of cave text.
  std::string Picture() const;

  // --- Procedures of the tick --------------------

  // Cells are plain x, y of the cave, and a caller stays within it: what lies two cells beyond it is in the grids
  // still. A cell farther out throws Fault where it is asked for by x and y. A neighbour that is read along its row
  // (Grid::Row), as the scans do and the questions whether something can roll or lies beside, is not checked.

  /// Advances the pictures that change by themselves, ends the magic wall's time and opens the exit.
  void Animace();
  /// Moves what stands on the teleport's entrance a step on its way to the exit.
  void Teleport();
  /// Paints a cell with the picture of its tile.
  void PREKR(int x, int y);
  /// A step of falling or rolling of the object in a cell with Motion 2 or 3.
  void NewGravitace(int x, int y);
  /// The object in the cell has come down on the cell below: a blast or a noise.
  void Dopad(int x, int y);
  /// Empties the cell and paints it.
  void ClearField(int x, int y);
  /// A rule of rolling that no cave uses.
  void ZaoblenéObjekty(int x, int y);
  /// A step or a turn of the creature in the cell, if it has not had its turn in this tick.
  void Potvory(int x, int y);
  /// The new facing, 1..4, of a fly in the cell that flew in `direction`, 1..4, and met something.
  int MouchaS(int x, int y, int direction);
  /// Lets what lies on the slime cell through, if chance has it.
  void Slime(int x, int y);
  /// A random number: fresh, 1..range and at most 190, written down in the recording; or in a replay what the line has
  /// next, -65..190 whatever the range. Throws Fault when the line is used up, and with ReplayCheck::kStrict for a
  /// number that the range does not hold.
  int Nahoda(int range);
  /// Reads keys and joystick into KeyMove and KeyAction, selects heroes, and records it all.
  void Klavesy();
  /// Selects a hero: code -1 or 1 steps to the living one before or behind, above 1 it is ten times a hero's number. A
  /// dead one is not selected; a number above 9 throws Fault. Does nothing where there is no other hero to select.
  void ZmenitPsa(int code);
  /// Copies Motion, Tiles and Aux of cell 2 to cell 1.
  void ValRVal(int x1, int y1, int x2, int y2);
  /// A step of the selected hero in the direction of KeyMove, 37..40.
  void PohybH();
  /// Blows up the nine cells around a centre; a and b mean nothing.
  void Exploze(int x, int y, int a, int b);
  /// Shows a message. colour: 0xBBGGRR.
  void ShowMessage(const std::string& text, std::uint32_t colour);
  /// Asks for sound 0..9, unless sound is off or an explosion must not be cut.
  void PZvuk(int sound);
  /// Asks for the countdown's sound, 0..10 seconds left, unless sound is off.
  void PZvukTime(int seconds);
  /// Brings the selected hero into view.
  void ZornéPole();
  /// Forgets the keys pressed so far.
  void ProjedKlv();
  /// The cave is won: keeps its sum and tells it.
  void WinGame();

  // --- State --------------------

  Grid<std::uint16_t, -2, 81, -2, 51> Tiles;   // tile codes
  Grid<std::uint8_t, -2, 81, -2, 51> Motion;   // 0 still, 1 rounded, 2 at rest, 3 falling
  Grid<std::uint8_t, -1, 80, -1, 50> Aux;      // facing of a creature (times ten: moved), phase of an explosion
  Grid<std::int16_t, 0, 80, 0, 50> MovedFlag;  // -1: handled in this tick
  std::array<HeroRecord, 10> Heroes{};         // index 0 is unused

  bool PlayingReplay = false;              // lines come from readReplayLine instead of keys
  ReplayCheck Check = ReplayCheck::kNone;  // how closely a replay's lines are looked at
  bool TestPlay = false;                   // started from the cave editor
  bool Won = false;                        // the hero has entered the exit
  WinSum Sum;                              // what the cave is worth, set when it is won; the tick runs on behind it
  int Score = 0;                           // points of the side panel; not cleared by a new cave
  int CaveWidth = 0;
  int CaveHeight = 0;
  int Need = 0;
  int TimeLimit = 0;  // seconds
  int Collected = 0;
  int KeyMove = 0;           // 37..40, or 0
  int KeyAction = 0;         // 1: act without moving
  double ElapsedTime = 0;    // seconds of the cave's clock, 0.1 a tick
  int lblCas = 0;            // seconds left, as shown
  int MagicState = 0;        // 0 not started, 1 running, 2 spent
  double MagicStart = 1000;  // ElapsedTime of the first touch
  int MagicTime = 0;         // seconds
  int AmoebaMode = 0;        // 0 slow, 1 fast, 2 too big, 3 enclosed
  int AmoebaTime = 0;        // seconds
  int AnimPhase = 0;
  int FlyPhase = 0;
  int ExitPhase = 0;
  int HeroCount = 0;  // highest hero number of the cave
  int CurrentHero = 1;
  bool MultiHero = false;  // another hero can still be selected
  int PointsBefore = 0;
  int PointsAfter = 0;
  int PointsNow = 0;
  bool ExitOpen = false;
  std::uint8_t SlimeThrough = 0;
  int IdleTicks = 0;
  bool FollowHero = true;
  bool TeleportActive = false;
  bool HeroLocked = false;
  std::uint8_t TeleportSourceX = 0;  // the entrance
  std::uint8_t TeleportSourceY = 0;
  std::uint8_t TeleportTargetX = 0;  // the exit
  std::uint8_t TeleportTargetY = 0;
  std::uint8_t TeleportPhase = 0;  // 0 idle, otherwise progress of the transfer
  std::uint16_t TeleportTile = 0;
  std::uint8_t TeleportMotion = 0;
  std::uint8_t TeleportAux = 0;
  std::uint8_t SoundLock = 0;                      // ticks during which no sound may cut the explosion
  int BlinkPhase = 0;                              // 0..15
  int Tint = 0;                                    // 0..14
  int chkRec = 0;                                  // 1: the game is recorded
  std::array<int, 5> KeyAge{};                     // index 1..4: ticks for which left, up, right, down have been held
  int KeyQueued = 0;                               // a direction key to be taken by the next Klavesy, or 0
  std::array<int, kTileCodes> pctK{};              // picture of each tile code
  std::string RecordBuffer;                        // the recording
  std::string ReplayLine;                          // what is left of this tick's line
  Random random;                                   // fresh numbers for Nahoda
  int CandidateCount = 0;                          // of this tick
  std::array<CellPlace, 2501> AmoebaCandidates{};  // cells that amoeba can grow into, in scan order

  const Hooks* hooks = nullptr;        // may be null
  const Settings* settings = nullptr;  // null: the defaults

 private:
  /// Calls a hook, if there is one.
  template <class... Parameters, class... Arguments>
  void Tell(std::function<void(Parameters...)> Hooks::*hook, Arguments&&... arguments) const {
    if (hooks != nullptr && hooks->*hook) (hooks->*hook)(std::forward<Arguments>(arguments)...);
  }

  const Settings& Wishes() const;
  bool Held(int virtualKey) const;
  bool BothHeld(int one, int other) const;
  HeroRecord& Hero(int number);
  const HeroRecord& Hero(int number) const;
  void SetPicture(int tile, int number) { pctK[static_cast<std::size_t>(tile)] = number; }

  // PaintCave
  void CopyRecord(const CaveRecord& record);
  void DrawRing();
  void ResetPictures();
  void FillGrids(const CaveRecord& record);
  void LoadCell(int x, int y, char c);
  void PlaceHero(int number, int x, int y);
  void MarkTeleport(int x, int y);
  void MarkSplitters();

  // tmrHra_Timer
  bool ReadReplayLine();
  RowColumns ExplosionCells(int y) const;
  void ScanExplosions();
  void RunExplosion(int x, int y);
  RowColumns CellsWithTurn(int y) const;
  void ScanRules();
  void RunTile(int x, int y, std::uint16_t tile);
  void AddCandidate(int x, int y);
  void GrowWall(int x, int y, std::uint16_t tile, int dx, int dy);
  void GrowAmoeba();
  void CheckInput(int keyMove, int keyAction, int hero) const;
  bool CanBeCurrent(int hero) const;
  void ReadInput();
  void CheckHeroes();
  void MoveOrIdle();
  void Idle();
  RowColumns CellsWithMark(int y) const;
  void ScanMarks();
  void ClearMark(int x, int y);
  void ScanMarksOfAmoeba(int x, int y, int& amoebaCount);
  void CreatureContact(int x, int y);
  void RunClock();
  void SpeedAmoebaUp();
  void EndLine();
  void Pulse();
  void ReadCommandKeys();
  bool Beside(int x, int y, std::uint16_t tile) const;

  // PohybH
  void MoveCrate(int x, int y, int dx, int dy, bool favourable);
  void PushRock(int x, int y, int dx);
  bool PassControl(int x, int y);
  void EnterExit(int oldX, int oldY, int x, int y);
  bool Enterable(int x, int y) const;
  void Take(int x, int y);
  void OpenLocks(int gem);
  void OpenLock(int x, int y, std::uint16_t lock);

  // Teleport
  void LockHeroAt(int x, int y);

  // NewGravitace
  void StartToFall(int x, int y);
  void FallOn(int x, int y);
  void PassMagicWall(int x, int y);
  void Land(int x, int y);
  void Split(int x, int y);
  bool FreeToRoll(int x, int y, int side) const;
  void MoveFalling(int x, int y, int toX, int toY);

  // Potvory
  void MoveCreature(int x, int y, int dx, int dy, int facing);
  void MoveFly(int x, int y);

  // Animace
  void AnimateMagicWall();
  void OpenExit();
  void BlinkExit();

  // Klavesy
  int NewestArrow();
};
