#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/lang_str.h"
#include "cave/cave_text.h"
#include "cave/names.h"
#include "cave/scramble.h"
#include "cave/tiles.h"
#include "kit/fault_check.h"
#include "kit/temp_folder.h"

namespace {

using namespace std::string_literals;

struct TileRow {
  const char* characters;  // the first has Aux firstAux, the next one more
  int tile, motion, firstAux;
};

constexpr TileRow kTileRows[] = {
    {".", 0, 0, 0},    {";", 1, 0, 0},    {"R", 2, 2, 0},  {"D", 3, 2, 0},  {"X", 5, 1, 0},  {"M", 5, 0, 0},
    {"FOPQ", 6, 0, 1}, {"UYZB", 7, 0, 1}, {"W", 8, 0, 0},  {"T", 9, 0, 0},  {"A", 10, 0, 0}, {"K", 11, 1, 0},
    {"E", 12, 0, 0},   {"V", 13, 0, 0},   {"S", 14, 0, 0}, {"L", 15, 0, 0}, {"!", 17, 2, 0}, {"@", 18, 2, 0},
    {"#", 19, 2, 0},   {"%", 20, 1, 0},   {"^", 21, 1, 0}, {"&", 22, 1, 0},
};

TEST(Tiles, EveryCharacterLoadsItsTile) {
  std::set<char> known;
  for (const TileRow& row : kTileRows) {
    for (int i = 0; row.characters[i] != 0; ++i) {
      const char c = row.characters[i];
      const TileLoad& load = LoadOfCharacter(c);
      EXPECT_TRUE(load.known && load.tile == row.tile && load.motion == row.motion && load.hero == 0) << c;
      EXPECT_EQ(load.aux, row.firstAux == 0 ? 0 : row.firstAux + i) << c;
      EXPECT_EQ(CharacterOfCell(load.tile, load.motion, load.aux), c);
      known.insert(c);
    }
  }
  for (char c = '1'; c <= '9'; ++c) {
    EXPECT_EQ(LoadOfCharacter(c).tile, HeroTile);
    EXPECT_EQ(LoadOfCharacter(c).hero, c - '0');
    known.insert(c);
  }
  EXPECT_EQ(LoadOfCharacter('H').hero, 1);
  known.insert('H');
  for (int i = 0; i < 256; ++i) {
    const char c = static_cast<char>(i);
    EXPECT_EQ(LoadOfCharacter(c).known, known.contains(c)) << i;
  }
}

TEST(Tiles, RunningCellsAreShownToo) {
  EXPECT_EQ(CharacterOfCell(Firefly, 0, 30), 'P') << "a creature that has moved";
  EXPECT_EQ(CharacterOfCell(HeroTile, 0, 0), 'H');
  EXPECT_EQ(CharacterOfCell(Explosion, 0, 5), '*');
  EXPECT_EQ(CharacterOfCell(Vacated, 0, 0), ',');
  EXPECT_EQ(CharacterOfCell(23, 0, 0), '?');
}

std::string Number(int n) { return std::string(1, static_cast<char>(n + 65)); }

/// Everything in front of the cells of a cave of 3 by 1 cells.
std::string SmallHeader(const std::string& name) {
  return Number(4) + Number(static_cast<int>(name.size())) + name + "A" + Number(3) + Number(1) + "PAA" + "FUUsC";
}

TEST(CaveText, EveryFieldInItsPlace) {
  const CaveRecord cave = ParseCaveText("FC;#DBW DCP`BGHIJKWWW.1x---07");
  EXPECT_EQ(cave.SlimeThrough, 5);
  EXPECT_EQ(cave.Name, ";#");
  EXPECT_EQ(cave.Description, "BW ");
  EXPECT_EQ(cave.Width, 3);
  EXPECT_EQ(cave.Height, 2);
  EXPECT_EQ(cave.Time, 153) << "15 tens, and the tens of the shared character";
  EXPECT_EQ(cave.Need, 11);
  EXPECT_EQ(cave.PointsBefore, 6);
  EXPECT_EQ(cave.PointsAfter, 7);
  EXPECT_EQ(cave.MagicTime, 8);
  EXPECT_EQ(cave.AmoebaTime, 9);
  EXPECT_EQ(cave.Tint, 10);
  EXPECT_EQ(cave.Cell(2, 0), 'W');
  EXPECT_EQ(cave.Cell(0, 1), '.');
  EXPECT_EQ(cave.Cell(1, 1), '1');
  EXPECT_EQ(cave.Cell(2, 1), 'x');
  EXPECT_EQ(cave.Cell(3, 0), 0) << "the tail is no cell";
  EXPECT_EQ(BuildCaveText(cave), "FC;#DBW DCP`BGHIJKWWW.1x");
}

TEST(CaveText, TimeAndNeedShareThreeCharacters) {
  CaveRecord cave;
  const auto shared = [&cave](int time, int need) {
    cave.Time = static_cast<std::int16_t>(time);
    cave.Need = static_cast<std::int16_t>(need);
    const std::string text = BuildCaveText(cave);
    EXPECT_EQ(ParseCaveText(text).Time, time);
    EXPECT_EQ(ParseCaveText(text).Need, need);
    return text.substr(5, 3);
  };
  EXPECT_EQ(shared(150, 0), "PAA");
  EXPECT_EQ(shared(999, 999), Number(99) + Number(99) + Number(99));
  EXPECT_EQ(shared(7, 85), "A" + Number(75) + "I");
}

TEST(CaveText, MissingCellsAreBlankAndAnEmptyTextIsAnEmptyCave) {
  const CaveRecord cave = ParseCaveText(SmallHeader("") + "R");
  EXPECT_EQ(cave.Cell(0, 0), 'R');
  EXPECT_EQ(cave.Cell(1, 0), ' ');
  EXPECT_EQ(cave.Cell(2, 0), ' ');
  EXPECT_EQ(ParseCaveText("").Width, 0);
}

TEST(CaveText, CellsNeverWrittenBecomeEmptyOnes) {
  CaveRecord cave;
  cave.Width = 2;
  cave.Height = 1;
  EXPECT_TRUE(BuildCaveText(cave).ends_with(".."));
  const std::string zero = BuildCaveText(cave).replace(BuildCaveText(cave).size() - 2, 1, 1, '\0');
  EXPECT_EQ(BuildCaveText(ParseCaveText(zero)), zero) << "a byte of a text is kept";
}

TEST(CaveText, EveryHeaderCutShortIsAFault) {
  const std::string header = SmallHeader("ab");
  EXPECT_NO_THROW(ParseCaveText(header));
  for (std::size_t length = 1; length < header.size(); ++length) {
    EXPECT_THROW(ParseCaveText(header.substr(0, length)), Fault) << length;
  }
}

TEST(CaveText, NumbersBelowAAndGiantCavesAreFaults) {
  const std::string header = SmallHeader("");
  for (std::size_t place = 0; place < header.size(); ++place) {
    std::string damaged = header;
    damaged[place] = '@';
    ExpectFault([&] { ParseCaveText(damaged); }, "", "below \"A\"");
  }
  ExpectFault([] { ParseCaveText("AAA" + Number(82) + Number(51) + "AAAAAAAA"); }, "", "82 by 51");
  ExpectFault([] { ParseCaveText("AAA" + Number(81) + Number(52) + "AAAAAAAA"); }, "", "81 by 52");
  EXPECT_EQ(ParseCaveText("AAA" + Number(81) + Number(51) + "AAAAAAAA").Cell(80, 50), ' ');
}

TEST(CaveText, WhatDoesNotFitItsCharacterIsAFault) {
  CaveRecord cave;
  cave.Name = std::string(190, 'n');
  EXPECT_EQ(ParseCaveText(BuildCaveText(cave)).Name, cave.Name);
  cave.Name += 'n';
  ExpectFault([&] { BuildCaveText(cave); }, "", "The name has 191 characters; 190 are possible.");
  cave = CaveRecord();
  cave.Description = std::string(280, 'd');
  ExpectFault([&] { BuildCaveText(cave); }, "", "The description has 280 characters; 190 are possible.");
  cave = CaveRecord();
  cave.Tint = 191;
  ExpectFault([&] { BuildCaveText(cave); }, "", "colour");
  cave = CaveRecord();
  cave.Need = -5;
  ExpectFault([&] { BuildCaveText(cave); }, "", "below 0");
  cave = CaveRecord();
  cave.Width = 82;
  cave.Height = 1;
  ExpectFault([&] { BuildCaveText(cave); }, "", "81 by 51");
}

class Templates : public testing::Test {
 protected:
  void SetUp() override {
    LangStr[text::kSmallCave] = "Mala";
    LangStr[text::kBigCave] = "Velka";
    LangStr[text::kNewDescription] = "Popis";
  }
  void TearDown() override { LangStr.fill(""); }
};

TEST_F(Templates, SmallAndBig) {
  std::string small = "EEMalaFPopisTLPAAFUUsC" + std::string(19, 'W') + "W;;;;;;;;;;;;;;;;;W" + "W;1;;;;;;;;;;;;;;;W";
  for (int i = 0; i < 6; ++i) small += "W;;;;;;;;;;;;;;;;;W";
  small += "W;;;;;;;;;;;;;;;;;T" + std::string(19, 'W');
  EXPECT_EQ(LoadCaveText("*1", 0), small);

  const CaveRecord big = ParseCaveText(LoadCaveText("*2", 5));
  EXPECT_EQ(big.Name, "Velka");
  EXPECT_EQ(big.Description, "Popis");
  EXPECT_EQ(big.Width, 30);
  EXPECT_EQ(big.Height, 20);
  EXPECT_EQ(big.Time, 150);
  EXPECT_EQ(big.PointsBefore + big.PointsAfter + big.Need, 0) << "the big cave pays nothing until its author says so";
  EXPECT_EQ(big.MagicTime, 20);
  EXPECT_EQ(big.AmoebaTime, 50);
  EXPECT_EQ(big.Tint, 2);
  EXPECT_EQ(big.SlimeThrough, 4);
  EXPECT_EQ(big.Cell(2, 2), '1');
  EXPECT_EQ(big.Cell(29, 18), 'T');
  EXPECT_EQ(LoadCaveText("*2", 5).size(), 1u + 6 + 6 + 10 + 600);
}

TEST_F(Templates, TextsTooLongForACaveAreCut) {
  LangStr[text::kSmallCave] = std::string(191, 'n');
  LangStr[text::kNewDescription] = std::string(300, 'd');
  const CaveRecord small = ParseCaveText(LoadCaveText("*1", 0));
  EXPECT_EQ(small.Name, std::string(190, 'n'));
  EXPECT_EQ(small.Description, std::string(190, 'd'));
  EXPECT_EQ(small.Width, 19);
}

TEST(LoadCaveText, FindsACaveByTheLastFiveCharacters) {
  const TempFolder folder;
  const std::string longName = SmallHeader("x---07y") + "R1T---08";
  std::string contents;
  for (const std::string& line : {"BX"s, longName, SmallHeader("seven") + "R1T---07", SmallHeader("") + "R1T---07"}) {
    contents += Scramble(line) + "\r\n";
  }
  const std::string path = folder.Make("set.zb", contents + Scramble("abc---107"));
  EXPECT_EQ(LoadCaveText(path, 7), SmallHeader("seven") + "R1T---07");
  EXPECT_EQ(LoadCaveText(path, 8), longName);
  EXPECT_EQ(LoadCaveText(path, 9), "");
  EXPECT_EQ(LoadCaveText(path, 107), "") << "a tail has two digits";
  ExpectFault([&] { LoadCaveText(folder.Path("none.zb"), 1); }, folder.Path("none.zb"), "No such file");
}

TEST(LoadCaveText, ReadsNoFurtherThanItsCave) {
  const TempFolder folder;
  const std::string cave = SmallHeader("") + "R1T---01";
  const std::string path = folder.Make("set.zb", Scramble(cave) + "\r\n");
  std::filesystem::resize_file(path, kLargestFile + 1);
  EXPECT_EQ(LoadCaveText(path, 1), cave);
  ExpectFault([&] { LoadCaveText(path, 2); }, path, "larger than");
}

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST(Scramble, EveryCodeSurvivesUnderEveryDivisor) {
  std::set<std::string> codings;
  for (int round = 0; round < 200; ++round) {
    const std::string coded = Scramble(AllBytes());
    ASSERT_EQ(coded.size(), 3u * 256);
    ASSERT_EQ(coded.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::string::npos);
    ASSERT_EQ(Unscramble(coded), AllBytes());
    codings.insert(coded.substr(3 * 255));
  }
  EXPECT_EQ(codings.size(), 15u) << "five divisors, each in three ways";
}

TEST(Scramble, WhatCannotBeReadLeavesTheLastGoodValue) {
  EXPECT_EQ(Unscramble(""), "");
  const std::string good = "GFA";  // 6 * 10 + 5 = 65
  EXPECT_EQ(Unscramble(good), "A");
  EXPECT_EQ(Unscramble(good + "zzA" + good), "AAA") << "57 * 10 + 57 is no character";
  EXPECT_EQ(Unscramble("zzA" + good), "A") << "nothing stands before the first character";
  EXPECT_EQ(Unscramble("A !" + good), "A") << "a value below 0 is none either";
  EXPECT_EQ(Unscramble(good + "HA"), "AF") << "the third letter is that of the group before: 7 * 10 + 0";
  EXPECT_EQ(Unscramble(good + "F"), "A7") << "5 * 10 + 5";
  EXPECT_EQ(Unscramble("GF@"), ";") << "the third letter counts down as well: 6 * 9 + 5";
}

TEST(Names, CleanedForFiles) {
  EXPECT_EQ(CistyNazev("a?b*c\\d/e,f;g:h=i\tj\"k"), "abcdefghijk");
  EXPECT_EQ(CistyNazev(" <|>.\n'"), " <|>.\n'") << "nothing else is dropped";
  EXPECT_EQ(CistyNazev("?/"), "");
  EXPECT_EQ(CistyNazev(""), "");
}

TEST(Names, OfRecordsAreAsLongAsThoseOfFilesCanBe) {
  const auto size = [](const std::string& set, const std::string& cave) {
    return ToUtf8(RecordName(set, cave), CodePage::k1250).size();
  };
  const std::string two(120, '\xE1');  // of two bytes each
  EXPECT_EQ(RecordName("S/ada", "A?"), "Sada - A.zbr");
  EXPECT_EQ(RecordName(two, std::string(8, 'x')).find('~'), std::string::npos);
  EXPECT_EQ(size(two, std::string(8, 'x')), 255U);
  EXPECT_EQ(size(two, std::string(9, 'x')), 255U);
  EXPECT_EQ(size(std::string(190, '\x96'), std::string(190, '\x96')), 253U) << "cut between letters of three bytes";
  EXPECT_NE(RecordName(two, std::string(9, 'x')), RecordName(two, std::string(10, 'x')));
  EXPECT_EQ(ToUtf8(FileName(std::string(190, '\xE6'), ".zb", CodePage::k1251), CodePage::k1251).size(), 254U);
  EXPECT_EQ(RecordName("S", std::string(1, '\0')).size(), std::string("S - ~12345678.zbr").size());
}

TEST(Names, BonusCaves) {
  EXPECT_TRUE(JeBonus("Bonus 1"));
  EXPECT_TRUE(JeBonus("\x8AuperbonUSovka"));
  EXPECT_FALSE(JeBonus("Bonu s"));
  EXPECT_FALSE(JeBonus(""));
}

}  // namespace
