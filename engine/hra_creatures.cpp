// Fireflies, butterflies, flies, and what they leave when they go off.

#include <array>

#include "base/fault.h"
#include "engine/hra.h"

namespace {

struct Step {
  int dx;
  int dy;
};

// By facing 1..4. Fireflies and butterflies count left, up, right, down; flies count up, right, down, left.
constexpr std::array<Step, 5> kCrawl{{{0, 0}, {-1, 0}, {0, -1}, {1, 0}, {0, 1}}};
constexpr std::array<Step, 5> kFlight{{{0, 0}, {0, -1}, {1, 0}, {0, 1}, {-1, 0}}};

// The next facing clockwise and counter-clockwise, for a creature that crawls.
constexpr std::array<int, 5> kClockwise{0, 2, 3, 4, 1};
constexpr std::array<int, 5> kCounter{0, 4, 1, 2, 3};

constexpr int kMoved = 10;  // a facing times ten marks a creature that has had its turn in this tick

}  // namespace

void Hra::MoveCreature(int x, int y, int dx, int dy, int facing) {
  Aux(x + dx, y + dy) = static_cast<std::uint8_t>(kMoved * facing);
  Aux(x, y) = 0;
  Tiles(x + dx, y + dy) = Tiles(x, y);
  Tiles(x, y) = Vacated;
}

// A firefly keeps the wall on its left hand, a butterfly on its right: they try that side, then straight on, then turn
// away.
void Hra::Potvory(int x, int y) {
  const std::uint16_t tile = Tiles(x, y);
  if (tile == Fly) {
    MoveFly(x, y);
    return;
  }
  const std::size_t facing = Aux(x, y);
  if ((tile != Firefly && tile != Butterfly) || facing == 0 || facing > 4) return;
  const auto& side = tile == Firefly ? kCounter : kClockwise;
  const auto& away = tile == Firefly ? kClockwise : kCounter;
  for (const int way : {side[facing], static_cast<int>(facing)}) {
    const Step step = kCrawl[static_cast<std::size_t>(way)];
    if (Tiles(x + step.dx, y + step.dy) != Empty) continue;
    MoveCreature(x, y, step.dx, step.dy, way);
    return;
  }
  Aux(x, y) = static_cast<std::uint8_t>(kMoved * away[facing]);
}

void Hra::MoveFly(int x, int y) {
  if (Aux(x, y) >= kMoved) return;
  if (Aux(x, y) == 0) {
    const int drawn = Nahoda(4);
    if (drawn < 0) throw Fault("The replay draws a direction below 0.");
    Aux(x, y) = static_cast<std::uint8_t>(drawn);
  }
  const int facing = Aux(x, y);
  if (facing >= 1 && facing <= 4) {
    const Step step = kFlight[static_cast<std::size_t>(facing)];
    if (Tiles(x + step.dx, y + step.dy) == Empty) {
      MoveCreature(x, y, step.dx, step.dy, facing);
      return;
    }
  }
  Aux(x, y) = static_cast<std::uint8_t>(kMoved * MouchaS(x, y, facing));
}

/// The new direction of a fly that cannot go on: a random free one, never the way back unless it is the only one.
int Hra::MouchaS(int x, int y, int direction) {
  std::array<bool, 5> isFree{};
  int count = 0;
  int last = 1;
  for (int way = 1; way <= 4; ++way) {
    const Step step = kFlight[static_cast<std::size_t>(way)];
    if (Tiles(x + step.dx, y + step.dy) != Empty) continue;
    isFree[static_cast<std::size_t>(way)] = true;
    last = way;
    ++count;
  }
  if (count <= 1) return last;
  isFree[static_cast<std::size_t>((direction + 1) % 4 + 1)] = false;
  for (;;) {
    const int drawn = Nahoda(4);
    if (drawn >= 1 && drawn <= 4 && isFree[static_cast<std::size_t>(drawn)]) return drawn;
  }
}

// What is left of a blast depends on its centre alone; the last two arguments are part of the call and mean nothing.
void Hra::Exploze(int x, int y, int /*a*/, int /*b*/) {
  PZvuk(5);
  const std::uint16_t centre = Tiles(x, y);
  const int kind = centre == HeroTile ? 1 : centre == Fly ? 2 : centre == Butterfly ? 3 : 0;
  SetPicture(Explosion, picture::kExpld + 4 * kind);
  for (int r = y - 1; r <= y + 1; ++r) {
    for (int c = x - 1; c <= x + 1; ++c) {
      if (Tiles(c, r) == SteelWall) continue;
      if (Tiles(c, r) == GrowWallH && Tiles(c - 1, r) == SteelWall && Tiles(c + 1, r) == SteelWall) {
        PREKR(c - 1, r);  // the marks of the splitter go with it
        PREKR(c + 1, r);
      }
      Tiles(c, r) = Explosion;
      Aux(c, r) = static_cast<std::uint8_t>(4 * kind);
      Motion(c, r) = 0;
      PREKR(c, r);
      MovedFlag(c, r) = -1;
    }
  }
}
