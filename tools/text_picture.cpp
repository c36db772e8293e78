#include "tools/text_picture.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

/// How a kind of cell looks.
struct Look {
  const char* sign;  // two characters wide; creatures have one and get an arrow behind it, heroes their number
  const char* name;
  int colour;  // of the 256 colours of a terminal
};

// Kinds of cells: the tile codes, and what shares a code with another kind or has none.
enum Kind : std::size_t {
  kMagicWallKind = kTileCodes,
  kOpenExitKind,
  kTeleportEntranceKind,
  kTeleportExitKind,
  kKinds
};

constexpr std::array<Look, kKinds> kLooks{{
    {"  ", "", 0},                           // Empty
    {"░░", "dirt", 94},                      // Dirt
    {"()", "rock", 252},                     // Rock
    {"<>", "gem", 51},                       // Gem
    {"@", "hero", 226},                      // HeroTile
    {"▓▓", "wall", 131},                     // Wall
    {"¤", "firefly", 208},                   // Firefly
    {"Ж", "butterfly", 213},                 // Butterfly
    {"██", "steel", 240},                    // SteelWall
    {"[]", "exit, closed", 245},             // Exit
    {"≈≈", "amoeba", 46},                    // Amoeba
    {"╳╳", "crate", 179},                    // Crate
    {"══", "wall that grows sideways", 67},  // GrowWallH
    {"║║", "wall that grows up and down", 67},
    {"~~", "slime", 106},       // SlimeTile
    {"¥", "fly", 220},          // Fly
    {"**", "explosion", 202},   // Explosion
    {"R◆", "red gem", 196},     // RedGem
    {"G◆", "green gem", 40},    // GreenGem
    {"B◆", "blue gem", 33},     // BlueGem
    {"R■", "red lock", 160},    // RedLock
    {"G■", "green lock", 34},   // GreenLock
    {"B■", "blue lock", 27},    // BlueLock
    {"▚▚", "magic wall", 135},  // MagicWall
    {"[]", "exit, open", 118},  //
    {"\\/", "teleport, way in", 87},
    {"/\\", "teleport, way out", 87},
}};

std::size_t KindOf(const Hra& game, int x, int y) {
  const std::uint16_t tile = game.Tiles(x, y);
  const auto isAt = [x, y](int placeX, int placeY) { return placeX == x && placeY == y; };

  if (tile == MagicWall && game.Motion(x, y) == 0) return kMagicWallKind;
  if (tile == Exit && game.ExitOpen) return kOpenExitKind;
  if (tile == Empty && game.TeleportActive && isAt(game.TeleportSourceX, game.TeleportSourceY))
    return kTeleportEntranceKind;
  if (tile == Empty && game.TeleportActive && isAt(game.TeleportTargetX, game.TeleportTargetY))
    return kTeleportExitKind;
  return tile < kTileCodes ? std::size_t{tile} : std::size_t{Empty};
}

/// The sign of a cell, two characters wide.
std::string SignOf(const Hra& game, std::size_t kind, int x, int y) {
  static constexpr std::array<const char*, 5> kCrawl{" ", "←", "↑", "→", "↓"};
  static constexpr std::array<const char*, 5> kFlight{" ", "↑", "→", "↓", "←"};
  std::string sign = kLooks[kind].sign;
  if (kind == HeroTile) {
    for (std::size_t i = 1; i < game.Heroes.size(); ++i) {
      const HeroRecord& hero = game.Heroes[i];
      if (hero.alive != 0 && hero.x == x && hero.y == y) return sign + std::to_string(i);
    }
    return sign + " ";
  }
  if (kind == Firefly || kind == Butterfly || kind == Fly) {
    const std::size_t facing = game.Aux(x, y) <= 4 ? game.Aux(x, y) : 0u;
    return sign + (kind == Fly ? kFlight : kCrawl)[facing];
  }
  return sign;
}

/// Where a window of `shown` cells begins that has a place in its middle, as far as the cave's `size` cells allow.
int FirstShown(int place, int size, int shown) { return std::max(0, std::min(place - shown / 2, size - shown)); }

std::string Coloured(const std::string& sign, int colour) {
  return "\x1b[38;5;" + std::to_string(colour) + "m" + sign + "\x1b[0m";
}

}  // namespace

std::string TextPicture(const Hra& game, bool coloured, int columns, int rows) {
  const HeroRecord& hero = game.Heroes[static_cast<std::size_t>(game.CurrentHero)];
  const int left = FirstShown(hero.x, game.CaveWidth, columns);
  const int top = FirstShown(hero.y, game.CaveHeight, rows);
  std::string text;
  for (int y = top; y < std::min(top + rows, game.CaveHeight); ++y) {
    std::string line;
    for (int x = left; x < std::min(left + columns, game.CaveWidth); ++x) {
      const std::size_t kind = KindOf(game, x, y);
      const std::string sign = SignOf(game, kind, x, y);
      line += coloured && kind != Empty ? Coloured(sign, kLooks[kind].colour) : sign;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
  return text;
}

std::string TextLegend(const Hra& game, bool coloured) {
  constexpr std::size_t kMostColumns = 78;
  std::array<bool, kKinds> isShown{};
  for (int y = 0; y < game.CaveHeight; ++y) {
    for (int x = 0; x < game.CaveWidth; ++x) isShown[KindOf(game, x, y)] = true;
  }
  std::string text;
  std::size_t columns = 0;
  for (std::size_t kind = 1; kind < kKinds; ++kind) {
    if (!isShown[kind]) continue;
    const Look& look = kLooks[kind];
    const std::string name = look.name;
    const std::size_t width = 3 + name.size() + 3;
    if (columns + width > kMostColumns) {
      text += '\n';
      columns = 0;
    }
    std::string sign = look.sign;
    if (kind == HeroTile || kind == Firefly || kind == Butterfly || kind == Fly) sign += ' ';
    text += (coloured ? Coloured(sign, look.colour) : sign) + ' ' + name + "   ";
    columns += width;
  }
  return text + '\n';
}
