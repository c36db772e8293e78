#include "editor/cave_edit.h"

#include <algorithm>

#include "cave/cave_text.h"

namespace {

constexpr int kLoadWidth = 61;  // cells that are emptied before the first cave
constexpr int kLoadHeight = 31;
constexpr int kHighestMask = 4;
/// Seconds that a cave text can be written with. One that was not written by an editor can be read with ten more.
constexpr std::int16_t kLongestTime = 10 * kLargestSmallNumber + 9;

int Whole(double number) { return static_cast<int>(number); }  // of numbers from 0

}  // namespace

// --- Opening --------------------

void CaveEdit::FrmLoad() {
  for (int x = 0; x < kLoadWidth; ++x) {
    for (int y = 0; y < kLoadHeight; ++y) EdKomnata.Cell(x, y) = '.';
  }
}

void CaveEdit::Open(const std::string& caveText) {
  EdKomnata = ParseCaveText(caveText);
  EdKomnata.Time = std::min(EdKomnata.Time, kLongestTime);
  SetRozm();
  AmoebaCount = NuOfOb(Tag(kPaletteAmoeba));
}

std::string CaveEdit::Text() const { return BuildCaveText(EdKomnata); }

void CaveEdit::SetRozm() {
  EdKomnata.Width = static_cast<std::uint8_t>(std::clamp<int>(EdKomnata.Width, kMinWidth, kLargestWidth));
  EdKomnata.Height = static_cast<std::uint8_t>(std::clamp<int>(EdKomnata.Height, kMinHeight, kLargestHeight));
  for (int x = 0; x < EdKomnata.Width; ++x) {
    for (int y = 0; y < EdKomnata.Height; ++y) {
      if (EdKomnata.Cell(x, y) != '\0') continue;
      EdKomnata.Cell(x, y) = '.';
      Paint(x, y, kPaletteEmpty);
    }
  }
  Sirka = EdKomnata.Width;
  Vyska = EdKomnata.Height;
}

void CaveEdit::PaintAll() {
  const int chosen = AktualniPes;
  int palette = kPaletteEmpty;
  for (int x = 0; x < Sirka; ++x) {
    for (int y = 0; y < Vyska; ++y) {
      const char c = EdKomnata.Cell(x, y);
      if (const int known = PaletteIndexOf(c); known >= 0) palette = known;
      if (const int number = HeroNumberOf(c); number >= 0) Dog_Click(number);
      Paint(x, y, palette);
    }
  }
  Dog_Click(chosen);
}

// --- Drawing --------------------

void CaveEdit::Dog_Click(int number) {
  AktualniPes = number;
  if (hooks.heroChosen) hooks.heroChosen(number);
}

bool CaveEdit::Choose(int button, int palette) {
  if (button != 1 && button != 2 && button != 4) return false;
  int& chosen = VybranyObjekt.at(static_cast<std::size_t>(button));
  if (chosen == palette) return false;
  chosen = palette;
  return true;
}

char CaveEdit::Tag(int palette) const {
  if (palette == kPaletteHero) return static_cast<char>('0' + AktualniPes);
  return kPalette.at(static_cast<std::size_t>(palette)).tag;
}

// Left and right together use the entry that nobody writes, and so draw emptiness.
void CaveEdit::EditKom_MouseMove(int button, int x, int y) {
  if (button < 1 || button > kHighestMask) return;
  if (x < 0 || y < 0 || x > kCell * Sirka - 1 || y > kCell * Vyska - 1) return;
  Draw(x / kCell, y / kCell, VybranyObjekt[static_cast<std::size_t>(button)]);
}

void CaveEdit::Draw(int x, int y, int palette) {
  if (palette == kPaletteHero) RemoveHero(x, y);
  if (EdKomnata.Cell(x, y) != Tag(palette)) Put(x, y, palette);
}

void CaveEdit::Put(int x, int y, int palette) {
  char& cell = EdKomnata.Cell(x, y);
  if (cell == Tag(kPaletteAmoeba)) --AmoebaCount;
  cell = Tag(palette);
  Paint(x, y, palette);
  if (palette == kPaletteAmoeba) ++AmoebaCount;
}

/// A hero stands at one place only. Looked for in one column and one row more than the cave has.
void CaveEdit::RemoveHero(int keepX, int keepY) {
  for (int x = 0; x <= Sirka; ++x) {
    for (int y = 0; y <= Vyska; ++y) {
      if (EdKomnata.Cell(x, y) != Tag(kPaletteHero) || (x == keepX && y == keepY)) continue;
      EdKomnata.Cell(x, y) = '.';
      Paint(x, y, kPaletteEmpty);
    }
  }
}

void CaveEdit::Paint(int x, int y, int palette) const {
  if (hooks.PREKR) hooks.PREKR(x, y, palette);
}

// --- Operations --------------------

void CaveEdit::ReplaceO(int index) {
  int hits = 0;
  for (int y = 0; y < Vyska; ++y) {
    for (int x = 0; x < Sirka; ++x) {
      if (EdKomnata.Cell(x, y) != P()) continue;
      ++hits;
      if (hits % index == 0) ReplaceCell(x, y);
    }
  }
}

void CaveEdit::ReplaceCell(int x, int y) {
  Put(x, y, VybranyObjekt[1]);
  if (hooks.refresh) hooks.refresh();
}

// A miss does not count; the draw is repeated.
void CaveEdit::mnuReplRan_Click(int index) {
  const int found = NuOfOb(P());
  int left = std::min(index == 0 ? found / 2 : index, found);
  while (left > 0) {
    const int x = Whole(random() * Sirka);
    const int y = Whole(random() * Vyska);
    if (EdKomnata.Cell(x, y) != P()) continue;
    ReplaceCell(x, y);
    --left;
  }
}

void CaveEdit::mnuOkraj_Click() {
  const auto border = [this](int x, int y) {
    EdKomnata.Cell(x, y) = L();
    Paint(x, y, VybranyObjekt[1]);
  };
  for (int x = 0; x < Sirka; ++x) {
    border(x, 0);
    border(x, Vyska - 1);
  }
  for (int y = 0; y < Vyska; ++y) {
    border(0, y);
    border(Sirka - 1, y);
  }
}

// --- Counting --------------------

int CaveEdit::NuOfOb(char tag) const {
  int count = 0;
  for (int x = 0; x < Sirka; ++x) {
    for (int y = 0; y < Vyska; ++y) count += EdKomnata.Cell(x, y) == tag;
  }
  return count;
}

// What a larger size has left there counts, too.
template <class Predicate>
int CaveEdit::CountBeyond(Predicate holds) const {
  int count = 0;
  for (int x = 0; x <= Sirka; ++x) {
    for (int y = 0; y <= Vyska; ++y) count += holds(EdKomnata.Cell(x, y));
  }
  return count;
}

int CaveEdit::SpoctiDrh() const {
  return CountBeyond([](char c) { return c == 'D'; });
}

int CaveEdit::SpoctiPsy() const {
  return CountBeyond([](char c) { return c >= '1' && c <= '9'; });
}

CaveCounts CaveEdit::Counts() const {
  CaveCounts counts;
  std::array<bool, 10> hero{};
  for (int x = 0; x < Sirka; ++x) {
    for (int y = 0; y < Vyska; ++y) {
      const TileLoad& load = LoadOfCharacter(EdKomnata.Cell(x, y));
      if (!load.known) continue;
      counts.gems += load.tile == Gem;
      counts.exits += load.tile == Exit;
      hero.at(load.hero) = true;
      counts.gemsGrow = counts.gemsGrow || load.tile == Butterfly || load.tile == Amoeba ||
                        (load.tile == MagicWall && load.motion == 0);
    }
  }
  counts.heroes = static_cast<int>(std::count(hero.begin() + 1, hero.end(), true));
  return counts;
}
