#include "cave/tiles.h"

#include <array>
#include <string_view>

namespace {

using Table = std::array<TileLoad, 256>;

Table MakeTable() {
  Table table{};
  const auto put = [&table](char c, std::uint16_t tile, std::uint8_t motion, std::uint8_t aux = 0) {
    table[static_cast<unsigned char>(c)] = TileLoad{true, tile, motion, aux, 0};
  };
  put('.', Empty, 0);
  put(';', Dirt, 0);
  put('R', Rock, 2);
  put('D', Gem, 2);
  put('X', Wall, 1);
  put('M', MagicWall, 0);
  const std::string_view fireflies = "FOPQ";
  const std::string_view butterflies = "UYZB";
  for (std::uint8_t facing = 1; facing <= 4; ++facing) {
    put(fireflies[facing - 1], Firefly, 0, facing);
    put(butterflies[facing - 1], Butterfly, 0, facing);
  }
  put('W', SteelWall, 0);
  put('T', Exit, 0);
  put('A', Amoeba, 0);
  put('K', Crate, 1);
  put('E', GrowWallH, 0);
  put('V', GrowWallV, 0);
  put('S', SlimeTile, 0);
  put('L', Fly, 0);
  put('!', RedGem, 2);
  put('@', GreenGem, 2);
  put('#', BlueGem, 2);
  put('%', RedLock, 1);
  put('^', GreenLock, 1);
  put('&', BlueLock, 1);
  for (std::uint8_t k = 1; k <= 9; ++k) {
    table[static_cast<unsigned char>('0' + k)] = TileLoad{true, HeroTile, 0, 0, k};
  }
  table['H'] = TileLoad{true, HeroTile, 0, 0, 1};
  return table;
}

}  // namespace

const TileLoad& LoadOfCharacter(char c) {
  static const Table table = MakeTable();
  return table[static_cast<unsigned char>(c)];
}

char CharacterOfCell(std::uint16_t tile, std::uint8_t motion, std::uint8_t aux) {
  switch (tile) {
    case Wall:
      return motion == 0 ? 'M' : 'X';
    case Firefly:
    case Butterfly: {
      const unsigned facing = (aux >= 5 ? aux / 10 : aux) & 7u;  // a creature that has moved holds ten times its facing
      const std::string_view faces = tile == Firefly ? "FFOPQ" : "UUYZB";
      return facing < faces.size() ? faces[facing] : '?';
    }
    case Explosion:
      return '*';
    case Vacated:
      return ',';
    default: {
      constexpr std::string_view plain = ".;RDHXFUWTAKEVSL*!@#%^&";
      return tile < plain.size() ? plain[tile] : '?';
    }
  }
}
