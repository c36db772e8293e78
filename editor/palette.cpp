#include "editor/palette.h"

const std::array<PaletteTile, kPaletteSize> kPalette = {{
    {'.', "Prázdno"},
    {';', "Hlína"},
    {'R', "Kámen"},
    {'D', "Drahokam"},
    {'1', "Zorbík 1"},
    {'X', "Zeď"},
    {'!', "Červený drahokam"},
    {'@', "Zelený drahokam"},
    {'W', "Ocelová zeď"},
    {'T', "Cíl"},
    {'A', "Améba"},
    {'M', "Kouzelná zeď"},
    {'K', "Bedna"},
    {'#', "Modrý drahokam"},
    {'%', "Červený zámek"},
    {'S', "Bláto"},
    {'L', "Moucha"},
    {'F', "Světluška"},
    {'O', "Světluška"},
    {'P', "Světluška"},
    {'Q', "Světluška"},
    {'U', "Motýl"},
    {'Y', "Motýl"},
    {'Z', "Motýl"},
    {'B', "Motýl"},
    {'E', "Rostoucí zeď horizontální"},
    {'V', "Rostoucí zeď vertikální"},
    {'&', "Modrý zámek"},
    {'^', "Zelený zámek"},
}};

int HeroNumberOf(char c) {
  if (c == 'H') return 1;
  return c >= '0' && c <= '9' ? c - '0' : -1;
}

int PaletteIndexOf(char c) {
  if (HeroNumberOf(c) >= 0) return kPaletteHero;
  for (int i = 0; i < kPaletteSize; ++i) {
    if (kPalette[static_cast<std::size_t>(i)].tag == c) return i;
  }
  return -1;
}
