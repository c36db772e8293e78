#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "base/tool.h"
#include "base/utf8.h"
#include "kit/fault_check.h"
#include "kit/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using namespace std::string_literals;

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST(CodePage, EveryByteSurvivesTheWayToUtf8AndBack) {
  for (const CodePage page : {CodePage::k1250, CodePage::k1251}) {
    const std::string utf8 = ToUtf8(AllBytes(), page);
    EXPECT_EQ(FromUtf8(utf8, page), AllBytes());
    for (const char32_t code : CodePoints(utf8)) EXPECT_LT(code, 0xD800u) << "not UTF-8";
  }
}

TEST(CodePage, KnownLetters) {
  EXPECT_EQ(Cp1250("Zorbík"), "Zorb\xEDk");
  EXPECT_EQ(Cp1250("ĚŠČŘŽÝÁÍÉ"), "\xCC\x8A\xC8\xD8\x8E\xDD\xC1\xCD\xC9");
  EXPECT_EQ(Cp1250("€„“…–"), "\x80\x84\x93\x85\x96");
  EXPECT_EQ(FromUtf8("Ёжик №1", CodePage::k1251),
            "\xA8\xE6\xE8\xEA \xB9"
            "1");
  EXPECT_EQ(ToUtf8("\xC7\xCE\xD0\xC1\xC8", CodePage::k1251), "ЗОРБИ");
}

TEST(CodePage, WhatThePageLacksBecomesAQuestionMark) {
  EXPECT_EQ(Cp1250("a犬b😀c"), "a?b?c");
  EXPECT_EQ(Cp1250("Ж"), "?");
  EXPECT_EQ(FromUtf8("ž", CodePage::k1251), "?");
  EXPECT_EQ(FromUtf8("\xC2\x80", CodePage::k1250), "?") << "code 0x80 is another character in the page";
  // No UTF-8: stray continuation, cut short, overlong, half a surrogate pair, beyond the last code point.
  EXPECT_EQ(Cp1250("a\x80z"), "a?z");
  EXPECT_EQ(Cp1250("\xC4"), "?");
  EXPECT_EQ(Cp1250("\xC0\xAF"), "??");
  EXPECT_EQ(Cp1250("\xED\xA0\x80"), "???");
  EXPECT_EQ(Cp1250("\xF4\x90\x80\x80"), "????");
}

TEST(CodePage, ReadableTextLosesAccentsRatherThanLetters) {
  EXPECT_EQ(ReadableFromUtf8("/Hráči/Žofie/Ж犬", CodePage::k1250), Cp1250("/Hráči/Žofie/??"));
  EXPECT_EQ(ReadableFromUtf8("/Hráči/Žofie/Ж犬", CodePage::k1251), FromUtf8("/Hraci/Zofie/Ж?", CodePage::k1251));
  EXPECT_EQ(ReadableFromUtf8("a\x80z", CodePage::k1250), "a?z") << "no UTF-8";
}

TEST(CodePage, CaseOfLetters) {
  const std::string upper1250 = Cp1250("ABZ ÁÄČĎÉĚÍĹĽŇÓÔŔŘŠŤÚŮÝŽ Ł ß¤");
  const std::string lower1250 = Cp1250("abz áäčďéěíĺľňóôŕřšťúůýž ł ß¤");
  EXPECT_EQ(ToLower(upper1250, CodePage::k1250), lower1250);
  EXPECT_EQ(ToUpper(lower1250, CodePage::k1250), upper1250);
  const std::string upper1251 = FromUtf8("ABZ АЖЯЁЂЄЇҐЏ №", CodePage::k1251);
  const std::string lower1251 = FromUtf8("abz ажяёђєїґџ №", CodePage::k1251);
  EXPECT_EQ(ToLower(upper1251, CodePage::k1251), lower1251);
  EXPECT_EQ(ToUpper(lower1251, CodePage::k1251), upper1251);
}

TEST(CodePage, CaseChangesNothingButLetters) {
  for (const CodePage page : {CodePage::k1250, CodePage::k1251}) {
    const std::string lower = ToLower(AllBytes(), page);
    const std::string upper = ToUpper(AllBytes(), page);
    EXPECT_EQ(ToLower(lower, page), lower);
    EXPECT_EQ(ToUpper(upper, page), upper);
    for (std::size_t i = 0; i < 256; ++i) {
      const char byte = static_cast<char>(i);
      if (lower[i] == byte) continue;
      EXPECT_EQ(ToUpper(lower.substr(i, 1), page), std::string(1, byte)) << "byte " << i;
    }
  }
}

TEST(Utf8, StrayBytesKeepTextsApart) {
  EXPECT_NE(CaseKey("a\xE9"), CaseKey("a\xEA"));
  std::string back;
  for (const char32_t code : CodePoints("\xFF ř\x80 €😀")) AppendUtf8(back, code);
  EXPECT_EQ(back, "\xFF ř\x80 €😀");
}

TEST(Lines, LfAndCrLf) {
  EXPECT_THAT(SplitLines(""), IsEmpty());
  EXPECT_THAT(SplitLines("\n"), ElementsAre(""));
  EXPECT_THAT(SplitLines("a\r\nb\nc"), ElementsAre("a", "b", "c"));
  EXPECT_THAT(SplitLines("a\r\r\n\r\n\nx\ry\r"), ElementsAre("a\r", "", "", "x\ry"));
}

class Files : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.Path(name); }
  std::string Make(const std::string& name, const std::string& contents = "") const {
    return folder_.Make(name, contents);
  }

  TempFolder folder_;
};

TEST_F(Files, WrittenBytesAreReadBack) {
  const std::string contents = AllBytes() + std::string(200000, 'x') + "\r\n";
  WriteFile(Path("Žluťoučký kůň.zb"), contents);
  EXPECT_EQ(ReadFile(Path("Žluťoučký kůň.zb")), contents);
  WriteFile(Path("Žluťoučký kůň.zb"), "");
  EXPECT_EQ(ReadFile(Path("Žluťoučký kůň.zb")), "");
  EXPECT_THAT(ListFiles(folder_.path(), ""), ElementsAre("Žluťoučký kůň.zb")) << "no temporary file is left";
}

TEST_F(Files, FailuresNameTheFileAndTheReason) {
  ExpectFault([&] { ReadFile(Path("missing.zb")); }, Path("missing.zb"), "No such file");
  ExpectFault([&] { ReadFile(Path("a\0b"s)); }, Path("a\0b"s), "zero character");
  ExpectFault([&] { WriteFile(Path("a\0b"s), "x"); }, Path("a\0b"s), "zero character");
  ExpectFault([&] { ReadFile(folder_.path()); }, folder_.path(), "directory");
  ExpectFault([&] { WriteFile(Path("no/such/folder.zb"), "x"); }, Path("no/such/folder.zb"), "No such file");
  fs::create_directory(Path("d.zb"));
  ExpectFault([&] { WriteFile(Path("D.zb"), "x"); }, Path("D.zb"), "directory");
  ExpectFault([&] { WriteFile(Path("d.zb"), "x"); }, Path("d.zb"), "directory");
  EXPECT_THAT(ListFiles(folder_.path(), ""), IsEmpty());
}

TEST_F(Files, AGiantFileIsAFault) {
  const std::string path = Make("giant.zb");
  fs::resize_file(path, kLargestFile);
  EXPECT_EQ(ReadFile(path).size(), kLargestFile);
  fs::resize_file(path, kLargestFile + 1);
  ExpectFault([&] { ReadFile(path); }, path, "larger than 16 MiB");
  ExpectFault([&] { ReadLines(path, [](const std::string&) { return true; }); }, path, "larger than 16 MiB");
  EXPECT_EQ(ReadStart(path, 3), "\0\0\0"s) << "whose start can be read nevertheless";
}

// A pipe that nobody writes to would keep whoever opens it waiting.
TEST_F(Files, PipesAndDevicesAreFaults) {
  const std::string pipe = Path("pipe.zb");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {pipe, "/dev/zero"s}) {
    ExpectFault([&] { ReadFile(path); }, path, "no regular file");
    ExpectFault([&] { ReadStart(path, 1); }, path, "no regular file");
    ExpectFault([&] { ReadLines(path, [](const std::string&) { return true; }); }, path, "no regular file");
  }
  ExpectFault([&] { WriteFile(pipe, "x"); }, pipe, "no regular file");
  EXPECT_TRUE(fs::is_fifo(pipe)) << "nothing has taken its place";
}

TEST_F(Files, LinesAreHandedOutUntilNoMoreAreWanted) {
  std::vector<std::string> lines;
  const auto read = [&](const std::string& contents, std::size_t most) {
    lines.clear();
    ReadLines(Make("lines.txt", contents), [&](const std::string& line) {
      lines.push_back(line);
      return lines.size() < most;
    });
    return lines;
  };
  EXPECT_THAT(read("a\r\nb\nc", 2), ElementsAre("a", "b"));
  EXPECT_THAT(read("a\r\nb\nc", 3), ElementsAre("a", "b", "c"));
  std::string longLine(100000, 'x');  // longer than what is read at once
  longLine += "\n\nz";
  std::string block(65535, 'y');  // its line end is divided
  block += "\r\nz";
  for (const std::string& text : {""s, "\n"s, "a\r\r\n\r\n\nx\ry\r"s, longLine, block}) {
    EXPECT_EQ(read(text, 1000), SplitLines(text));
  }
}

TEST_F(Files, TheStartOfAFile) {
  const std::string contents(200000, 'x');
  const std::string path = Make("a.txt", contents);
  EXPECT_EQ(ReadStart(path, 0), "");
  EXPECT_EQ(ReadStart(path, 65537), contents.substr(0, 65537));
  EXPECT_EQ(ReadStart(path, 300000), contents);
}

TEST_F(Files, AFailedWriteLeavesTheOldFile) {
  const std::string path = Make("set.zb", "old");
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit small = before;
  small.rlim_cur = 5;
  setrlimit(RLIMIT_FSIZE, &small);
  ExpectFault([&] { WriteFile(path, "much longer than five bytes"); }, path, "too large");
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(ReadFile(path), "old");
  EXPECT_THAT(ListFiles(folder_.path(), ""), ElementsAre("set.zb"));
}

TEST_F(Files, WhatAKilledWriterLeftGoesOnceItIsOld) {
  Make(".zorbik-4711-0.tmp");
  const auto age = [this](const std::string& file) {
    fs::last_write_time(Make(file), fs::file_time_type::clock::now() - std::chrono::hours(2));
  };
  age(".zorbik-4711-1.tmp");
  age("old.tmp");
  fs::create_directory(Path(".zorbik-4711-2.tmp"));
  WriteFile(Path("set.zb"), "new");
  EXPECT_THAT(ListFiles(folder_.path(), ""), ElementsAre(".zorbik-4711-0.tmp", "old.tmp", "set.zb"))
      << "a young one may still be written";
}

TEST_F(Files, AFolderIsMadeWhereItsNameIsTaken) {
  Make("data/Hráči/soubor");
  MakeFolder(Path("data/hráči/Karel"));
  MakeFolder(Path("DATA/HRÁČI"));
  MakeFolder(Path("more/x"));
  EXPECT_THAT(ListFolders(Path("data")), ElementsAre("Hráči"));
  EXPECT_THAT(ListFolders(folder_.path()), ElementsAre("data", "more"));
  ExpectFault([&] { MakeFolder(Path("data/Hráči/soubor")); }, Path("data/Hráči/soubor"), "cannot be made");
}

TEST_F(Files, OverwritingKeepsPermissionsAndLinks) {
  const std::string path = Make("real/set.zb", "old");
  chmod(path.c_str(), 0440);
  fs::create_symlink("real/set.zb", Path("link.zb"));
  WriteFile(Path("link.zb"), "new");
  EXPECT_TRUE(fs::is_symlink(Path("link.zb")));
  EXPECT_EQ(ReadFile(path), "new");
  struct stat now {};
  ASSERT_EQ(stat(path.c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 0777, 0640u) << "a read-only file becomes writable";
}

TEST_F(Files, ALinkToNothingStaysAndItsFileIsMade) {
  fs::create_directory(Path("real"));
  fs::create_symlink("second.zb", Path("first.zb"));
  fs::create_symlink("real/set.zb", Path("second.zb"));
  WriteFile(Path("first.zb"), "new");
  EXPECT_TRUE(fs::is_symlink(Path("first.zb")) && fs::is_symlink(Path("second.zb")));
  EXPECT_EQ(ReadFile(Path("real/set.zb")), "new");
  fs::create_symlink("loop.zb", Path("loop.zb"));
  ExpectFault([&] { WriteFile(Path("loop.zb"), "x"); }, Path("loop.zb"), "symbolic links");
}

TEST_F(Files, AFileThatDiffersInCaseIsTheOneThatIsWritten) {
  const std::string old = Make("Hráči/Čeněk/SADA - Žába.zbr", "old");
  WriteFile(Path("hráči/čeněk/sada - žába.ZBR"), "new");
  EXPECT_EQ(ReadFile(old), "new");
  EXPECT_THAT(ListFiles(Path("Hráči/Čeněk"), ""), ElementsAre("SADA - Žába.zbr"));
  WriteFile(Path("hráči/čeněk/Jiná.zbr"), "other");
  EXPECT_EQ(ReadFile(Path("Hráči/Čeněk/Jiná.zbr")), "other");
  EXPECT_THAT(ListFolders(folder_.path()), ElementsAre("Hráči"));
}

TEST_F(Files, TheSameFileUnderTwoNames) {
  const std::string file = Make("Sada.zb");
  Make("other.zb");
  fs::create_symlink("Sada.zb", Path("link.zb"));
  EXPECT_TRUE(IsSameFile(file, Path("./link.zb")));
  EXPECT_TRUE(IsSameFile(file, Path("SADA.ZB")));
  EXPECT_FALSE(IsSameFile(file, Path("other.zb")));
  EXPECT_FALSE(IsSameFile(Path("missing.zb"), Path("missing.zb")));
}

TEST_F(Files, NamesAreFoundRegardlessOfCase) {
  const std::string record = Make("Hráči/Čeněk/SADA - Žába.zbr", "text");
  EXPECT_EQ(FindPath(record), record);
  EXPECT_EQ(ReadFile(Path("hráči/čeněk/sada - žába.ZBR")), "text");
  EXPECT_EQ(FindPath(Path("hráČI/čENĚK/sada - žába.zbr")), record);
  EXPECT_EQ(FindPath(Path("hráči//čeněk")), Path("Hráči//Čeněk"));
  EXPECT_EQ(FindPath(Path("Hráči/čenek")), "") << "an accent is no matter of case";
  EXPECT_EQ(FindPath(Path("hráči/čeněk/sada - žába.zbr/more")), "");
  EXPECT_EQ(FindPath(Path("hráči/čeněk/sada - žába.zbr/")), "");
  EXPECT_EQ(FindPath(""), "");
}

TEST_F(Files, TheExactNameComesFirst) {
  const std::string exact = Make("folder/a.zb");
  const std::string other = Make("FOLDER/B.zb");
  Make("folder/A.zb");
  EXPECT_EQ(FindPath(exact), exact);
  EXPECT_EQ(FindPath(Path("Folder/A.ZB")), Path("folder/A.zb"));
  EXPECT_EQ(FindPath(Path("folder/b.zb")), other) << "looks on when the first folder lacks the file";
}

TEST_F(Files, ListingsAreInTheOrderOfTheAlphabet) {
  const std::vector<std::string> sorted = {"Alfa.zb", "alfa2.zb", "Álfa2.zb", "cyp.zb", "ČERT.zb", "čert2.Zb",
                                           "Hrad.ZB", "chata.zb", "Ill.zb",   "ёж.zb",  "Ещё.zb",  "жук.zb"};
  for (const std::string& name : sorted) Make(name);
  for (const char* name : {"note.txt", "zb", "x.zbl"}) Make(name);
  fs::create_directory(Path("folder.zb"));
  fs::create_directory(Path("Archiv"));
  EXPECT_THAT(ListFiles(folder_.path(), ".zb"), ElementsAreArray(sorted));
  EXPECT_THAT(ListFolders(folder_.path()), ElementsAre("Archiv", "folder.zb"));
  EXPECT_THAT(ListFiles(Path("missing"), ".zb"), IsEmpty());
}

TEST(Tool, ShowsWhatWouldSteerATerminal) {
  EXPECT_EQ(Visible("Zorbík\x1b[2J\n\xC2\x9B\xFF\x7F"), "Zorbík\\x1b[2J\\x0a\\x9b\\xff\\x7f");
}

TEST(Tool, AFaultKeepsTheNameOfItsFileHoweverLongThePath) {
  const std::string name = std::string(255, 'n');
  const std::string shown = ShownFault(Fault("Damaged.", std::string(5000, 'f') + "/" + name), CodePage::k1250);
  EXPECT_EQ(shown.size(), 300U + std::string(": Damaged.").size());
  EXPECT_TRUE(shown.starts_with("\x85"
                                "f") &&
              shown.ends_with("f/" + name + ": Damaged."));
}

}  // namespace
