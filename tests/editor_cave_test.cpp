// The edit of a cave, without a window: opening, drawing, operations, counting.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "cave/cave_text.h"
#include "editor/cave_edit.h"

using ::testing::ElementsAre;

namespace {

constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kBoth = 3;
constexpr int kMiddle = 4;

/// A cave of one character.
CaveRecord Filled(int width, int height, char c = '.') {
  CaveRecord record;
  record.Name = "Doupe";
  record.Width = static_cast<std::uint8_t>(width);
  record.Height = static_cast<std::uint8_t>(height);
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y < height; ++y) record.Cell(x, y) = c;
  }
  return record;
}

/// A cave under edit that keeps what it was asked to paint.
struct Canvas {
  explicit Canvas(const CaveRecord& record) {
    edit.hooks.PREKR = [this](int x, int y, int palette) {
      painted.emplace_back(x, y);
      shown[{x, y}] = palette;
      heroShown[{x, y}] = hero;
    };
    edit.hooks.heroChosen = [this](int number) { hero = number; };
    edit.hooks.refresh = [this] { ++refreshed; };
    edit.Open(BuildCaveText(record));
    edit.PaintAll();
    edit.Dog_Click(1);
    painted.clear();
  }

  /// The buttons' tiles: left and right.
  void Pick(int left, int right) {
    edit.Choose(kLeft, left);
    edit.Choose(kRight, right);
  }
  void Press(int button, int x, int y) { edit.EditKom_MouseMove(button, x * CaveEdit::kCell, y * CaveEdit::kCell); }
  char At(int x, int y) const { return edit.EdKomnata.Cell(x, y); }

  int hero = -1;
  int refreshed = 0;
  std::vector<std::pair<int, int>> painted;
  std::map<std::pair<int, int>, int> shown;
  std::map<std::pair<int, int>, int> heroShown;
  CaveEdit edit;
};

void Fill(CaveRecord& record, int x, int y, std::string_view row) {
  for (const char c : row) record.Cell(x++, y) = c;
}

TEST(Palette, EveryTileStandsInItsPlaceAndShowsItsCharacter) {
  std::array<int, kPaletteSize> seen{};
  for (const auto& row : kPaletteRows) {
    for (const int i : row) ++seen[static_cast<std::size_t>(i)];
  }
  ++seen[kPaletteHero];
  EXPECT_THAT(seen, ::testing::Each(1));
  // Every character of a cave but the other heroes has a tile of its own, and each tile writes one.
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const int index = PaletteIndexOf(c);
    EXPECT_EQ(index >= 0, LoadOfCharacter(c).known || c == '0') << code;
    if (index >= 0 && index != kPaletteHero) {
      EXPECT_EQ(kPalette[static_cast<std::size_t>(index)].tag, c);
    }
  }
}

TEST(CaveEdit, OpeningMapsCharactersToPicturesColumnByColumn) {
  CaveRecord record = Filled(19, 11, ';');
  Fill(record, 0, 0, "RA7H0");
  record.Cell(0, 1) = '?';   // like the rock above
  record.Cell(1, 10) = '?';  // like the dirt above
  record.Cell(2, 1) = ' ';   // like the hero above
  Canvas canvas(record);
  EXPECT_EQ(canvas.shown.at({0, 0}), 2);
  EXPECT_EQ(canvas.shown.at({1, 0}), kPaletteAmoeba);
  EXPECT_EQ(canvas.shown.at({0, 1}), 2);
  EXPECT_EQ(canvas.shown.at({1, 10}), kPaletteDirt);
  EXPECT_EQ(canvas.shown.at({2, 1}), kPaletteHero);
  EXPECT_EQ(canvas.heroShown.at({2, 0}), 7);
  EXPECT_EQ(canvas.heroShown.at({3, 0}), 1);
  EXPECT_EQ(canvas.heroShown.at({4, 0}), 0);
  EXPECT_EQ(canvas.edit.AmoebaCount, 1);
  EXPECT_EQ(canvas.edit.Text(), BuildCaveText(record)) << "an unknown character and \"H\" stay";

  record.Cell(0, 0) = '?';
  EXPECT_EQ(Canvas(record).shown.at({0, 0}), kPaletteEmpty) << "nothing was painted before";
}

TEST(CaveEdit, SizesAreBroughtWithinTheirLimitsAndNothingIsCleared) {
  EXPECT_EQ(Canvas(CaveRecord{}).edit.Text(), BuildCaveText([] {
              CaveRecord record = Filled(19, 11);
              record.Name.clear();
              return record;
            }()));
  Canvas large(Filled(81, 51, 'D'));
  EXPECT_EQ(large.edit.Sirka, 80);
  EXPECT_EQ(large.edit.Vyska, 50);
  EXPECT_EQ(large.edit.SpoctiDrh(), 81 * 51) << "one column and one row more are counted";
  EXPECT_EQ(large.edit.NuOfOb('D'), 80 * 50);

  Canvas canvas(Filled(30, 20, 'D'));
  canvas.edit.EdKomnata.Width = 20;
  canvas.edit.EdKomnata.Height = 12;
  canvas.edit.SetRozm();
  EXPECT_EQ(canvas.edit.NuOfOb('D'), 20 * 12);
  EXPECT_EQ(canvas.edit.SpoctiDrh(), 21 * 13);
  canvas.edit.EdKomnata.Width = 40;
  canvas.edit.EdKomnata.Height = 20;
  canvas.edit.SetRozm();
  EXPECT_EQ(canvas.edit.NuOfOb('D'), 30 * 20) << "the old cells are back";
  EXPECT_EQ(canvas.At(30, 0), '.');
  EXPECT_EQ(canvas.painted.size(), 10u * 20u) << "only cells never written are painted";
}

TEST(CaveEdit, ButtonsDrawTheirTiles) {
  Canvas canvas(Filled(19, 11));
  canvas.Pick(kPaletteGem, kPaletteAmoeba);
  canvas.edit.Choose(kMiddle, kPaletteDirt);
  EXPECT_FALSE(canvas.edit.Choose(kMiddle, kPaletteDirt));
  for (const int none : {0, kBoth, 8}) EXPECT_FALSE(canvas.edit.Choose(none, kPaletteGem));
  canvas.Press(kLeft, 1, 1);
  canvas.Press(kRight, 2, 1);
  canvas.Press(kMiddle, 3, 1);
  EXPECT_EQ(canvas.At(1, 1), 'D');
  EXPECT_EQ(canvas.At(2, 1), 'A');
  EXPECT_EQ(canvas.At(3, 1), ';');
  EXPECT_EQ(canvas.edit.AmoebaCount, 1);
  EXPECT_THAT(canvas.painted, ElementsAre(std::pair(1, 1), std::pair(2, 1), std::pair(3, 1)));
  canvas.Press(kRight, 2, 1);
  EXPECT_EQ(canvas.edit.AmoebaCount, 1) << "amoeba over amoeba";
  EXPECT_EQ(canvas.painted.size(), 3u);
  canvas.Press(kBoth, 2, 1);
  EXPECT_EQ(canvas.At(2, 1), '.') << "left and right together draw emptiness";
  EXPECT_EQ(canvas.edit.AmoebaCount, 0);
  for (const int mask : {0, 5, 6, 7}) canvas.Press(mask, 5, 5);
  EXPECT_EQ(canvas.At(5, 5), '.');
}

TEST(CaveEdit, NothingIsDrawnOutsideTheCanvas) {
  Canvas canvas(Filled(19, 11));
  canvas.Pick(kPaletteGem, kPaletteEmpty);
  constexpr int kRightEdge = 19 * CaveEdit::kCell;
  constexpr int kBottom = 11 * CaveEdit::kCell;
  for (const auto& [x, y] : {std::pair(-1, 5), {5, -1}, {kRightEdge, 5}, {5, kBottom}, {-3000, 90000}}) {
    canvas.edit.EditKom_MouseMove(kLeft, x, y);
  }
  EXPECT_EQ(canvas.edit.SpoctiDrh(), 0);
  canvas.edit.EditKom_MouseMove(kLeft, kRightEdge - 1, kBottom - 1);
  EXPECT_EQ(canvas.At(18, 10), 'D');
}

TEST(CaveEdit, AHeroStandsAtOnePlaceAndIsLookedForBeyondTheCave) {
  Canvas canvas(Filled(21, 13));
  canvas.Pick(kPaletteHero, kPaletteEmpty);
  canvas.edit.Dog_Click(3);
  canvas.Press(kLeft, 1, 1);
  canvas.edit.Dog_Click(4);
  canvas.Press(kLeft, 19, 12);
  canvas.edit.Dog_Click(3);
  for (int x = 2; x <= 5; ++x) canvas.Press(kLeft, x, 1);  // a drag moves it
  EXPECT_EQ(canvas.edit.NuOfOb('3'), 1);
  EXPECT_EQ(canvas.At(5, 1), '3');
  EXPECT_EQ(canvas.At(19, 12), '4') << "another hero";
  canvas.edit.EdKomnata.Cell(7, 7) = 'H';
  canvas.edit.Dog_Click(1);
  canvas.Press(kLeft, 8, 8);
  EXPECT_EQ(canvas.At(7, 7), 'H') << "no digit";

  canvas.edit.EdKomnata.Width = 19;
  canvas.edit.EdKomnata.Height = 12;
  canvas.edit.SetRozm();
  EXPECT_EQ(canvas.edit.SpoctiPsy(), 3) << "the fourth one lies in the column and row beyond";
  canvas.edit.Dog_Click(4);
  canvas.Press(kLeft, 2, 2);
  EXPECT_EQ(canvas.At(19, 12), '.');
}

TEST(CaveEdit, ReplacesEveryOneAndEverySecondInReadingOrder) {
  CaveRecord record = Filled(19, 11);
  Fill(record, 15, 1, "RRR");
  Fill(record, 2, 2, "R.R");
  Canvas canvas(record);
  canvas.Pick(kPaletteAmoeba, 2);
  canvas.edit.ReplaceO(2);
  EXPECT_EQ(std::string({canvas.At(15, 1), canvas.At(16, 1), canvas.At(17, 1)}), "RAR");
  EXPECT_EQ(std::string({canvas.At(2, 2), canvas.At(4, 2)}), "AR") << "the count runs on across row ends";
  EXPECT_EQ(canvas.edit.AmoebaCount, 2);
  EXPECT_EQ(canvas.refreshed, 2);
  canvas.edit.ReplaceO(1);
  EXPECT_EQ(canvas.edit.NuOfOb('A'), 5);
  canvas.edit.ReplaceO(1);
  EXPECT_EQ(canvas.refreshed, 5) << "no cell is left to change";
  canvas.Pick(kPaletteAmoeba, kPaletteAmoeba);
  canvas.edit.ReplaceO(1);
  EXPECT_EQ(canvas.edit.AmoebaCount, 5) << "up and down by the same";
  canvas.Pick(2, kPaletteAmoeba);
  canvas.edit.ReplaceO(1);
  EXPECT_EQ(canvas.edit.AmoebaCount, 0);

  canvas.edit.EdKomnata.Cell(9, 9) = '1';
  canvas.edit.EdKomnata.Cell(9, 8) = 'H';
  canvas.Pick(kPaletteGem, kPaletteHero);
  canvas.edit.ReplaceO(1);
  EXPECT_EQ(canvas.At(9, 9), 'D') << "a hero can be replaced";
  EXPECT_EQ(canvas.At(9, 8), 'H') << "which no tile writes is never found";
}

TEST(CaveEdit, ReplacesAtRandomExactlyAsManyAsWanted) {
  CaveRecord record = Filled(19, 11);
  Fill(record, 3, 4, "XXX");
  Canvas canvas(record);
  canvas.Pick(kPaletteGem, 5);
  // Column and row are drawn in this order; the first two draws miss.
  std::vector<double> draws = {0.0, 0.0, 4.0 / 11, 3.0 / 19, 4.5 / 19, 4.99 / 11};
  std::size_t drawn = 0;
  canvas.edit.random = [&] { return draws.at(drawn++); };
  canvas.edit.mnuReplRan_Click(1);
  EXPECT_EQ(drawn, draws.size());
  EXPECT_EQ(canvas.At(4, 4), 'D');
  EXPECT_EQ(canvas.refreshed, 1);

  canvas.edit.random = Rnd;
  canvas.edit.mnuReplRan_Click(0);
  EXPECT_EQ(canvas.edit.NuOfOb('X'), 1) << "half of two";
  canvas.edit.mnuReplRan_Click(0);
  EXPECT_EQ(canvas.edit.NuOfOb('X'), 1) << "half of one is none";
  canvas.edit.mnuReplRan_Click(10);
  EXPECT_EQ(canvas.edit.NuOfOb('X'), 0) << "no more than there are";
  canvas.edit.mnuReplRan_Click(5);
  EXPECT_EQ(canvas.refreshed, 3) << "none was left";
  canvas.Pick(kPaletteGem, kPaletteGem);
  canvas.edit.mnuReplRan_Click(5);
  EXPECT_EQ(canvas.edit.NuOfOb('D'), 3) << "ends though every hit leaves the cell as it was";
}

TEST(CaveEdit, BorderCoversEverythingAndLeavesTheAmoebaCounterAlone) {
  CaveRecord record = Filled(20, 12);
  record.Cell(0, 5) = '1';
  record.Cell(7, 11) = 'A';
  Canvas canvas(record);
  canvas.Pick(kPaletteAmoeba, kPaletteEmpty);
  canvas.edit.mnuOkraj_Click();
  EXPECT_EQ(canvas.edit.NuOfOb('A'), 2 * 20 + 2 * 10);
  EXPECT_EQ(canvas.At(0, 5), 'A');
  EXPECT_EQ(canvas.edit.AmoebaCount, 1);
  EXPECT_EQ(canvas.painted.size(), 2u * 20u + 2u * 12u) << "corners twice";
  EXPECT_THAT(std::vector(canvas.painted.begin(), canvas.painted.begin() + 3),
              ElementsAre(std::pair(0, 0), std::pair(0, 11), std::pair(1, 0)));
  canvas.edit.Open(canvas.edit.Text());
  EXPECT_EQ(canvas.edit.AmoebaCount, 60) << "opened again it is right";
}

TEST(CaveEdit, CountsTellWhatACaveHas) {
  CaveRecord record = Filled(19, 11);
  Fill(record, 1, 1, "DD!T1155H");
  Canvas canvas(record);
  EXPECT_EQ(canvas.edit.Counts(), (CaveCounts{2, 2, 1, false})) << "coloured gems and equal heroes do not count";
  for (const char source : {'U', 'B', 'A', 'M'}) {
    canvas.edit.EdKomnata.Cell(5, 5) = source;
    EXPECT_TRUE(canvas.edit.Counts().gemsGrow) << source;
  }
  canvas.edit.EdKomnata.Cell(5, 5) = 'X';
  EXPECT_FALSE(canvas.edit.Counts().gemsGrow) << "a plain wall makes no gems";
}

TEST(CaveEdit, WhatCannotBeOpenedOrWrittenIsAFaultAndChangesNothing) {
  Canvas canvas(Filled(19, 11, 'D'));
  const std::string before = canvas.edit.Text();
  EXPECT_THROW(canvas.edit.Open("A"), Fault);
  EXPECT_EQ(canvas.edit.Text(), before);
  canvas.edit.EdKomnata.Description = std::string(191, 'x');
  EXPECT_THROW(canvas.edit.Text(), Fault);
}

}  // namespace
