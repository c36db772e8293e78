// What the cave properties make of texts and numbers, without a window.

#include <gtest/gtest.h>

#include <string>

#include "base/code_page.h"
#include "editor/cave_sums.h"
#include "editor/super_replace.h"

namespace {

std::string Corrected(const std::string& utf8) { return ToUtf8(SuperReplace(Cp1250(utf8)), CodePage::k1250); }

TEST(SuperReplaceTest, SpellsTheWordsOfTheGameRight) {
  EXPECT_EQ(Corrected("k ZORBÍKOVI a zOrBíkovi a zorbikovi"), "K ZorbíKOVI a Zorbíkovi a Zorbíkovi");
  EXPECT_EQ(Corrected("ZORBIK"), "ZORBIK") << "with a plain i in small letters alone";
  EXPECT_EQ(Corrected("sbírej diamanty, Diamant"), "Sbírej drahokamy, Drahokam");
  EXPECT_EQ(Corrected("z diamonds, Diamonds, DIAMOND"), "Z gems, Gems, DIAMOND");
  EXPECT_EQ(Corrected("u ambény, ambéby, ambémy, hmiz"), "U améby, améby, améby, hmyz");
  EXPECT_EQ(Corrected("a borzek borzeek borzeak borzec borzeec borzeac Borzek"),
            "A Borzeek Borzeek Borzeek Borzeek Borzeek Borzeek Borzek");
}

TEST(SuperReplaceTest, GoesThroughTheWordsOneAfterAnother) {
  EXPECT_EQ(Corrected("x diamondiamant"), "X gemrahokam") << "what a word became meets the words behind it";
  EXPECT_EQ(Corrected("x ambambénn"), "X ambamébn") << "and no word before it";
}

TEST(SuperReplaceTest, RemovesBlanksAroundAndBeginsWithACapital) {
  EXPECT_EQ(Corrected("   žlutá  jáma "), "Žlutá  jáma");
  EXPECT_EQ(Corrected("diamant"), "Drahokam");
  EXPECT_EQ(Corrected("    "), "");
  EXPECT_EQ(Corrected(""), "");
  EXPECT_EQ(Corrected("\r\npod sebou\r\n"), "\r\npod sebou\r\n") << "a line break is no blank";
  EXPECT_EQ(ToUtf8(SuperReplace(FromUtf8("чудо", CodePage::k1251), CodePage::k1251), CodePage::k1251), "Чудо");
}

TEST(SuperReplaceTest, PartsOfATextAreWholeOrNothing) {
  EXPECT_EQ(EMid("jeskyně", 1, 3), "jes");
  EXPECT_EQ(EMid("abc", 2, 2), "bc");
  EXPECT_EQ(EMid("abc", 2, 3), "") << "not the two that there are";
  EXPECT_EQ(EMid("abc", 4, 0), "");
}

TEST(CaveSumsTest, ReadNumbersAtTheBeginningOfATextAndWriteThemWithABlank) {
  EXPECT_EQ(NumberOf(""), 0);
  EXPECT_EQ(NumberOf("007"), 7);
  EXPECT_EQ(NumberOf("  12x9"), 12);
  EXPECT_EQ(NumberOf("-5"), -5);
  EXPECT_EQ(NumberOf("x12"), 0);
  EXPECT_EQ(NumberOf("99999999999"), 2147483647);
  EXPECT_EQ(NumberText(5), " 5");
  EXPECT_EQ(NumberText(0), " 0");
  EXPECT_EQ(NumberText(-5), "-5");
}

// 19 x 11 cells call for 47.5 cells of amoeba.
TEST(CaveSumsTest, EstimateWhenAmoebaTurnsToStone) {
  const auto estimate = [](int amoeba, int time, int width = 19, int height = 11) {
    const Petrification sum = EstimatePetrification(width, height, amoeba, time);
    return std::to_string(sum.cells) + " cells, " + std::to_string(sum.seconds) + " s";
  };
  EXPECT_EQ(estimate(0, 150), "48 cells, 150 s") << "46 slow cells, two fast ones";
  EXPECT_EQ(estimate(1, 150), "47 cells, 150 s");
  EXPECT_EQ(estimate(2, 150), "46 cells, 150 s") << "as many as are slow";
  EXPECT_EQ(estimate(3, 150), "45 cells, 144 s") << "all are slow";
  EXPECT_EQ(estimate(8, 32), "40 cells, 44 s");
  EXPECT_EQ(estimate(0, 1), "48 cells, 20 s");
  EXPECT_EQ(estimate(48, 50), "0 cells, 0 s");
  EXPECT_EQ(estimate(50, 50), "-2 cells, -7 s") << "the next lower whole number";
  EXPECT_EQ(estimate(0, 10, 44, 22), "220 cells, 96 s") << "a whole number of cells";
}

}  // namespace
