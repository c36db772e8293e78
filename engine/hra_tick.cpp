// The tick: one fixed sequence of steps over the grids. Scans go row by row from the top, each row from the left.

#include <algorithm>
#include <array>
#include <cmath>

#include "base/fault.h"
#include "base/lang_str.h"
#include "cave/cave_text.h"
#include "cave/scramble.h"
#include "engine/hra.h"

namespace {

bool IsDirection(int virtualKey) { return virtualKey >= key::kLeft && virtualKey <= key::kDown; }

bool IsCreature(std::uint16_t tile) { return (tile == Firefly) | (tile == Butterfly) | (tile == Fly); }

/// Whether the tile has a turn of its own in the second scan.
bool Acts(std::uint16_t tile) {
  return IsCreature(tile) | (tile == SlimeTile) | (tile == GrowWallH) | (tile == GrowWallV);
}

}  // namespace

void Hra::tmrHra_Timer() {
  Animace();
  if (SoundLock > 0) --SoundLock;
  if (PlayingReplay && !ReadReplayLine()) return;
  if (TeleportActive) Teleport();
  ScanExplosions();
  ScanRules();
  GrowAmoeba();
  if (!HeroLocked && TimeLimit > ElapsedTime) ReadInput();
  CheckHeroes();
  MoveOrIdle();
  ScanMarks();
  RunClock();
  SpeedAmoebaUp();
  if (FollowHero) ZornéPole();
  EndLine();
  Pulse();
  Tell(&Hooks::tickDone);
  ReadCommandKeys();
}

/// Takes the next line of the replay; false ends the tick.
bool Hra::ReadReplayLine() {
  if (!hooks || !hooks->readReplayLine || !hooks->readReplayLine(ReplayLine)) return false;
  if (!ReplayLine.empty()) return true;
  if (hooks->restart) hooks->restart();
  return false;
}

RowColumns Hra::ExplosionCells(int y) const {
  const std::uint16_t* tiles = Tiles.Row(y);
  RowColumns::Chosen explodes{};
  for (int x = 0; x < CaveWidth; ++x) explodes[static_cast<std::size_t>(x)] = tiles[x] == Explosion;
  return RowColumns(explodes);
}

void Hra::ScanExplosions() {
  for (int y = 0; y < CaveHeight; ++y) {
    for (const int x : ExplosionCells(y)) {
      RunExplosion(x, y);
      PREKR(x, y);
      MovedFlag(x, y) = -1;
    }
  }
}

/// The next frame of an explosion, or what its last frame leaves.
void Hra::RunExplosion(int x, int y) {
  std::uint8_t& aux = Aux(x, y);
  if (aux == 3 || aux == 7) {
    Tiles(x, y) = Empty;
    aux = 0;
  } else if (aux == 11 || aux == 15) {
    Tiles(x, y) = aux == 11 ? Rock : Gem;
    Motion(x, y) = 2;
    aux = 0;
  } else {
    ++aux;
    SetPicture(Explosion, picture::kExpld + aux);
  }
}

/// The cells of a row that can have a turn in the second scan: what has weight, acts by itself, or may lie beside
/// amoeba, and has not been handled yet. Found for the whole row at once and without branches, which is what keeps a
/// large cave fast. What enters another cell of the row later in the scan is marked as handled, so nothing is missed;
/// the turn itself tests everything afresh.
RowColumns Hra::CellsWithTurn(int y) const {
  const std::uint16_t* above = Tiles.Row(y - 1);
  const std::uint16_t* tiles = Tiles.Row(y);
  const std::uint16_t* below = Tiles.Row(y + 1);
  const std::uint8_t* motion = Motion.Row(y);
  const std::int16_t* moved = MovedFlag.Row(y);
  RowColumns::Chosen hasTurn{};
  for (int x = 0; x < CaveWidth; ++x) {
    const bool amoeba =
        (above[x] == Amoeba) | (below[x] == Amoeba) | (tiles[x - 1] == Amoeba) | (tiles[x + 1] == Amoeba);
    hasTurn[static_cast<std::size_t>(x)] = (moved[x] == 0) & (amoeba | (motion[x] >= 2) | Acts(tiles[x]));
  }
  return RowColumns(hasTurn);
}

void Hra::ScanRules() {
  CandidateCount = 0;
  for (int y = 0; y < CaveHeight; ++y) {
    const std::int16_t* moved = MovedFlag.Row(y);
    const std::uint8_t* motion = Motion.Row(y);
    const std::uint16_t* tiles = Tiles.Row(y);
    for (const int x : CellsWithTurn(y)) {
      if (moved[x] != 0) continue;
      // Read afresh: an object that comes to rest in the first line has its turn as one at rest in the second.
      if (motion[x] == 3) NewGravitace(x, y);
      if (motion[x] == 2) StartToFall(x, y);
      if (Acts(tiles[x])) RunTile(x, y, tiles[x]);
      if (tiles[x] <= Dirt && Beside(x, y, Amoeba)) AddCandidate(x, y);
    }
  }
}

void Hra::RunTile(int x, int y, std::uint16_t tile) {
  switch (tile) {
    case Firefly:
    case Butterfly:
    case Fly:
      Potvory(x, y);
      break;
    case SlimeTile:
      Slime(x, y);
      break;
    case GrowWallH:
      GrowWall(x, y, tile, -1, 0);
      GrowWall(x, y, tile, 1, 0);
      break;
    case GrowWallV:
      GrowWall(x, y, tile, 0, -1);
      GrowWall(x, y, tile, 0, 1);
      break;
    default:
      break;
  }
}

void Hra::AddCandidate(int x, int y) {
  if (CandidateCount >= static_cast<int>(AmoebaCandidates.size())) {
    throw Fault("The amoeba of this cave has more than 2501 cells to grow into.");
  }
  AmoebaCandidates[static_cast<std::size_t>(CandidateCount++)] = {static_cast<std::uint8_t>(x),
                                                                  static_cast<std::uint8_t>(y)};
}

/// Whether one of the four neighbours of a cell of the cave holds the tile.
bool Hra::Beside(int x, int y, std::uint16_t tile) const {
  const std::uint16_t* above = Tiles.Row(y - 1);
  const std::uint16_t* row = Tiles.Row(y);
  const std::uint16_t* below = Tiles.Row(y + 1);
  return (row[x - 1] == tile) | (row[x + 1] == tile) | (above[x] == tile) | (below[x] == tile);
}

// Motion of the new cell is not written: an empty cell that kept Motion 2 hands it to the wall. That is meant.
void Hra::GrowWall(int x, int y, std::uint16_t tile, int dx, int dy) {
  if (Tiles(x + dx, y + dy) != Empty) return;
  Tiles(x + dx, y + dy) = tile;
  PREKR(x + dx, y + dy);
  MovedFlag(x + dx, y + dy) = -1;
}

// One number is drawn in every tick, with or without amoeba. The first candidate is tested, whichever is then picked.
void Hra::GrowAmoeba() {
  const int drawn = Nahoda(AmoebaMode == 1 ? 4 : 32);
  if (CandidateCount == 0 || drawn != 1) return;
  if (Tiles(AmoebaCandidates[0].x, AmoebaCandidates[0].y) > Dirt) return;
  const int index = Nahoda(CandidateCount) - 1;
  if (index < 0 || index >= static_cast<int>(AmoebaCandidates.size())) {
    throw Fault("The replay draws an amoeba cell that is not in the list.");
  }
  const CellPlace place = AmoebaCandidates[static_cast<std::size_t>(index)];
  Tiles(place.x, place.y) = Amoeba;
  Motion(place.x, place.y) = 0;
  Aux(place.x, place.y) = 0;
  PREKR(place.x, place.y);
}

/// What no game records can only come from a damaged file.
void Hra::CheckInput(int keyMove, int keyAction, int hero) const {
  if (keyMove != 0 && !IsDirection(keyMove)) throw Fault("The line holds a key that does not exist.");
  if (keyAction != 0 && keyAction != 1) throw Fault("The line holds an action that does not exist.");
  if (!CanBeCurrent(hero)) throw Fault("The line holds a hero who cannot be chosen.");
}

/// Whether a game can record the hero in its next tick: only a living one is ever chosen, except that Tab stops
/// anywhere once nobody is left, and at hero 0 in a cave without heroes.
bool Hra::CanBeCurrent(int hero) const {
  if (hero == CurrentHero) return true;
  if (hero < (HeroCount == 0 ? 0 : 1) || hero > std::max(HeroCount, 1)) return false;
  const auto living = [](const HeroRecord& record) { return record.alive != 0; };
  return living(Hero(hero)) || std::none_of(Heroes.begin(), Heroes.end(), living);
}

void Hra::ReadInput() {
  if (!PlayingReplay) {
    Klavesy();
    return;
  }
  if (ReplayLine.size() < 3) throw Fault("The line ends before the keys of its tick.");
  const auto number = [this](std::size_t i) { return static_cast<unsigned char>(ReplayLine[i]) - kSmallNumberBase; };
  const int hero = number(2);
  if (Check != ReplayCheck::kNone) CheckInput(number(0), number(1), hero);
  KeyMove = number(0);
  KeyAction = number(1);
  ReplayLine.erase(0, 3);
  if (hero != CurrentHero) ZmenitPsa(hero * 10);
}

// A hero whose tile is gone is dead; the strip is painted again in every tick.
void Hra::CheckHeroes() {
  if (HeroLocked) return;
  for (int i = 1; i <= HeroCount; ++i) {
    HeroRecord& hero = Hero(i);
    if (Tiles(hero.x, hero.y) == HeroTile) continue;
    hero.alive = 0;
    Tell(&Hooks::paintStrip, i, picture::kMrtvejPes);
  }
}

void Hra::MoveOrIdle() {
  if (Hero(CurrentHero).alive == 0) return;
  if (!IsDirection(KeyMove)) {
    Idle();
  } else if (!HeroLocked) {
    PohybH();
  }
}

void Hra::Idle() {
  ++IdleTicks;
  if (IdleTicks == 2) SetPicture(HeroTile, picture::kImgZBP);
  const int m = IdleTicks % 300;
  if ((m >= 81 && m <= 95) || (m >= 177 && m <= 215)) {
    SetPicture(HeroTile, IdleTicks % 2 == 0 ? picture::kImgZBW : picture::kImgZBP);
  } else if (m == 50 || m == 110 || m == 225 || m == 112 || m == 229) {
    SetPicture(HeroTile, picture::kImgZBW21);
  } else if (m == 51 || m == 111 || m == 226 || m == 270) {
    SetPicture(HeroTile, picture::kImgZBW22);
  } else if (m == 52 || m == 113) {
    SetPicture(HeroTile, picture::kImgZBP);
  }
  if (m == 299 && lblCas != 0 && Wishes().DatPauzu != 0) Tell(&Hooks::idlePause);
  if (!HeroLocked) PREKR(Hero(CurrentHero).x, Hero(CurrentHero).y);
}

/// The cells of a row that the third scan has to look at. A blast during the scan only takes such cells away.
RowColumns Hra::CellsWithMark(int y) const {
  const std::uint16_t* tiles = Tiles.Row(y);
  const std::uint8_t* aux = Aux.Row(y);
  RowColumns::Chosen hasMark{};
  for (int x = 0; x < CaveWidth; ++x) {
    const std::uint16_t tile = tiles[x];
    hasMark[static_cast<std::size_t>(x)] = ((aux[x] >= 5) & (tile != Explosion)) | IsCreature(tile) | (tile == Amoeba) |
                                           (tile == SlimeTile) | (tile == Vacated);
  }
  return RowColumns(hasMark);
}

// The marks of the tick are taken back here, amoeba changes, and creatures that touch a hero or amoeba go off. A blast
// marks cells as handled that this scan may have passed already; they stay so, and the first scan would mark them again
// anyway.
void Hra::ScanMarks() {
  const bool animate = Wishes().AnimovatAaB != 0;
  int amoebaCount = 0;
  for (int y = 0; y < CaveHeight; ++y) {
    std::fill_n(MovedFlag.Row(y), CaveWidth, std::int16_t{0});
    const std::uint16_t* tiles = Tiles.Row(y);
    std::uint8_t* aux = Aux.Row(y);
    for (const int x : CellsWithMark(y)) {
      if (animate && tiles[x] == SlimeTile) PREKR(x, y);
      if (tiles[x] == Amoeba) {
        if (animate) PREKR(x, y);
        ScanMarksOfAmoeba(x, y, amoebaCount);
      }
      if (aux[x] >= 5 && tiles[x] != Explosion) {
        aux[x] = static_cast<std::uint8_t>((aux[x] + 5) / 10);
        PREKR(x, y);
      }
      if (tiles[x] == Vacated) ClearMark(x, y);
      if (IsCreature(tiles[x])) CreatureContact(x, y);
    }
  }
}

/// Turns a cell that a creature has left into an empty one; its Motion stays.
void Hra::ClearMark(int x, int y) {
  Tiles(x, y) = Empty;
  PREKR(x, y);
}

void Hra::ScanMarksOfAmoeba(int x, int y, int& amoebaCount) {
  if (AmoebaMode == 2) {
    Tiles(x, y) = Rock;
    Motion(x, y) = 2;
    PREKR(x, y);
    return;
  }
  if (CandidateCount == 0) {
    Tiles(x, y) = Gem;
    Motion(x, y) = 2;
    PREKR(x, y);
    if (AmoebaMode != 3) ShowMessage(LangStr[text::kAmoebaToGems], colour::kGreen);
    AmoebaMode = 3;
  }
  ++amoebaCount;
  // At least 5/22 of the cave's area, in whole numbers.
  if (amoebaCount * 22 >= CaveWidth * CaveHeight * 5) {
    AmoebaMode = 2;
    ShowMessage(LangStr[text::kAmoebaToRocks], colour::kGreen);
  }
}

void Hra::CreatureContact(int x, int y) {
  if (!Beside(x, y, HeroTile) && !Beside(x, y, Amoeba)) return;
  if (Tiles(x, y) == Firefly) Exploze(x, y, 0, 0);
  if (Tiles(x, y) == Butterfly) Exploze(x, y, 3, 2);
  if (Tiles(x, y) == Fly) Exploze(x, y, 2, 2);
}

// The clock counts ticks, not real seconds. A number of other than three digits is not shown.
void Hra::RunClock() {
  if (TimeLimit > ElapsedTime) ElapsedTime += 0.1;
  const int left = static_cast<int>(std::floor(TimeLimit - ElapsedTime));
  if (left != lblCas && left >= 0 && left <= 999) {
    lblCas = left;
    if (lblCas < 11) PZvukTime(lblCas);
  }
  if (!(TimeLimit > ElapsedTime)) lblCas = 0;
}

void Hra::SpeedAmoebaUp() {
  if (AmoebaMode != 0 || CandidateCount == 0 || AmoebaTime - 1 > std::floor(ElapsedTime)) return;
  AmoebaMode = 1;
  ShowMessage(LangStr[text::kAmoebaFaster], colour::kGreen);
}

void Hra::EndLine() {
  if (PlayingReplay && !ReplayLine.empty()) ShowMessage(Unscramble(ReplayLine), colour::kCyan);
  if (!PlayingReplay && chkRec == 1) RecordBuffer += "\r\n";
}

void Hra::Pulse() {
  BlinkPhase = (BlinkPhase + 1) % 16;
  const auto level = static_cast<std::uint32_t>(BlinkPhase < 8 ? BlinkPhase * 24 + 87 : 255 - (BlinkPhase - 8) * 24);
  Tell(&Hooks::pulse, PlayingReplay ? level << 16 : level);
}

void Hra::ReadCommandKeys() {
  if (BothHeld(key::kControl, key::kR) && hooks->restart) hooks->restart();
  if (PlayingReplay && BothHeld(key::kControl, key::kC)) FollowHero = !FollowHero;
  if (!FollowHero) Tell(&Hooks::scrollFreely);
}
