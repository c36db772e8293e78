// One step of the selected hero, and the teleport.

#include "base/fault.h"
#include "engine/hra.h"

namespace {

int PictureOfMove(int keyMove) {
  switch (keyMove) {
    case key::kLeft:
      return picture::kImgZBL;
    case key::kUp:
      return picture::kImgZBZ;
    case key::kRight:
      return picture::kImgZBR;
    default:
      return picture::kImgZBP;
  }
}

bool IsColouredGem(std::uint16_t tile) { return tile >= RedGem && tile <= BlueGem; }

}  // namespace

void Hra::PohybH() {
  const int oldX = Hero(CurrentHero).x;
  const int oldY = Hero(CurrentHero).y;
  IdleTicks = 0;
  if (hooks && hooks->clock) random = Random(hooks->clock());
  const int dx = KeyMove == key::kRight ? 1 : KeyMove == key::kLeft ? -1 : 0;
  const int dy = KeyMove == key::kDown ? 1 : KeyMove == key::kUp ? -1 : 0;
  int x = oldX + dx;
  int y = oldY + dy;
  const bool favourable = Nahoda(4) == 1;  // drawn at every step, whatever stands on the target
  if (Tiles(x, y) == Crate) MoveCrate(x, y, dx, dy, favourable);
  if (Tiles(x, y) == Rock && favourable && dx != 0) PushRock(x, y, dx);
  if (Tiles(x, y) == HeroTile && favourable && PassControl(x, y)) return;
  if (Tiles(x, y) == Exit && ExitOpen && KeyAction == 0) {
    EnterExit(oldX, oldY, x, y);
    return;
  }
  if (Tiles(x, y) == Dirt) PZvuk(0);
  if (!Enterable(x, y)) {
    x = oldX;
    y = oldY;
  } else {
    Take(x, y);
    Motion(x, y) = 0;
    if (KeyAction == 0) {
      Tiles(x, y) = HeroTile;
      if (Tiles(oldX, oldY) != Crate) Tiles(oldX, oldY) = Empty;  // a crate that has just swapped in stays
      PREKR(oldX, oldY);
    } else {
      Tiles(x, y) = Empty;
      PREKR(x, y);
      x = oldX;
      y = oldY;
    }
  }
  Hero(CurrentHero).x = static_cast<std::uint16_t>(x);
  Hero(CurrentHero).y = static_cast<std::uint16_t>(y);
  SetPicture(HeroTile, PictureOfMove(KeyMove));
  PREKR(x, y);
}

// A crate moves into any empty cell behind it; one that cannot move may swap places with a walking hero. The swap asks
// for its sound twice. That is meant.
void Hra::MoveCrate(int x, int y, int dx, int dy, bool favourable) {
  if (Tiles(x + dx, y + dy) != Empty) {
    if (KeyAction != 0 || !favourable) return;
    dx = -dx;
    dy = -dy;
    PZvuk(6);
  }
  Tiles(x + dx, y + dy) = Crate;
  Motion(x + dx, y + dy) = 1;
  Tiles(x, y) = Empty;
  Motion(x, y) = 0;
  PREKR(x + dx, y + dy);
  PZvuk(6);
}

/// Pushes the rock at (x, y) sideways if it is at rest and the cell behind it is empty.
void Hra::PushRock(int x, int y, int dx) {
  if (Motion(x, y) != 2 || Tiles(x + dx, y) != Empty) return;
  Tiles(x + dx, y) = Rock;
  Motion(x + dx, y) = 2;
  Tiles(x, y) = Empty;
  Motion(x, y) = 0;
  PREKR(x + dx, y);
  PZvuk(4);
  if (Motion(x + dx, y + 1) != 0) MovedFlag(x + dx, y) = -1;
}

/// Selects the hero who stands at (x, y); false when no record points there.
bool Hra::PassControl(int x, int y) {
  for (int i = 1; i <= HeroCount; ++i) {
    if (Hero(i).x != x || Hero(i).y != y) continue;
    ZmenitPsa(10 * i);
    return true;
  }
  return false;
}

void Hra::EnterExit(int oldX, int oldY, int x, int y) {
  Tell(&Hooks::stopTimer);
  Tiles(x, y) = HeroTile;
  Tiles(oldX, oldY) = Empty;
  PREKR(oldX, oldY);
  SetPicture(HeroTile, PictureOfMove(KeyMove));
  PREKR(x, y);
  Hero(CurrentHero).x = static_cast<std::uint16_t>(x);
  Hero(CurrentHero).y = static_cast<std::uint16_t>(y);
  WinGame();
}

bool Hra::Enterable(int x, int y) const {
  if (Motion(x, y) == 1 || Motion(x, y) == 3) return false;
  switch (Tiles(x, y)) {
    case Empty:
    case Dirt:
    case Gem:
    case RedGem:
    case GreenGem:
    case BlueGem:
    case Vacated:
      return true;
    default:
      return false;
  }
}

void Hra::Take(int x, int y) {
  if (Tiles(x, y) == Gem) {
    ++Collected;
    Score += PointsNow;
    PZvuk(2);
  } else if (IsColouredGem(Tiles(x, y))) {
    OpenLocks(Tiles(x, y));
  }
}

// Each gem opens its share of the locks of its colour at random places; the gem taken is still on the grid and counts
// itself. With a share of 0 one try is made all the same; when it hits, every lock of the colour goes. That is meant.
void Hra::OpenLocks(int gem) {
  const auto lock = static_cast<std::uint16_t>(gem + 3);
  int gems = 0;
  int locks = 0;
  for (int y = 0; y < CaveHeight; ++y) {
    for (int x = 0; x < CaveWidth; ++x) {
      gems += Tiles(x, y) == gem ? 1 : 0;
      locks += Tiles(x, y) == lock ? 1 : 0;
    }
  }
  if (gems == 0) throw Fault("The hero takes a gem outside the cave.");  // a teleport of the cave before leads there
  int share = locks / gems;
  do {
    const int x = Nahoda(CaveWidth) - 1;
    const int y = Nahoda(CaveHeight) - 1;
    if (Tiles(x, y) != lock) continue;
    OpenLock(x, y, lock);
    --share;
    --locks;
  } while (share != 0 && locks != 0);
}

void Hra::OpenLock(int x, int y, std::uint16_t lock) {
  Tiles(x, y) = lock == RedLock ? Rock : lock == GreenLock ? Crate : Empty;
  Motion(x, y) = lock == RedLock ? 2 : lock == GreenLock ? 1 : 0;
  PREKR(x, y);
}

/// Holds and selects the hero who stands on the teleport's entrance. A hero tile that no record points at travels like
/// any other object.
void Hra::LockHeroAt(int x, int y) {
  int hero = 0;
  for (int i = 1; i <= HeroCount; ++i) {
    if (Hero(i).x == x && Hero(i).y == y) hero = i;
  }
  if (hero == 0) return;
  HeroLocked = true;
  ZmenitPsa(10 * hero);
}

// A transfer takes four ticks. Both cells are steel meanwhile, and the hero inside is held.
void Hra::Teleport() {
  const int sx = TeleportSourceX;
  const int sy = TeleportSourceY;
  const int tx = TeleportTargetX;
  const int ty = TeleportTargetY;
  if (TeleportPhase == 0 && Tiles(tx, ty) == Empty && Tiles(sx, sy) != Empty) {
    TeleportPhase = 1;
    if (Tiles(sx, sy) == HeroTile) LockHeroAt(sx, sy);
    TeleportTile = Tiles(sx, sy);
    TeleportMotion = Motion(sx, sy);
    TeleportAux = Aux(sx, sy);
    Tiles(sx, sy) = SteelWall;
    Tiles(tx, ty) = SteelWall;
    Aux(sx, sy) = 0;
  }
  if (TeleportPhase == 0) return;
  ++TeleportPhase;
  if (TeleportTile < kTileCodes) Tell(&Hooks::paintTransfer, TeleportPhase, pctK[TeleportTile]);
  if (TeleportPhase != 5) return;
  TeleportPhase = 0;
  if (HeroLocked) {
    Hero(CurrentHero) = HeroRecord{static_cast<std::uint16_t>(tx), static_cast<std::uint16_t>(ty), -1};
  }
  HeroLocked = false;
  Tiles(tx, ty) = TeleportTile;
  Motion(tx, ty) = TeleportMotion;
  Aux(tx, ty) = TeleportAux;
  PREKR(tx, ty);
  Tiles(sx, sy) = Empty;
  Motion(sx, sy) = 0;
  Aux(sx, sy) = 0;
  PREKR(sx, sy);
}
