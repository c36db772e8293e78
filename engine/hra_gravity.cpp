// Falling and rolling, the magic wall, the splitter and slime. What a cell does is decided by its Motion, not by its
// tile.

#include "base/lang_str.h"
#include "engine/hra.h"

void Hra::NewGravitace(int x, int y) {
  if (Motion(x, y) == 2) StartToFall(x, y);
  if (Motion(x, y) == 3) FallOn(x, y);
}

bool Hra::FreeToRoll(int x, int y, int side) const {
  return (Tiles.Row(y)[x + side] | Tiles.Row(y + 1)[x + side]) == Empty;
}

void Hra::MoveFalling(int x, int y, int toX, int toY) {
  Tiles(toX, toY) = Tiles(x, y);
  Motion(toX, toY) = 3;
  MovedFlag(toX, toY) = -1;
  ClearField(x, y);
  PREKR(toX, toY);
}

/// An object at rest: it falls into an empty cell, and rolls off a rounded one, left before right. Most lie still in
/// most ticks, so whether it moves at all is asked in one question.
void Hra::StartToFall(int x, int y) {
  const bool falls = Tiles.Row(y + 1)[x] == Empty;
  const bool left = FreeToRoll(x, y, -1);
  const bool right = FreeToRoll(x, y, 1);
  const bool rolls = (Motion.Row(y + 1)[x] != 0) & (left | right);
  if (!(falls | rolls)) return;
  if (falls) {
    MoveFalling(x, y, x, y + 1);
  } else {
    MoveFalling(x, y, left ? x - 1 : x + 1, y);
  }
}

void Hra::FallOn(int x, int y) {
  if (Tiles(x, y + 1) == MagicWall && Motion(x, y + 1) == 0) PassMagicWall(x, y);
  if (Tiles(x, y + 1) == Empty) {
    MoveFalling(x, y, x, y + 1);
  } else if (Motion(x, y + 1) == 0) {
    // The cell that the magic wall has emptied comes by here too: it keeps Motion 2, and the wall is heard. That is
    // meant.
    Motion(x, y) = 2;
    Dopad(x, y);
  } else {
    Land(x, y);
  }
  if (Tiles(x, y + 1) == GrowWallH && Tiles(x - 1, y + 1) == SteelWall && Tiles(x + 1, y + 1) == SteelWall) Split(x, y);
}

/// The object at (x, y) disappears into the magic wall below; while the wall can work and has room it comes out
/// changed.
void Hra::PassMagicWall(int x, int y) {
  if (MagicState <= 1) {
    if (MagicState == 0) {
      MagicState = 1;
      MagicStart = ElapsedTime;
      ShowMessage(LangStr[text::kMagicStarts], colour::kLightYellow);
    }
    if (Tiles(x, y + 2) == Empty) {
      Tiles(x, y + 2) = Tiles(x, y) == Gem ? Rock : Gem;
      Motion(x, y + 2) = 3;
      MovedFlag(x, y + 2) = -1;
      PREKR(x, y + 2);
    }
  }
  ClearField(x, y);
}

/// A falling object on something rounded: it is heard, then it rolls on or comes to rest.
void Hra::Land(int x, int y) {
  Dopad(x, y);
  if (FreeToRoll(x, y, -1)) {
    MoveFalling(x, y, x - 1, y);
  } else if (FreeToRoll(x, y, 1)) {
    MoveFalling(x, y, x + 1, y);
  } else {
    Motion(x, y) = 2;
  }
}

/// A horizontal growing wall between two steel walls divides what falls on it. The object above is gone in any case.
void Hra::Split(int x, int y) {
  for (const int side : {-1, 1}) {
    if (Tiles(x + side, y + 2) != Empty) continue;
    Tiles(x + side, y + 2) = Tiles(x, y);
    Motion(x + side, y + 2) = 3;
    PREKR(x + side, y + 2);
    MovedFlag(x + side, y + 2) = -1;
  }
  ClearField(x, y);
}

void Hra::Dopad(int x, int y) {
  switch (Tiles(x, y + 1)) {
    case Firefly:
    case HeroTile:
      Exploze(x, y + 1, 0, 0);
      return;
    case Butterfly:
      Exploze(x, y + 1, 3, 2);
      return;
    case Fly:
      Exploze(x, y + 1, 2, 2);
      return;
    case MagicWall:
      if (Motion(x, y + 1) == 0) {
        PZvuk(9);
        return;
      }
      break;
    default:
      break;
  }
  const std::uint16_t falling = Tiles(x, y);
  PZvuk(falling == Gem || (falling >= RedGem && falling <= BlueGem) ? 1 : 3);
}

// A calmer rule of rolling that no cave uses: the object at rest steps aside and stays at rest. NewGravitace decides
// alone.
void Hra::ZaoblenéObjekty(int x, int y) {
  if (Motion(x, y) != 2 || Motion(x, y + 1) == 0) return;
  const int side = FreeToRoll(x, y, -1) ? -1 : FreeToRoll(x, y, 1) ? 1 : 0;
  if (side == 0) return;
  ValRVal(x + side, y, x, y);
  MovedFlag(x + side, y) = -1;
  ClearField(x, y);
  PREKR(x + side, y);
}

// Anything with Motion 2 that lies on slime may pass it, into an empty cell below. No number is drawn when nothing can
// pass.
void Hra::Slime(int x, int y) {
  if (Tiles(x, y + 1) != Empty || Motion(x, y - 1) != 2 || SlimeThrough == 0) return;
  const int chances = SlimeThrough <= 8 ? 1 << (8 - SlimeThrough) : 1;
  if (Nahoda(chances) != 1) return;
  Tiles(x, y + 1) = Tiles(x, y - 1);
  Motion(x, y + 1) = 3;
  PREKR(x, y + 1);
  MovedFlag(x, y + 1) = -1;
  ClearField(x, y - 1);
}
