#pragma once

#include <array>
#include <string_view>

/// The tiles that an author draws with. An index into the palette is what the mouse buttons, menus and texts of the
/// cave editor speak of.
struct PaletteTile {
  char tag;               // what is written into a cell; the hero's depends on the number chosen
  std::string_view name;  // UTF-8, until a language gives another one
};

inline constexpr int kPaletteSize = 29;
inline constexpr int kPaletteEmpty = 0;
inline constexpr int kPaletteDirt = 1;
inline constexpr int kPaletteGem = 3;
inline constexpr int kPaletteHero = 4;
inline constexpr int kPaletteAmoeba = 10;

/// By palette index.
extern const std::array<PaletteTile, kPaletteSize> kPalette;

/// The two rows in which the tiles stand, from left to right. The hero stands by itself.
inline constexpr std::array<std::array<int, 14>, 2> kPaletteRows = {{
    {0, 1, 3, 2, 5, 17, 18, 19, 20, 21, 22, 23, 24, 16},
    {8, 9, 12, 11, 26, 25, 6, 7, 13, 14, 28, 27, 10, 15},
}};

/// The tile that shows a character of cave text, -1 for a character that no tile shows. "H" and all digits, "0" too,
/// are the hero.
int PaletteIndexOf(char c);

/// The number of the hero that a character stands for: its digit, 1 for "H"; -1 for any other character.
int HeroNumberOf(char c);
