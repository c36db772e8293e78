// The help pages as they stand beside the program: reached from the menu, whole, linked, and in step with the game.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/files.h"
#include "base/language.h"
#include "base/language_file.h"
#include "base/text.h"
#include "base/web_hosts.h"
#include "cave/tiles.h"
#include "kit/run_program.h"
#include "kit/temp_folder.h"
#include "platform/links.h"
#include "shell/help_menu.h"

namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::Truly;

const std::string kHelp = ZORBIK_PROGRAM_DATA "/Help";
constexpr int kSceneTile = 48;  // pixels of a cell in a film strip

/// A language of the help.
struct Help {
  std::string code;    // as a page tells it
  std::string letter;  // before the names of its pages
  std::string texts;   // its language file
};
const std::vector<Help> kHelps = {{"cs", "", "cestina.zbl"}, {"en", "E", "english.zbl"}, {"ru", "R", "russian.zbl"}};
const std::vector<std::string> kNames = {"help.html", "pravidla.html", "editovat.html", "prispet.html",
                                         "oprogramu.html"};

/// A page's text, with ordinary blanks.
std::string Read(const std::string& path) { return Replaced(ReadFile(path), "\u00A0", " "); }

std::string PageOf(const Help& help, const std::string& name) {
  return Read(std::string(kHelp).append("/").append(help.letter).append(name));
}

std::vector<std::string> AllPages() {
  std::vector<std::string> pages;
  for (const auto& entry : fs::recursive_directory_iterator(kHelp)) {
    if (entry.path().extension().string().starts_with(".htm")) pages.push_back(entry.path().string());
  }
  return pages;
}

/// All that stands between these two.
std::vector<std::string> Between(const std::string& text, const std::string& open, const std::string& close) {
  std::vector<std::string> found;
  for (std::size_t at = text.find(open); at != std::string::npos; at = text.find(open, at)) {
    at += open.size();
    found.push_back(text.substr(at, text.find(close, at) - at));
  }
  return found;
}

bool IsPlaceholder(const std::string& text) {
  return !text.empty() &&
         text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_") == std::string::npos;
}

std::string Plain(const std::string& html) { return Replaced(html, "&amp;", "&"); }

/// The texts of a language, without the blanks around them.
std::vector<std::string> TextsOf(const Help& help) {
  const LanguageFile file = ReadLanguageFile(std::string(ZORBIK_PROGRAM_DATA "/") + help.texts);
  const CodePage page = CodePageOf(file.header.number);
  std::vector<std::string> texts;
  for (const std::string& text : file.strings) {
    const std::size_t first = text.find_first_not_of(' ');
    const std::size_t last = text.find_last_not_of(' ');
    texts.push_back(first == std::string::npos ? "" : ToUtf8(text.substr(first, last - first + 1), page));
  }
  return texts;
}

TEST(HelpPages, StandWhereTheMenuLooksInEachLanguage) {
  const TempFolder folder;
  fs::create_directory_symlink(kHelp, folder.Path("Help"));
  std::string opened;
  platform::SetLinkResponder([&opened](const std::string& link) { opened = link; });
  const HelpMenu menu;
  for (int number = 1; number <= 3; ++number) {
    std::string lines = std::to_string(number) + "\r\nname\r\n";
    for (int i = 0; i < 200; ++i) lines += "text\r\n";
    NactiJazyk(folder.Make("language.zbl", lines));
    std::set<std::string> files;
    for (const auto* item :
         {&menu.mnuHlpPravidla, &menu.mnuAbout, &menu.mnuHlpRady, &menu.mnuHlpPrispet, &menu.mnuHlp2}) {
      item->Click();
      EXPECT_TRUE(fs::is_regular_file(opened)) << opened;
      files.insert(opened);
    }
    EXPECT_EQ(files.size(), kNames.size()) << "two items open the same page";
  }
  platform::SetLinkResponder({});
  EXPECT_TRUE(fs::is_regular_file(kHelp + "/Tempo/index.htm")) << "the start screen opens the page of the contests";
}

TEST(HelpPages, AreWellFormed) {
  std::string files;
  for (const std::string& page : AllPages()) files.append(" '").append(page).append("'");
  const ProgramRun run = RunProgram(XMLLINT " --nonet --noout" + files);
  EXPECT_EQ(run.status, 0) << run.output;
}

TEST(HelpPages, TellTheirLanguageAndDescribeTheirPictures) {
  for (const Help& help : kHelps) {
    for (const std::string& name : kNames) {
      SCOPED_TRACE(help.letter + name);
      const std::string page = PageOf(help, name);
      EXPECT_NE(page.find("<html lang=\"" + help.code + "\""), std::string::npos);
      EXPECT_NE(page.find("<meta charset=\"utf-8\" />"), std::string::npos);
      const std::vector<std::string> headings = Between(page, "<h1>", "</h1>");
      ASSERT_EQ(headings.size(), 1u);
      EXPECT_THAT(Between(page, "<title>", "</title>"), ElementsAre(StartsWith(headings[0] + " – ")));
      EXPECT_THAT(Between(page, "@", "@"), Not(Contains(Truly(IsPlaceholder)))) << "a place-holder is left";
      EXPECT_THAT(Between(page, "<img ", "/>"), Each(HasSubstr(" alt=\"")));
      for (const Help& other : kHelps) {
        EXPECT_NE(page.find("href=\"" + other.letter + name + "\""), std::string::npos) << "no way to " << other.code;
      }
      std::vector<std::string> ids = Between(page, " id=\"", "\"");
      std::sort(ids.begin(), ids.end());
      EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end()) << "an anchor stands twice";
    }
  }
}

TEST(HelpPages, LinkOnlyToWhatIsThereAndToTheConfiguredAddresses) {
  const std::set<std::string> addresses = {
      std::string("http://") + kWebHostCzech + "/", std::string("http://") + kWebHostEnglish + "/",
      std::string("http://") + kWebHostRussian + "/", std::string("http://") + kAuthorHost + "/",
      std::string("mailto:") + kAuthorMail};
  for (const std::string& page : AllPages()) {
    SCOPED_TRACE(page);
    const std::string text = Read(page);
    std::vector<std::string> links = Between(text, " href=\"", "\"");
    for (const std::string& picture : Between(text, " src=\"", "\"")) links.push_back(picture);
    EXPECT_GT(links.size(), 5u);
    for (const std::string& link : links) {
      if (addresses.contains(link)) continue;
      const std::size_t hash = link.find('#');
      const std::string file = link.substr(0, hash);
      ASSERT_FALSE(file.starts_with('/') || file.find(':') != std::string::npos) << link;
      const std::string target = file.empty() ? page : (fs::path(page).parent_path() / file).string();
      EXPECT_TRUE(fs::is_regular_file(target)) << link;
      if (hash == std::string::npos || !fs::is_regular_file(target)) continue;
      EXPECT_NE(Read(target).find(" id=\"" + link.substr(hash + 1) + "\""), std::string::npos) << link;
    }
  }
  EXPECT_THAT(Read(kHelp + "/style.css"), Not(AnyOf(HasSubstr("url("), HasSubstr("@import"))));
}

TEST(HelpPages, ShowEveryTileOfThePaletteUnderItsName) {
  const std::map<char, int> palette = {{'.', 0},  {';', 1},  {'R', 2},  {'D', 3},  {'X', 5},  {'!', 6},  {'@', 7},
                                       {'W', 8},  {'T', 9},  {'A', 10}, {'M', 11}, {'K', 12}, {'#', 13}, {'%', 14},
                                       {'S', 15}, {'L', 16}, {'F', 17}, {'O', 18}, {'P', 19}, {'Q', 20}, {'U', 21},
                                       {'Y', 22}, {'Z', 23}, {'B', 24}, {'E', 25}, {'V', 26}, {'&', 27}, {'^', 28}};
  constexpr std::size_t kFirstName = 148;  // of a tile among the texts
  for (const Help& help : kHelps) {
    SCOPED_TRACE(help.code);
    const std::string page = PageOf(help, "pravidla.html");
    const std::vector<std::string> names = TextsOf(help);
    std::string shown;
    for (std::size_t at = page.find("data-tiles=\""); at != std::string::npos;
         at = page.find("data-tiles=\"", at + 1)) {
      const std::size_t start = at + std::string("data-tiles=\"").size();
      const std::string tiles = Plain(page.substr(start, page.find('"', start) - start));
      const std::string entry = page.substr(at, page.find("</section>", at) - at);
      EXPECT_NE(entry.find("<img "), std::string::npos) << tiles;
      shown += tiles;
      for (const char tile : tiles) {
        const auto found = palette.find(tile);
        if (found == palette.end()) continue;
        const std::string& name = names[kFirstName + static_cast<std::size_t>(found->second)];
        EXPECT_NE(entry.find(name), std::string::npos) << tile << " is called " << name;
      }
    }
    for (char c = '!'; c <= '~'; ++c) {
      EXPECT_EQ(std::count(shown.begin(), shown.end(), c), LoadOfCharacter(c).known ? 1 : 0) << "tile " << c;
    }
  }
}

TEST(HelpPages, CallTheProgramsCaptionsAsTheyAre) {
  for (const Help& help : kHelps) {
    const std::vector<std::string> texts = TextsOf(help);
    std::set<std::string> captions(texts.begin(), texts.end());
    captions.insert({"Zaznamenat hru", "Joystick", "Language"});  // the same in every language
    for (const std::string& name : kNames) {
      const std::string page = PageOf(help, name);
      for (const std::string& caption : Between(page, "<b class=\"caption\">", "</b>")) {
        EXPECT_TRUE(captions.contains(caption)) << caption << " in " << help.letter << name;
      }
    }
  }
}

TEST(HelpPages, HaveTheSamePicturesInEachLanguage) {
  const auto pictures = [](const Help& help, const std::string& name) {
    std::vector<std::string> files = Between(PageOf(help, name), "src=\"pictures/", "\"");
    for (std::string& file : files) {
      if (file.size() > 3 && file[2] == '_') file.erase(0, 3);  // a window, with the language that it speaks
    }
    return files;
  };
  for (const std::string& name : kNames) {
    EXPECT_EQ(pictures(kHelps[1], name), pictures(kHelps[0], name)) << name;
    EXPECT_EQ(pictures(kHelps[2], name), pictures(kHelps[0], name)) << name;
  }
}

/// In pixels: big-endian, behind the signature and the head of the first chunk.
int PngWidth(const std::string& png) {
  int width = 0;
  for (std::size_t byte = 16; byte < 20; ++byte) width = width * 256 + static_cast<unsigned char>(png.at(byte));
  return width;
}

TEST(HelpPages, MoveFilmStripsByWholeFrames) {
  for (const Help& help : kHelps) {
    const std::vector<std::string> scenes = Between(PageOf(help, "pravidla.html"), "style=\"--n:", " alt=");
    EXPECT_GT(scenes.size(), 10u) << help.code;
    for (const std::string& scene : scenes) {  // FRAMES;--w:CELLS"><div><img src="FILE"
      const int frames = std::stoi(scene);
      const int cells = std::stoi(Between(scene, "--w:", "\"").at(0));
      const std::string png = ReadFile(kHelp + "/" + Between(scene, "src=\"", "\"").at(0));
      EXPECT_EQ(PngWidth(png), frames * cells * kSceneTile) << scene;
    }
  }
}

}  // namespace
