#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/files.h"
#include "base/random.h"
#include "cave/cave_text.h"
#include "cave/set_file.h"
#include "cave/set_text.h"
#include "cave_checks.h"
#include "kit/fault_check.h"
#include "kit/run_program.h"
#include "kit/temp_folder.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

using Lines = std::vector<std::string>;

const std::string kCave =
    "E"
    "BX"
    "A"
    "DB"
    "PAA"
    "FUUsC"
    "1;T";  // cells 3 by 1
const std::string kCaveText =
    "name: X\ndescription:\ntime: 150\nneed: 0\npoints: 5 20\nmagic: 20\namoeba: 50\ncolour: 2\nslime: 4\n";

Lines SetOf(const Lines& rest) {
  Lines lines{"ESadaA", "FAutorPopis", "a@b.cz0"};
  lines.insert(lines.end(), rest.begin(), rest.end());
  return lines;
}

/// The text must give back the lines, and hold what is expected.
void ExpectText(const Lines& lines, const std::string& expected) {
  const std::string text = SetToText(lines, CodePage::k1250);
  EXPECT_THAT(text, HasSubstr(expected));
  EXPECT_EQ(SetFromText(text, "t"), lines) << text;
}

TEST(SetText, AWholeSet) {
  const Lines lines = SetOf({kCave + "---07", "Hura $P"});
  const std::string text = SetToText(lines, CodePage::k1250);
  EXPECT_EQ(text,
            "zorbik set\ncode page: 1250\n\nset: Sada\nstart: 1\nauthor: Autor\ndescription: Popis\nmail: a@b.cz\n\n"
            "cave 7\n" +
                kCaveText + "size: 3 x 1\nrows:\n|1;T\n\ncongratulation: Hura $P\n");
  EXPECT_EQ(SetFromText(text, "t"), lines);
}

TEST(SetText, TextsOfAnyBytes) {
  ExpectText(SetOf({"a\r\n\r\nb"}), "congratulation: a\n|\n| b\n");
  ExpectText(SetOf({"\r\n"}), "congratulation:\n|\n");
  ExpectText(SetOf({" a \r\n b"}), "congratulation: \\x20a\\x20\n| \\x20b\n");
  ExpectText(SetOf({"a\rb\nc\td\\x"}), R"(congratulation: a\rb\nc\td\\x)");
  ExpectText(SetOf({"\x01\x81\xA0\xAD\x7F\x9E"}), R"(congratulation: \x01\x81\xA0\xAD\x7Fž)");
  ExpectText(SetOf({"# no comment"}), "congratulation: # no comment\n");
  ExpectText(SetOf({"| x\r\n| y: z"}), "congratulation: | x\n| | y: z\n");
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  ExpectText(SetOf({all, all}), "raw: ");
  EXPECT_THAT(SetToText(SetOf({"\xC6\xE8"}), CodePage::k1251), HasSubstr("congratulation: Жи\n"));
}

TEST(SetText, StrangeLinesAreKeptAsTheyStand) {
  ExpectText({}, "zorbik set\n");
  ExpectText({"ESadaA", "FAutorPopis", "a@b.cz0"}, "raw: ESadaA\n");
  ExpectText({"ZSada", "", "", ""}, "line 1: ZSada\nline 2:\nline 3:\n");
  ExpectText({"ESada?", "@", "x", ""}, "line 1: ESada?\nline 2: @\nmail:\nmark: x\n");
  ExpectText({"ESada@AA\xA3", "A", "0", ""}, "start: 0 1 1 99\n");
  ExpectText({"ESada", "A", "0", ""}, "start:\n");
  ExpectText(SetOf({kCave + "---01"}), "|1;T\n\nno congratulation\n");
  ExpectText(SetOf({kCave + "---02", "nothing", kCave + "---01", "x"}), "raw: nothing\n\ncave 1\n");
}

TEST(SetText, CavesThatTheirFieldsDoNotGiveBackAreKeptAsTheyStand) {
  const auto kept = [](const std::string& line) { ExpectText(SetOf({line, "x"}), "raw: "); };
  kept(kCave + ";---01");                             // a cell too many
  kept(kCave.substr(0, kCave.size() - 1) + "---01");  // one too few
  kept(kCave + "---0x");                              // no number
  kept("---01");                                      // no cave at all
  kept("EBX---01");                                   // cut short
  kept(
      "EBXADBP\xFE"
      "AFUUsC1;T---01");  // time and need shared by a value above 99
  ExpectText(SetOf({"EBXADBPAAFUUsC1\0T---01"s, "x"}), "|1\\x00T\n");
  ExpectText(SetOf({"EBXADBPAAFUUsCx\xE9 ---00", "x"}), "cave 0\n");
  ExpectText(SetOf({"EBXADBPAAFUUsCx\xE9 ---00", "x"}), "|\\x78\\xE9\\x20\n");
  ExpectText(SetOf({"\xFF"
                    "AAAA\xFF\xA4\xFF\xFF\xFF\xFF\xFF\xFF---99",
                    "x"}),
             "time: 1909\nneed: 1909\npoints: 190 190\n");
}

/// The given text behind the head of a set that needs nothing more but a congratulation.
std::string Head() { return "zorbik set\nset: S\nauthor: A\n"; }  // three lines

TEST(SetText, WrittenByHand) {
  EXPECT_EQ(SetFromText("\xEF\xBB\xBF# a comment\r\n\r\n  zorbik set \r\nset: S\r\nauthor:A\r\n\r\n# another\r\n"
                        "cave\r\n" +
                            kCaveText + "rows:\r\n# between\n|WW\n|1T\ncongratulation:\r\n",
                        "t"),
            (Lines{"BSA", "BA", "0", "EBXACCPAAFUUsCWW1T---01", ""}));
  EXPECT_EQ(SetFromText(Head() + "cave 5\n" + kCaveText + "rows:\n|1\ncave\n" + kCaveText +
                            "size:1x1\nrows:\n|T\n"
                            "no congratulation",
                        "t")
                .back(),
            "EBXABBPAAFUUsCT---06");
}

TEST(SetText, MistakesAreNamedWithTheirLine) {
  const auto fails = [](const std::string& text, int line, const std::string& reason) {
    ExpectFault([&] { SetFromText(text, "set.txt"); }, "set.txt:" + std::to_string(line), reason);
  };
  const auto cave = [](const std::string& fields) { return Head() + "cave 1\n" + fields + "congratulation: x\n"; };
  fails("", 1, "starts with");
  fails("# c\nset: x\n", 2, "starts with");
  fails("zorbik set\ncode page: 1252\n", 2, "1250 to 1251");
  fails("zorbik set\n| x\n", 2, "goes on with");
  fails("zorbik set\nauthor: A\ncongratulation: x\n", 2, "no \"set\"");
  fails("zorbik set\nset: S\ncongratulation: x\n", 2, "no \"author\"");
  fails("zorbik set\ncongratulation: x\n", 2, "no \"set\" and");
  fails(Head() + "autor: x\n", 4, "\"autor\" is no field");
  fails(Head() + "mail\n", 4, "\"mail\" is no field");
  fails(Head() + "set: T\n", 4, "second time");
  fails(Head() + "line 1: x\n", 2, "already holds this field");
  fails(Head() + "start: 1 100\n", 4, "\"100\" is no whole number from 0 to 99");
  fails(Head() + "start: 1,2\n", 4, "\"1,2\"");
  fails(Head() + "start: 1\n| 2\n", 5, "one line only");
  fails(Head() + "mark: ab\n", 4, "one character");
  fails(Head() + "mail: 犬@x\n", 4, "\"犬\" is not in code page 1250");
  fails(Head() + "mail: \xFF\n", 4, "not UTF-8");
  fails(Head() + "mail: \\q\n", 4, "backslash");
  fails(Head() + "mail: \\x1\n", 4, "backslash");
  fails(Head() + "mail: \\x-1\n", 4, "backslash");
  fails("zorbik set\nset: " + std::string(191, 'x') + "\nauthor: A\n", 2, "191 characters");
  fails(Head() + "mail: m\n", 4, "without a congratulation");
  fails(Head() + "congratulation: x\nraw: y\n", 5, "behind the congratulation");
  fails(Head() + "congratulation\n", 4, "not understood");
  fails(Head() + "raw: x\ncaves\n", 5, "not understood");
  fails(Head() + "cave one\n", 4, "\"one\"");
  fails(Head() + "cave 100\n", 4, "\"100\"");
  fails(cave("name: x\n"), 4, "cave 1 has no \"time\"");
  fails(cave(kCaveText), 4, "no \"rows\"");
  fails(cave("size: 3 x 1\nname: x\nname: y\n"), 7, "second time");
  fails(cave(kCaveText + "rows: |1\n"), 14, "next line");
  fails(cave(kCaveText + "rows:\n"), 14, "no cells");
  fails(cave(kCaveText + "rows:\n|12\n|3\n"), 16, "this row has 1 cells, the cave is 2 wide");
  fails(cave(kCaveText + "size: 2 x 2\nrows:\n|12\n"), 15, "1 rows here, the size asks for 2");
  fails(cave(kCaveText + "size: 1 x 1\nrows:\n|12\n"), 16, "2 cells");
  fails(cave(kCaveText + "size: 1\nrows:\n|1\n"), 14, "19 x 11");
  fails(cave(kCaveText + "size: 82 x 1\nrows:\n|1\n"), 14, "0 to 81");
  fails(cave(kCaveText + "rows:\n|" + std::string(82, 'W') + "\n"), 14, "81 by 51");
  fails(cave(kCaveText + "rows:\n|1x\n"), 15, "\"x\" is no tile");
  fails(cave(kCaveText + "rows:\n|1é\n"), 15, "\"é\" is no tile");
  std::string high = kCaveText;
  high.replace(high.find("need: 0"), 7, "need: 1910");
  fails(cave(high + "rows:\n|1\n"), 8, "0 to 1909");
  high = kCaveText;
  high.replace(high.find("5 20"), 4, "5");
  fails(cave(high + "rows:\n|1\n"), 9, "two numbers");
}

TEST(SetText, RandomTexts) {
  const std::string text = ReadFile(EXAMPLE_TEXT);
  ASSERT_NO_THROW(CheckSetText(text));
  Random random(11);
  const auto below = [&random](std::size_t limit) {
    return static_cast<std::size_t>(random.Next() * static_cast<double>(limit));
  };
  const std::string characters = "\n|:\\x 1é";
  for (int round = 0; round < 2000; ++round) {
    std::string damaged = text;
    for (std::size_t damage = below(3); damage > 0; --damage) {
      const std::size_t place = below(damaged.size());
      if (below(2) == 0) {
        damaged.erase(place, below(12));
      } else {
        damaged.insert(place, 1, characters[below(characters.size())]);
      }
    }
    ASSERT_NO_THROW(CheckSetText(damaged)) << "round " << round << "\n" << damaged;
  }
}

TEST(ExampleSet, IsBuiltFromItsText) {
  const auto set = std::make_unique<PlayedSet>();
  LoadColl(EXAMPLE_SET, *set);
  EXPECT_EQ(set->Name, Cp1250("Cvičná sada"));
  EXPECT_EQ(set->Description, Cp1250("První řádek popisu.\r\n\r\nTřetí řádek: zpětné lomítko \\ a tabulátor \t."));
  EXPECT_EQ(set->PocetK, 3);
  EXPECT_THAT(std::vector(set->StavK.begin() + 1, set->StavK.begin() + 4), ElementsAre(Open, Locked, Open));
  EXPECT_EQ(set->KomRec[2].Name, Cp1250("Bonus: # není poznámka"));
  EXPECT_EQ(set->KomRec[2].Time, 999);
  EXPECT_EQ(set->KomRec[2].Cell(3, 1), 'T');
  EXPECT_EQ(set->Gratulace, Cp1250("Gratulujeme!\r\nMáš $P bodů."));
}

ProgramRun Zbtext(const std::string& arguments) { return RunProgram(ZBTEXT + " "s + arguments); }

class ZbtextProgram : public testing::Test {
 protected:
  std::string Quoted(const std::string& name) const { return "'" + folder_.Path(name) + "'"; }
  TempFolder folder_;
};

TEST_F(ZbtextProgram, ThereAndBack) {
  const ProgramRun printed = Zbtext(EXAMPLE_SET);
  EXPECT_EQ(printed.status, 0);
  EXPECT_THAT(printed.output, HasSubstr("set: Cvičná sada\nstart: 1 3\n"));
  EXPECT_EQ(Zbtext("--to-text " EXAMPLE_SET " " + Quoted("a b.txt")).status, 0);
  EXPECT_EQ(ReadFile(folder_.Path("a b.txt")), printed.output);
  EXPECT_EQ(Zbtext("--to-set " + Quoted("a b.txt") + " " + Quoted("b.zb")).output, "");
  EXPECT_EQ(ReadSetLines(folder_.Path("b.zb")).lines, ReadSetLines(EXAMPLE_SET).lines);
  EXPECT_THAT(Zbtext("--code-page 1251 " EXAMPLE_SET).output, HasSubstr("code page: 1251\n"));
}

TEST_F(ZbtextProgram, MistakesAreReported) {
  folder_.Make("bad.txt", "zorbik set\nset: S\nauthor: A\nautor: B\n");
  const ProgramRun bad = Zbtext("--to-set " + Quoted("bad.txt") + " " + Quoted("bad.zb"));
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.output, "zbtext: " + folder_.Path("bad.txt") + ":4: \"autor\" is no field here.\n");
  EXPECT_EQ(FindPath(folder_.Path("bad.zb")), "") << "nothing is written";
  const ProgramRun missing = Zbtext(Quoted("missing.zb"));
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.output, HasSubstr("missing.zb: The file cannot be opened: No such file"));
}

TEST(SetText, TakesTheTextsOfAnotherLanguage) {
  const std::string set = "zorbik set\ncode page: 1250\nset: Sada\nauthor: Já\ndescription: Popis\n| dál\ncave\n" +
                          kCaveText + "rows:\n|1;T\ncongratulation: Hurá\n| $P\n";
  const std::string head = "zorbik texts\ncode page: 1251\nset: Nabor\nauthor: Я\ndescription: Вот\n";
  const std::string rest = "# the cave\nname: Икс\ndescription:\ncongratulation: Ура\n|\n| $P";
  std::string expected = set;
  for (const auto& [old, translated] :
       std::vector<std::pair<std::string, std::string>>{{"1250", "1251"},
                                                        {"Sada", "Nabor"},
                                                        {"Já", "Я"},
                                                        {"Popis\n| dál", "Вот"},
                                                        {": X", ": Икс"},
                                                        {"Hurá\n| $P", "Ура\n|\n| $P"}}) {
    expected.replace(expected.find(old), old.size(), translated);
  }
  EXPECT_EQ(WithTexts(set, "s", head + rest, "t"), expected);
  EXPECT_EQ(SetFromText(expected, "s").size(), 5u);

  const auto fault = [&](const std::string& texts, int line, const std::string& what) {
    ExpectFault([&] { WithTexts(set, "s", texts, "t"); }, "t:" + std::to_string(line), what);
  };
  fault(head, 5, "\"name\" of line 8 of the set is missing at the end.");
  fault(head + "description: Х\n" + rest, 6, "\"name\" of line 8 of the set is expected here.");
  fault(head + rest + "\nname: Y\n", 12, "the set has no such text.");
  fault(head + "time: 5\n" + rest, 6, "\"time\" is no text of a set.");
  fault(head + "name: ř\n" + rest, 6, "is not in code page 1251.");
  fault(set, 1, "start with the line \"zorbik texts\".");
}

TEST_F(ZbtextProgram, TheInputIsNeverOverwritten) {
  const std::string set = ReadFile(EXAMPLE_SET);
  folder_.Make("Sada.zb", set);
  for (const std::string& arguments :
       {Quoted("Sada.zb") + " " + Quoted("Sada.zb"), Quoted("Sada.zb") + " " + Quoted("./sada.ZB"),
        "--to-set " + Quoted("Sada.zb") + " " + Quoted("Sada.zb")}) {
    const ProgramRun outcome = Zbtext(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments;
    EXPECT_THAT(outcome.output, StartsWith("zbtext: both names lead to the same file"));
  }
  EXPECT_EQ(ReadFile(folder_.Path("Sada.zb")), set);
}

TEST_F(ZbtextProgram, UsageErrorsExitWithTwo) {
  for (const char* arguments :
       {"", "--to-set a", "--to-set a b c", "a b c", "--to-text --to-set a b", "--nonsense a", "--code-page 1252 a",
        "a --code-page", "--to-set --code-page 1250 a b", "--texts t a b", "--to-set a b --texts"}) {
    const ProgramRun outcome = Zbtext(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments;
    EXPECT_THAT(outcome.output, StartsWith("zbtext: ")) << arguments;
    EXPECT_THAT(outcome.output, HasSubstr("Usage:")) << arguments;
  }
  const ProgramRun help = Zbtext("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, HasSubstr("Usage: zbtext"));
}

}  // namespace
