// Language files: reading, the language in force, the shipped texts and their checker.

#include "base/language.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/language_file.h"
#include "base/language_rows.h"
#include "cave/cave_text.h"
#include "engine/hra.h"
#include "zbl_rules.h"
#include "zbl_source.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kShippedFolder = ZORBIK_LANGUAGE_FILES;   // made by the build
const std::string kSourceFolder = ZORBIK_LANGUAGE_SOURCES;  // in the repository
const std::vector<std::string> kShipped{"cestina", "english", "russian"};

std::string SourcePath(const std::string& language) { return kSourceFolder + "/" + language + ".txt"; }

std::string ShippedPath(const std::string& language) { return kShippedFolder + "/" + language + ".zbl"; }

/// The lines as a text, the end behind each.
std::string Joined(const std::vector<std::string>& lines, const std::string& end) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(end);
  return text;
}

/// A language file with so many rows "row 0", "row 1" ...
std::string FileBytes(const std::string& number, int rows = kLangStrCount) {
  std::vector<std::string> lines{number, "Name"};
  for (int i = 0; i < rows; ++i) lines.push_back("row " + std::to_string(i));
  return Joined(lines, "\r\n");
}

template <class Action>
std::string MessageOf(Action action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.message();
  }
  return "no fault";
}

/// Every test begins with no language and with the counters of the two kinds of step at 0.
class LanguageTest : public testing::Test {
 protected:
  LanguageTest() {
    [[maybe_unused]] static const bool registered = Register();
    LangStr.fill({});
    HeroName = WebHra = HelpCesta = {};
    LanguageLetter = ' ';
    LogoNumber = 0;
    steps.clear();
    std::filesystem::create_directories(folder_);
  }
  ~LanguageTest() override { std::filesystem::remove_all(folder_); }

  std::string Write(const std::string& bytes) const {
    std::string path = folder_ + "/test.zbl";
    WriteFile(path, bytes);
    return path;
  }

  std::string folder_ = testing::TempDir() + "/zorbik_language_" + std::to_string(getpid());
  inline static std::vector<std::string> steps;

 private:
  static bool Register() {
    OnSetLFont([] { steps.emplace_back("font"); });
    OnSetLW([] { steps.emplace_back("first " + LangStr[text::kPlay] + HeroName.substr(0, 1)); });
    OnSetLW([] { steps.emplace_back("second"); });
    return true;
  }
};

TEST(LanguageFileTest, LinesEndInEitherWayAndSurplusOnesAreIgnored) {
  std::vector<std::string> lines(kLanguageFileLines - 1);
  lines[0] = "1";
  lines[1] = "M\xE1j";
  lines[2] = "#a##b#";
  for (const std::string end : {"\r\n", "\n"}) {
    for (const std::vector<std::string>& rest : {std::vector<std::string>{"last"}, {"last", "surplus", ""}}) {
      std::string bytes = Joined(lines, end) + Joined(rest, end);
      if (rest.size() == 1) bytes.resize(bytes.size() - end.size());  // the last line needs no end
      const LanguageFile file = ParseLanguageFile(bytes);
      EXPECT_EQ(file.header.number, 1);
      EXPECT_EQ(file.header.name, "M\xE1j");
      EXPECT_EQ(file.strings[0], "\r\na\r\n\r\nb\r\n");
      EXPECT_EQ(file.strings[1], "");
      EXPECT_EQ(file.strings[199], "last");
    }
  }
}

TEST(LanguageFileTest, NumberLineIsDigitsOrZero) {
  const auto number = [](const std::string& line) { return ParseLanguageHeader(line + "\nName").number; };
  EXPECT_EQ(number("2"), 2);
  EXPECT_EQ(number(" 3 "), 3);
  EXPECT_EQ(number("007"), 7);
  for (const char* line : {"", " ", "-1", "1x", "x1", "1 2", "1.", "4294967297", "\xEF\xBB\xBF\x31"})
    EXPECT_EQ(number(line), 0) << line;
}

TEST(LanguageFileTest, ShortAndMissingFilesAreNamedInTheFault) {
  const auto parse = [](const std::string& bytes) { return MessageOf([&] { ParseLanguageFile(bytes, "a.zbl"); }); };
  EXPECT_EQ(parse(FileBytes("1", 55)), "a.zbl: The language file has only 57 of 202 lines.");
  EXPECT_EQ(parse(FileBytes("1", 199)), "a.zbl: The language file has only 201 of 202 lines.");
  EXPECT_EQ(parse(""), "a.zbl: The language file has only 0 of 202 lines.");
  EXPECT_EQ(MessageOf([] { ParseLanguageHeader("1\r\n", "b.zbl"); }),
            "b.zbl: The language file has only 1 of 202 lines.");
  EXPECT_THAT(MessageOf([] { ReadLanguageFile("/nowhere/c.zbl"); }), HasSubstr("/nowhere/c.zbl"));
  EXPECT_THAT(MessageOf([] { ReadLanguageHeader("/nowhere"); }), HasSubstr("/nowhere"));
}

TEST_F(LanguageTest, NumberSelectsTheHeroAndHisSurroundings) {
  NactiJazyk(Write(FileBytes("2")));
  EXPECT_EQ(HeroName, "Borzeek");
  EXPECT_EQ(HelpCesta, folder_ + "/Help/E");
  EXPECT_EQ(LanguageLetter, 'S');
  EXPECT_EQ(LogoNumber, 2);
  const std::string englishHost = WebHra;
  NactiJazyk(Write(FileBytes("1")));
  EXPECT_EQ(HeroName, "Zorb\xEDk");
  EXPECT_EQ(HelpCesta, folder_ + "/Help/");
  EXPECT_EQ(LanguageLetter, 'P');
  EXPECT_EQ(LogoNumber, 1);
  const std::string czechHost = WebHra;
  EXPECT_NE(czechHost, englishHost);
  NactiJazyk(Write(FileBytes("3")));
  EXPECT_EQ(ToUtf8(HeroName, CodePage::k1250), "ÇÎĐÁČ");
  EXPECT_TRUE(WebHra != czechHost && WebHra != englishHost) << WebHra;
  EXPECT_EQ(HelpCesta, folder_ + "/Help/R");
  EXPECT_EQ(LanguageLetter, 'S');
  EXPECT_EQ(LogoNumber, 3);
}

TEST_F(LanguageTest, UnknownNumberChangesTheTextsAlone) {
  const std::string path = Write(FileBytes("4"));
  NactiJazyk(path);
  EXPECT_EQ(LangStr[text::kTranslationText], "row 199");
  EXPECT_EQ(HeroName, "");
  EXPECT_THAT(steps, ElementsAre("first row 0", "second", "font")) << "no name yet counts as not Latin";
  NactiJazyk(Write(FileBytes("1")));
  NactiJazyk(Write(FileBytes("0")));
  EXPECT_EQ(HeroName, "Zorb\xEDk");
  EXPECT_EQ(LogoNumber, 1);
}

TEST_F(LanguageTest, CaptionsFollowTheNewLanguageAndFontsOnlyACyrillicName) {
  NactiJazyk(Write(FileBytes("1")));
  EXPECT_THAT(steps, ElementsAre("first row 0Z", "second"));
  steps.clear();
  NactiJazyk(Write(FileBytes("3")));
  EXPECT_THAT(steps, ElementsAre("first row 0\xC7", "second", "font"));
  steps.clear();
  NactiJazyk(Write(FileBytes("1")));
  EXPECT_THAT(steps, ElementsAre("first row 0Z", "second")) << "nothing takes the fonts back";
}

TEST_F(LanguageTest, ShortFileChangesNothing) {
  NactiJazyk(Write(FileBytes("1")));
  steps.clear();
  EXPECT_THROW(NactiJazyk(Write(FileBytes("2", 150))), Fault);
  EXPECT_EQ(LangStr[text::kTranslationText], "row 199");
  EXPECT_EQ(HeroName, "Zorb\xEDk");
  EXPECT_THAT(steps, IsEmpty());
}

TEST_F(LanguageTest, ShippedTextsServeTheirRoutines) {
  NactiJazyk(ShippedPath("cestina"));
  const CaveRecord small = ParseCaveText(CaveTemplate(NewCave::kSmall));
  EXPECT_EQ(small.Name, Cp1250("Malou"));
  EXPECT_EQ(small.Description, Cp1250("Sem napiš popis."));

  std::string message;
  Hooks hooks;
  hooks.showMessage = [&message](const std::string& text, std::uint32_t) { message = ToUtf8(text, PageInForce()); };
  Hra game;
  game.hooks = &hooks;
  game.MultiHero = true;
  game.HeroCount = 3;
  game.Command1_Click();
  EXPECT_EQ(message, "V komnatě jsou 3 Zorbíci. Přepínáš je klávesou Tab.");
  game.HeroCount = 5;
  game.Command1_Click();
  EXPECT_EQ(message, "V komnatě je 5 Zorbíků. Přepínáš je klávesou Tab.");
  NactiJazyk(ShippedPath("russian"));
  game.Command1_Click();
  EXPECT_EQ(message, "В пещере 5 псов. Переключайся между ними клавишей Tab.");
}

TEST(ShippedLanguageTest, NotesInTheSourcesAreUpToDate) {
  for (const std::string& language : kShipped) {
    const std::string source = ReadFile(SourcePath(language));
    EXPECT_EQ(Annotated(source), source) << "renew them with zblmake --annotate";
  }
}

TEST(ShippedLanguageTest, AreWithoutMistakesAndListedByTheirNames) {
  std::vector<std::string> names;
  for (const std::string& language : kShipped) {
    EXPECT_THAT(CheckLanguageFile(ReadFile(ShippedPath(language))), IsEmpty()) << language;
    const LanguageHeader header = ReadLanguageHeader(ShippedPath(language));
    names.push_back(ToUtf8(header.name, CodePageOf(header.number)));
  }
  EXPECT_THAT(names, ElementsAre("Čeština", "English", "Русский"));
}

/// The findings for the shipped Czech file after the text of one row was replaced.
std::vector<std::string> FindingsWith(int row, const std::string& text) {
  std::vector<std::string> lines = SplitLines(ReadFile(ShippedPath("cestina")));
  lines[static_cast<std::size_t>(row) + 2] = text;
  return CheckLanguageFile(Joined(lines, "\r\n"));
}

TEST(CheckLanguageFileTest, FindsWhatATranslatorCanSpoilInARow) {
  struct Case {
    int row;
    std::string text;
    std::string finding;
  };
  const std::vector<Case> cases{
      {47, "Uložit?", "has lost \"?1?\""},
      {115, "Ahoj ?1?", "has lost \"?2?\""},
      {147, "x ?1? x  ?2?", "has lost \"  ?1?\""},
      {90, "Jsou tu2-4 psi", "has lost \" 2-4\""},
      {54, "Hotovo", "has lost \"$P\""},
      {16, "Nova ?1?", "holds \"?1?\", which nothing replaces"},
      {15, "Sada ", "has to begin and end with a blank"},
      {2, " Editor", "begins with a blank"},
      {3, "Help ", "ends with a blank"},
      {28, "Edit#ovat", "holds a line break"},
      {78, "Chybí ti.", "ends a sentence"},
      {83, "pro A&B", "break the link"},
      {0, "", "is empty"},
      {6, "Konec celého programu", "characters; 10 fit"},
      {17, "Tab\there", "holds the byte 9,"},
      {17, "\x81", "holds the byte 129,"},
      {17, "\x7F", "holds the byte 127,"},
  };
  for (const Case& one : cases) {
    const std::string bytes = one.text.size() == 1 ? one.text : Cp1250(one.text);
    EXPECT_THAT(FindingsWith(one.row, bytes),
                ElementsAre(AllOf(HasSubstr("row " + std::to_string(one.row) + " "), HasSubstr(one.finding))))
        << one.text;
  }
  EXPECT_THAT(FindingsWith(108, "Sada ?1?"), IsEmpty()) << "a question mark of a place-holder ends no sentence";
}

TEST(CheckLanguageFileTest, FindsWhatIsWrongWithTheWholeFile) {
  const std::string good = ReadFile(ShippedPath("cestina"));
  EXPECT_THAT(CheckLanguageFile(good + "more\r\n"), ElementsAre(HasSubstr("203 lines instead of 202")));
  EXPECT_THAT(CheckLanguageFile(good.substr(0, good.rfind("Zorb"))), ElementsAre(HasSubstr("lines instead of 202")))
      << "a cut last row";
  EXPECT_THAT(CheckLanguageFile(""), ElementsAre(HasSubstr("0 lines instead of 202")));
  EXPECT_THAT(CheckLanguageFile("5" + good.substr(1)), ElementsAre(HasSubstr("line 1")));
  EXPECT_THAT(CheckLanguageFile(ToUtf8(good, CodePage::k1250)), testing::Contains(HasSubstr("UTF-8")));
}

TEST(ZblSourceTest, MistakesAreNamedWithTheirLine) {
  const std::string source = ReadFile(SourcePath("english"));
  const auto message = [&source](const std::string& from, const std::string& to) {
    std::string changed = source;
    const std::size_t at = changed.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    changed.replace(at, from.size(), to);
    return MessageOf([&changed] { BytesOfSource(changed, "e.txt"); });
  };
  EXPECT_THAT(message("number 2", "number two"), HasSubstr("e.txt:3: The language number"));
  EXPECT_THAT(message("name \"English\"", "name English"), HasSubstr("e.txt:4: The text of \"name\""));
  EXPECT_THAT(message("000 \"Play\"", "000 \"Пли\""), AllOf(HasSubstr("e.txt:8:"), HasSubstr("\"П\"")));
  EXPECT_THAT(message("001 ", "002 "), HasSubstr("e.txt:10: Expected \"001\""));
  EXPECT_THAT(message("\n199 ", "\n;; "), HasSubstr("ends before \"199\""));
  EXPECT_THAT(message("\n199 ", "\n199 \"\"\n200 "), HasSubstr("nothing to come"));
  EXPECT_THAT(message("\n199 ", "\n199 \"\"\n;; "), "no fault");
}

TEST(ZblSourceTest, TextsKeepTheirBlanksAndQuotes) {
  std::string source = "number 3\nname \"Пёс\"\n";
  for (int i = 0; i < kLangStrCount; ++i) source += std::to_string(1000 + i).substr(1) + " \" \"a\" \"\n";
  const std::string bytes = BytesOfSource(source, "r.txt");
  EXPECT_EQ(bytes.substr(0, 16), "3\r\n\xCF\xB8\xF1\r\n \"a\" \r\n ");
  EXPECT_EQ(ParseLanguageFile(bytes).strings[199], " \"a\" ");
}

}  // namespace
