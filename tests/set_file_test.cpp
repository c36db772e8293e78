#include "cave/set_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/lang_str.h"
#include "base/random.h"
#include "cave/cave_text.h"
#include "cave/scramble.h"
#include "cave_checks.h"
#include "kit/fault_check.h"
#include "kit/temp_folder.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;

std::string WithLength(const std::string& text) { return static_cast<char>(text.size() + 65) + text; }

/// A cave of one cell.
std::string Cave(const std::string& name) { return "E" + WithLength(name) + "A" + "BB" + "PAA" + "FUUsC" + "1"; }

/// A set of the given lines behind the first three.
SetLines SetOf(const std::vector<std::string>& rest, const std::string& starts = "A") {
  SetLines file{"set.zb", {WithLength("Sada") + starts, WithLength("Autor") + "Popis", "a@b.cz0"}};
  file.lines.insert(file.lines.end(), rest.begin(), rest.end());
  return file;
}

std::string Join(const std::vector<std::string>& lines) {
  std::string joined;
  for (const std::string& line : lines) joined += (joined.empty() ? "" : std::string(1, kLineSeparator)) + line;
  return joined;
}

class SetFile : public testing::Test {
 protected:
  EditedSet edited_;
  std::unique_ptr<PlayedSet> played_ = std::make_unique<PlayedSet>();
  TempFolder folder_;
};

TEST_F(SetFile, SavedLines) {
  edited_.Name = "Sada";
  edited_.Author = "Autor";
  edited_.Mail = "";
  edited_.Description = "Prvn\xED\r\ndruh\xFD";
  edited_.PocetK = 3;
  for (std::size_t i = 1; i <= 3; ++i) edited_.KomText[i] = Cave("K" + std::to_string(i));
  edited_.Poc[3] = true;
  edited_.Poc[5] = true;
  edited_.Gratulace = "$P\r\n";
  const std::string path = folder_.Path("set.zb");
  SaveColl(path, edited_);
  EXPECT_TRUE(edited_.Poc[1]) << "cave 1 is always a start point";
  EXPECT_THAT(ReadSetLines(path).lines, ElementsAre("ESadaAC", "FAutorPrvn\xED\r\ndruh\xFD", "0", Cave("K1") + "---01",
                                                    Cave("K2") + "---02", Cave("K3") + "---03", "$P\r\n"));

  const std::string first = ReadFile(path);
  EXPECT_EQ(first.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ\r\n"), std::string::npos);
  EXPECT_TRUE(first.ends_with("\r\n"));
  SaveColl(path, edited_);
  EXPECT_NE(ReadFile(path), first) << "the same text is coded anew each time";

  EditedSet back;
  EXPECT_EQ(OpenColl(path, back), OpenResult::kOpened);
  EXPECT_EQ(back.Mail, "");
  EXPECT_EQ(back.Description, edited_.Description);
  EXPECT_EQ(back.PocetK, 3);
  EXPECT_EQ(back.KomText, edited_.KomText);
  EXPECT_TRUE(back.Poc[1] && !back.Poc[2] && back.Poc[3] && !back.Poc[5]);
  EXPECT_EQ(back.Gratulace, "$P\r\n");
}

TEST_F(SetFile, WhatCannotBeSavedLeavesTheOldFile) {
  const std::string path = folder_.Make("set.zb", "old");
  edited_.Name = std::string(191, 'x');
  ExpectFault([&] { SaveColl(path, edited_); }, path, "191 characters");
  edited_.Name = "";
  edited_.Author = std::string(191, 'x');
  ExpectFault([&] { SaveColl(path, edited_); }, path, "author");
  edited_.Author = "";
  edited_.PocetK = 100;
  ExpectFault([&] { SaveColl(path, edited_); }, path, "more than 99 caves");
  EXPECT_EQ(ReadFile(path), "old");
  edited_.PocetK = 99;
  edited_.Author = std::string(190, '\xFF');
  edited_.Poc.fill(true);
  SaveColl(path, edited_);
  EditedSet back;
  OpenColl(path, back);
  EXPECT_EQ(back.Author, edited_.Author);
  EXPECT_EQ(back.PocetK, 99);
  EXPECT_TRUE(back.Poc[99]);
}

TEST_F(SetFile, TheEditorGoesByTheNumbersAndTheOverviewByTheOrder) {
  const SetLines file =
      SetOf({Cave("seven") + "---07", Cave("two") + "---02", "no cave", Cave("again") + "---02", "Hura"});
  for (std::size_t i = 0; i < edited_.KomText.size(); ++i) edited_.KomText[i] = "old" + std::to_string(i);
  OpenColl(file, edited_);
  EXPECT_EQ(edited_.PocetK, 7);
  EXPECT_EQ(edited_.KomText[7], Cave("seven"));
  EXPECT_EQ(edited_.KomText[2], Cave("again"));
  for (const std::size_t i : {0u, 1u, 3u, 6u, 8u})
    EXPECT_EQ(edited_.KomText[i], "old" + std::to_string(i)) << "gaps stay";
  EXPECT_EQ(edited_.Gratulace, "Hura");

  LoadColl(file, *played_);
  EXPECT_EQ(played_->PocetK, 3);
  EXPECT_EQ(played_->KomRec[1].Name, "seven");
  EXPECT_EQ(played_->KomText[1], Cave("seven") + "---07") << "with its tail";
  EXPECT_EQ(played_->KomRec[2].Name, "two");
  EXPECT_EQ(played_->KomRec[3].Name, "again");
  EXPECT_EQ(played_->Gratulace, "Hura");
}

TEST_F(SetFile, TheEditorWantsDigitsInTheTail) {
  const SetLines file = SetOf({Cave("a") + "---xy", Cave("b") + "---1 ", Cave("c") + "---00", "--01", "x"});
  edited_.PocetK = 9;
  OpenColl(file, edited_);
  EXPECT_EQ(edited_.PocetK, 0) << "the number 0 counts for nothing";
  EXPECT_EQ(edited_.KomText[0], Cave("c"));
  LoadColl(file, *played_);
  EXPECT_EQ(played_->PocetK, 3);
  EXPECT_EQ(played_->KomRec[1].Name, "a");
}

TEST_F(SetFile, ALastLineThatIsACave) {
  const SetLines file = SetOf({Cave("a") + "---01", Cave("b") + "---02"});
  OpenColl(file, edited_);
  EXPECT_EQ(edited_.PocetK, 2);
  EXPECT_EQ(edited_.KomText[2], Cave("b"));
  EXPECT_EQ(edited_.Gratulace, Cave("b") + "---02") << "a cave and the congratulation too";

  LoadColl(file, *played_);
  EXPECT_EQ(played_->PocetK, 2);
  EXPECT_EQ(played_->Gratulace, "");

  LoadColl(SetOf({Cave("a") + "---01", Cave("b") + "---02", "left over"}), *played_);
  LoadColl(file, *played_);
  EXPECT_EQ(played_->Gratulace, "left over") << "left there by the set before";
  LoadColl(SetOf({Cave("a") + "---01", "first", "second"}), *played_);
  EXPECT_EQ(played_->Gratulace, "second");
}

TEST_F(SetFile, ACongratulationThatLooksLikeACave) {
  ExpectFault([&] { LoadColl(SetOf({Cave("a") + "---01", "Hura---!!"}), *played_); }, "set.zb", "Line 5");
  OpenColl(SetOf({Cave("a") + "---01", "Hura---!!"}), edited_);
  EXPECT_EQ(edited_.PocetK, 1);
  EXPECT_EQ(edited_.Gratulace, "Hura---!!");
  LoadColl(SetOf({"--01", "---"}), *played_);
  EXPECT_EQ(played_->PocetK, 0) << "a tail has five characters";
}

TEST_F(SetFile, FormatMarks) {
  LangStr[text::kLaterFormatText] = "???";
  SetLines file = SetOf({Cave("a") + "---01", "x"}, "AC");
  file.lines[2] = "mailQ";
  edited_.PocetK = 9;
  edited_.Gratulace = "old";
  EXPECT_EQ(OpenColl(file, edited_), OpenResult::kLaterFormat);
  EXPECT_THAT((std::vector{edited_.Name, edited_.Author, edited_.Mail, edited_.Description}), testing::Each("???"));
  EXPECT_TRUE(edited_.Poc[3]) << "read before the mark is seen";
  EXPECT_EQ(edited_.PocetK, 9);
  EXPECT_EQ(edited_.Gratulace, "old");
  LoadColl(file, *played_);
  EXPECT_EQ(played_->Mail, "mail");
  EXPECT_EQ(played_->PocetK, 1);
  file.lines[2] = "mailP";
  EXPECT_EQ(OpenColl(file, edited_), OpenResult::kOpened) << "80 is the last mark accepted";
  file.lines[2] = "mail\xFF";
  EXPECT_EQ(OpenColl(file, edited_), OpenResult::kLaterFormat);
  LangStr.fill("");
}

TEST_F(SetFile, StartPoints) {
  const std::vector<std::string> rest{Cave("a") + "---01", "x"};
  edited_.Poc.fill(true);
  played_->StavK.fill(Passed);
  const std::string starts = "AZ\xA3";  // 1, 26, 99
  OpenColl(SetOf(rest, starts), edited_);
  LoadColl(SetOf(rest, starts), *played_);
  for (std::size_t i = 1; i <= 99; ++i) {
    const bool start = i == 1 || i == 26 || i == 99;
    EXPECT_EQ(edited_.Poc[i], start) << i;
    EXPECT_EQ(played_->StavK[i], start ? Open : Locked) << i;
  }
  EXPECT_NO_THROW(OpenColl(SetOf(rest, "@"), edited_));
  EXPECT_NO_THROW(LoadColl(SetOf(rest, "@"), *played_));
  for (const std::string& bad : {"?"s, "A\xA4"s}) {
    ExpectFault([&] { OpenColl(SetOf(rest, bad), edited_); }, "set.zb", "Line 1");
    ExpectFault([&] { LoadColl(SetOf(rest, bad), *played_); }, "set.zb", "start point");
  }
}

TEST_F(SetFile, NamesShorterThanTheirLength) {
  SetLines file = SetOf({"x"});
  file.lines[0] = "ZSada";
  file.lines[1] = "Z";
  OpenColl(file, edited_);
  EXPECT_EQ(edited_.Name, "Sada");
  EXPECT_EQ(edited_.Author + edited_.Description, "");
  LoadColl(file, *played_);
  EXPECT_EQ(played_->Name, "Sada");
  EXPECT_EQ(played_->Description, "");
}

TEST_F(SetFile, DamagedHeadsAreFaultsOfBothReaders) {
  const auto expectFaults = [&](const SetLines& file, const std::string& reason) {
    ExpectFault([&] { OpenColl(file, edited_); }, "set.zb", reason);
    ExpectFault([&] { LoadColl(file, *played_); }, "set.zb", reason);
  };
  for (std::size_t count = 0; count < 4; ++count) {
    SetLines file = SetOf({"x"});
    file.lines.resize(count);
    expectFaults(file, "before its line " + std::to_string(count + 1));
  }
  for (const char* line : {"", "@Sada"}) {
    SetLines file = SetOf({"x"});
    file.lines[0] = line;
    expectFaults(file, "Line 1");
    std::swap(file.lines[0], file.lines[1]);
    file.lines[0] = "A";
    expectFaults(file, "Line 2");
  }
  SetLines file = SetOf({"x"});
  file.lines[2] = "";
  expectFaults(file, "Line 3");
}

TEST_F(SetFile, TheOverviewTakesNinetyEightCaves) {
  std::vector<std::string> caves(98, Cave("a") + "---01");
  caves.push_back("Hura");
  LoadColl(SetOf(caves), *played_);
  EXPECT_EQ(played_->PocetK, 98);
  EXPECT_EQ(played_->Gratulace, "Hura");
  caves.back() = Cave("b") + "---99";
  ExpectFault([&] { LoadColl(SetOf(caves), *played_); }, "set.zb", "too many caves");
  caves.push_back("Hura");
  ExpectFault([&] { LoadColl(SetOf(caves), *played_); }, "set.zb", "Line 103: the set has too many caves");
  OpenColl(SetOf(caves), edited_);
  EXPECT_EQ(edited_.PocetK, 99);
}

TEST_F(SetFile, ACaveWithoutItsLastCellsGoesOnWithItsTail) {
  LoadColl(SetOf({"EAAGBPAAFUUsC;---07", "x"}), *played_);
  std::string row;
  for (int x = 0; x < 6; ++x) row += played_->KomRec[1].Cell(x, 0);
  EXPECT_EQ(row, ";---07");
}

TEST_F(SetFile, ADamagedCaveStopsTheOverviewAlone) {
  const SetLines file = SetOf({Cave("a") + "---01", "short---02", "x"});
  ExpectFault([&] { LoadColl(file, *played_); }, "set.zb", "Line 5: The cave text ends before");
  OpenColl(file, edited_);
  EXPECT_EQ(edited_.KomText[2], "short");
}

TEST_F(SetFile, TheNameOfABrokenFileIsGarbledOrEmpty) {
  const std::string rest = "\r\n" + Scramble("more") + "\r\n";
  EXPECT_EQ(ReadSetName(folder_.Make("a.zb", Scramble(WithLength("Sada") + "AB") + rest)), "Sada");
  EXPECT_EQ(ReadSetName(folder_.Make("lf.zb", Scramble("ZSada") + "\n" + Scramble("more"))), "Sada");
  const std::string longest(190, '\xFF');
  EXPECT_EQ(ReadSetName(folder_.Make("long.zb", Scramble(WithLength(longest) + "A") + rest)), longest);
  EXPECT_EQ(ReadSetName(folder_.Make("cut.zb", Scramble("ZSada"))), "Sada");
  EXPECT_EQ(ReadSetName(folder_.Path("CUT.ZB")), "Sada");
  EXPECT_EQ(ReadSetName(folder_.Make("low.zb", Scramble("@Sada"))), "");
  EXPECT_EQ(ReadSetName(folder_.Make("empty.zb")), "");
  EXPECT_NO_THROW(ReadSetName(folder_.Make("plain.zb", "this was never coded\r\n")));
  EXPECT_EQ(ReadSetName(folder_.Path("missing.zb")), "");
  EXPECT_EQ(ReadSetName(folder_.path()), "");
}

TEST_F(SetFile, FilesAreReadInEitherLineEndAndNamedInFaults) {
  const SetLines set = SetOf({Cave("a") + "---01", "Hura"});
  std::string contents;
  for (const std::string& line : set.lines) contents += Scramble(line) + "\n";
  contents.pop_back();
  LoadColl(folder_.Make("lf.zb", contents), *played_);
  EXPECT_EQ(played_->Gratulace, "Hura");
  LoadColl(folder_.Make("blank.zb", contents + "\n\n"), *played_);
  EXPECT_EQ(played_->Gratulace, "") << "an empty last line is the last line";
  const std::string junk = folder_.Make("junk.zb", "This is no set.\nReally.\n");
  ExpectFault([&] { OpenColl(junk, edited_); }, junk, "");
  ExpectFault([&] { OpenColl(folder_.Path("missing.zb"), edited_); }, folder_.Path("missing.zb"), "No such file");
}

/// Lines of every kind that sets are made of, sound and damaged ones, in any order.
std::string RandomSet(Random& random) {
  const auto below = [&random](std::size_t limit) {
    return static_cast<std::size_t>(random.Next() * static_cast<double>(limit));
  };
  std::vector<std::string> lines = SetOf({}).lines;
  const std::size_t count = below(8);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string cave = Cave("k" + std::to_string(i));
    const std::string choices[] = {cave + CaveTail(static_cast<int>(below(100))), cave + "---0x", cave, "\r\n text ",
                                   ""};
    lines.push_back(choices[below(5)]);
  }
  std::string bytes = Join(lines);
  for (std::size_t damage = below(4); damage > 0 && !bytes.empty(); --damage) {
    const std::size_t place = below(bytes.size());
    switch (below(3)) {
      case 0:
        bytes[place] = static_cast<char>(below(256));
        break;
      case 1:
        bytes.erase(place, below(20));
        break;
      default:
        bytes.insert(place, 1, static_cast<char>(below(256)));
    }
  }
  return bytes;
}

TEST(SetProperties, RandomSets) {
  Random random(3);
  for (int round = 0; round < 3000; ++round) {
    const std::string bytes = RandomSet(random);
    ASSERT_NO_THROW(CheckSet(bytes)) << "round " << round << ": " << testing::PrintToString(bytes);
  }
}

TEST(SetProperties, RandomCaveTexts) {
  Random random(5);
  for (int round = 0; round < 3000; ++round) {
    std::string bytes = Cave("name") + CaveTail(1);
    for (int damage = 0; damage < 3; ++damage) {
      bytes[static_cast<std::size_t>(random.Next() * static_cast<double>(bytes.size()))] =
          static_cast<char>(random.Next() * 256);
    }
    ASSERT_NO_THROW(CheckCaveText(bytes)) << "round " << round << ": " << testing::PrintToString(bytes);
  }
}

}  // namespace
