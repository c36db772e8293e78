// Setting up a cave and the small procedures that all rules share.

#include "base/fault.h"
#include "base/lang_str.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "cave/scramble.h"
#include "engine/hra.h"

namespace {

const Settings kDefaultSettings;

}  // namespace

const Settings& Hra::Wishes() const { return settings != nullptr ? *settings : kDefaultSettings; }

HeroRecord& Hra::Hero(int number) { return const_cast<HeroRecord&>(std::as_const(*this).Hero(number)); }

const HeroRecord& Hra::Hero(int number) const {
  if (number < 0 || number >= static_cast<int>(Heroes.size())) {
    throw Fault("There is no hero number " + std::to_string(number) + ".");
  }
  return Heroes[static_cast<std::size_t>(number)];
}

void Hra::PaintCave(std::string_view caveText) {
  Tell(&Hooks::layOut);
  chkRec = 1;
  FollowHero = true;
  HeroLocked = false;
  TeleportActive = false;
  TeleportPhase = 0;
  Won = false;
  Sum = {};
  // Of the last tick of the cave before: a blast leaves marks, though no cell of this cave has had its turn, and a key
  // would walk the hero where none is read. A replay begins without either.
  MovedFlag = {};
  KeyMove = 0;
  if (!PlayingReplay && !TestPlay) {
    RecordBuffer = Scramble(caveText) + "\r\n";
  } else {
    chkRec = 0;
  }
  const CaveRecord record = ParseCaveText(caveText);
  Tell(&Hooks::stopTimer);
  for (HeroRecord& hero : Heroes) hero.alive = 0;
  HeroCount = 0;
  Tell(&Hooks::caveRead, record);
  CopyRecord(record);
  ResetPictures();
  Tell(&Hooks::loadTint, Tint);
  Tell(&Hooks::sizeCave, CaveWidth, CaveHeight);
  FillGrids(record);
  CurrentHero = 1;
  MultiHero = HeroCount != 1;
  SetPicture(HeroTile, picture::kImgZBP);
  Tell(&Hooks::showStrip);
  ProjedKlv();
  Tell(&Hooks::setInterval, (Wishes().Rychlost - 1) * 20 + 1);
}

void Hra::CopyRecord(const CaveRecord& record) {
  CaveWidth = record.Width;
  CaveHeight = record.Height;
  DrawRing();
  PointsNow = PointsBefore = record.PointsBefore;
  PointsAfter = record.PointsAfter;
  MagicTime = record.MagicTime;
  AmoebaTime = record.AmoebaTime;
  TimeLimit = record.Time;
  Need = record.Need;
  SlimeThrough = record.SlimeThrough;
  lblCas = TimeLimit;
  Tint = record.Tint > 14 ? static_cast<int>(Rnd() * 15) : record.Tint;
  ElapsedTime = 0;
  MagicState = 0;
  AmoebaMode = 0;
  Collected = 0;
  MagicStart = 1000;
  ExitOpen = false;
}

void Hra::DrawRing() {
  const auto steel = [this](int x, int y) {
    Tiles(x, y) = SteelWall;
    Motion(x, y) = 0;
  };
  for (int y = -1; y <= CaveHeight; ++y) {
    steel(-1, y);
    steel(CaveWidth, y);
  }
  for (int x = -1; x <= CaveWidth; ++x) {
    steel(x, -1);
    steel(x, CaveHeight);
  }
}

void Hra::ResetPictures() {
  using namespace picture;
  pctK = {kEmpty, kDirt,   kRock,       kGem,        kImgZBP,    kWall,        kAnim6,      kAnim7,
          kAnim9, kAnim9,  kAnim10,     kCrate,      kGrowWallH, kGrowWallV,   kAnim14,     kAnim15,
          kExpld, kRedGem, kRedGem + 1, kRedGem + 2, kRedLock,   kRedLock + 1, kRedLock + 2};
}

void Hra::FillGrids(const CaveRecord& record) {
  for (int y = 0; y < CaveHeight; ++y) {
    for (int x = 0; x < CaveWidth; ++x) {
      LoadCell(x, y, record.Cell(x, y));
      PREKR(x, y);
      MarkTeleport(x, y);
    }
  }
  MarkSplitters();
}

// An unknown character leaves the cell as the cave before had it. That is meant.
void Hra::LoadCell(int x, int y, char c) {
  const TileLoad& load = LoadOfCharacter(c);
  if (!load.known) return;
  Tiles(x, y) = load.tile;
  Motion(x, y) = load.motion;
  Aux(x, y) = load.aux;
  if (load.hero != 0) PlaceHero(load.hero, x, y);
}

void Hra::PlaceHero(int number, int x, int y) {
  Hero(number) = HeroRecord{static_cast<std::uint16_t>(x), static_cast<std::uint16_t>(y), -1};
  if (number > HeroCount) HeroCount = number;
  SetPicture(HeroTile, number == 1 ? picture::kImgZBP : picture::kMultiPes + number - 1);
}

// Slime above a steel wall is a teleport's entrance, slime below one its exit; the ring above the first row counts as
// such a wall, the ring below the last row is not looked at. The last cell found wins.
void Hra::MarkTeleport(int x, int y) {
  const auto open = [this](int column, int row, std::uint8_t& placeX, std::uint8_t& placeY) {
    TeleportActive = true;
    placeX = static_cast<std::uint8_t>(column);
    placeY = static_cast<std::uint8_t>(row);
    Tiles(column, row) = Empty;
    PREKR(column, row);
  };
  if (Tiles(x, y - 1) == SlimeTile && Tiles(x, y) == SteelWall) {
    open(x, y - 1, TeleportSourceX, TeleportSourceY);
    Tell(&Hooks::paintOverlay, x, y, picture::kImgTLP);
  } else if (Tiles(x, y - 1) == SteelWall && Tiles(x, y) == SlimeTile) {
    open(x, y, TeleportTargetX, TeleportTargetY);
    Tell(&Hooks::paintOverlay, x, y - 1, picture::kImgTLP + 1);
  }
}

void Hra::MarkSplitters() {
  if (!hooks || !hooks->paintOverlay) return;
  for (int y = 0; y < CaveHeight; ++y) {
    for (int x = 0; x < CaveWidth; ++x) {
      if (Tiles(x, y) != GrowWallH || Tiles(x - 1, y) != SteelWall || Tiles(x + 1, y) != SteelWall) continue;
      for (int part = 0; part < 3; ++part) hooks->paintOverlay(x - 1 + part, y, picture::kImgRzd + part);
    }
  }
}

void Hra::Command1_Click() {
  ZornéPole();
  Tell(&Hooks::startTimer);
  IdleTicks = 0;
  const std::string count = " " + std::to_string(HeroCount);  // the blank of the place-holder stays
  if (!MultiHero) {
    ShowMessage(LangStr[text::kStartOneHero], colour::kWhite);
  } else if (HeroCount < 5) {
    ShowMessage(Replaced(LangStr[text::kStartFewHeroes], " 2-4", count), colour::kWhite);
  } else {
    ShowMessage(Replaced(LangStr[text::kStartManyHeroes], " 5-9", count), colour::kWhite);
  }
}

void Hra::WinGame() {
  Won = true;
  Sum = WinSum{Need, PointsBefore, Collected - Need, PointsAfter, lblCas, 0};
  for (int i = 1; i <= HeroCount; ++i) Sum.aliveHeroes += Hero(i).alive != 0 ? 1 : 0;
  Tell(&Hooks::won);
}

std::string Hra::Picture() const {
  std::string text;
  for (int y = 0; y < CaveHeight; ++y) {
    for (int x = 0; x < CaveWidth; ++x) {
      char c = CharacterOfCell(Tiles(x, y), Motion(x, y), Aux(x, y));
      for (int i = 1; i <= HeroCount && c == 'H'; ++i) {
        if (Hero(i).alive != 0 && Hero(i).x == x && Hero(i).y == y) c = static_cast<char>('0' + i);
      }
      text += c;
    }
    text += '\n';
  }
  return text;
}

void Hra::PREKR(int x, int y) {
  if (!hooks || !hooks->paintCell) return;
  const std::uint16_t tile = Tiles(x, y);  // the cell of a dead hero may be painted while a creature is just leaving it
  hooks->paintCell(x, y, pctK[tile == Vacated ? std::uint16_t{Empty} : tile]);
}

void Hra::ClearField(int x, int y) {
  Tiles(x, y) = Empty;
  Motion(x, y) = 0;
  PREKR(x, y);
}

void Hra::ValRVal(int x1, int y1, int x2, int y2) {
  Motion(x1, y1) = Motion(x2, y2);
  Tiles(x1, y1) = Tiles(x2, y2);
  Aux(x1, y1) = Aux(x2, y2);
}

void Hra::ShowMessage(const std::string& text, std::uint32_t colour) { Tell(&Hooks::showMessage, text, colour); }

void Hra::ZornéPole() { Tell(&Hooks::showCell, Hero(CurrentHero).x, Hero(CurrentHero).y); }

void Hra::PZvuk(int sound) {
  constexpr int kDirtSound = 0;
  constexpr int kExplosionSound = 5;
  if (Wishes().Zvuk == 0 || SoundLock != 0) return;
  if (sound == kExplosionSound) SoundLock = 2;
  Tell(&Hooks::playSound, sound, sound == kDirtSound);
}

void Hra::PZvukTime(int seconds) {
  if (Wishes().Zvuk != 0) Tell(&Hooks::playCountdown, seconds);
}

// One source of random numbers for all rules: fresh ones are written down, a replay reads them back whatever the range.
int Hra::Nahoda(int range) {
  const int numbers = range > kLargestSmallNumber ? kLargestSmallNumber : range;
  if (!PlayingReplay) {
    const int number = static_cast<int>(random.Next() * numbers) + 1;
    RecordBuffer += static_cast<char>(number + kSmallNumberBase);
    return number;
  }
  if (ReplayLine.empty()) throw Fault("The line ends before the numbers that its tick draws.");
  const int number = static_cast<unsigned char>(ReplayLine.front()) - kSmallNumberBase;
  ReplayLine.erase(0, 1);
  if (Check == ReplayCheck::kStrict && (number < 1 || (number > numbers && number > 1))) {
    throw Fault("The line draws the number " + std::to_string(number) + " out of " + std::to_string(numbers) + ".");
  }
  return number;
}
