// Players, their records and what these open, without a window.

#include "campaign/progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/language.h"
#include "cave/names.h"
#include "cave/scramble.h"
#include "engine/recording.h"
#include "kit/caves.h"
#include "kit/fault_check.h"
#include "kit/scenario.h"
#include "kit/temp_folder.h"

using ::testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

const std::string kLanguages = ZORBIK_PROGRAM_DATA;

/// Folders of a program with the player Karel.
struct Players : TempFolder {
  Players() {
    fs::create_directories(Path("Hráči/Karel"));
    SetFolders(path(), "zorbik");
  }

  /// A record of the cave that SetOf makes under this name, in the folder of a player.
  void Record(const std::string& folder, const std::string& cave, const std::string& player, int score,
              int seconds = 100) const {
    const std::string text =
        RecordText("Sada", score, player, Scramble(BuildCaveText(WonByOneStep(cave, seconds)) + CaveTail(7)) + "\r\n");
    WriteFile(Path("Hráči/" + folder + "/" + ToUtf8(RecordName("Sada", cave), CodePage::k1250)), text);
  }
};

// ----------------------------------------------------------------------------------------------------------- Progress

/// Steps: set CAVE... ("*" before the name: a start point), record CAVE PLAYER POINTS [SECONDS OF ITS CAVE], load,
/// win NUMBER POINTS. The state: each cave with - locked, = open, + passed or ! another player's, and its score; the
/// points of all, what is left, the open cave before the last, the cave selected next.
class ProgressWorld : public scenario::World {
 public:
  void Do(const std::vector<std::string>& words) override {
    if (words[0] == "set") {
      EditedSet set = SetOf({});
      for (std::size_t i = 1; i < words.size(); ++i) {
        set.Poc[i] = words[i].starts_with('*');
        set.KomText[++set.PocetK] = BuildCaveText(WonByOneStep(words[i].substr(set.Poc[i] ? 1 : 0)));
      }
      SaveColl(players_.Path("sada.zb"), set);
    } else if (words[0] == "record") {
      players_.Record("Karel", words.at(1), words.at(2), std::stoi(words.at(3)),
                      words.size() > 4 ? std::stoi(words[4]) : 100);
    } else if (words[0] == "load") {
      LoadColl(players_.Path("sada.zb"), *progress_);
      progress_->ReadRecords(PlayerRecords("Karel"));
      next_ = 0;
    } else if (words[0] == "win") {
      next_ = progress_->Win(std::stoi(words.at(1)), std::stoi(words.at(2)));
    } else {
      throw std::runtime_error("there is no step " + words[0]);
    }
  }

  std::string State() override {
    std::string text;
    for (std::size_t i = 1; i <= progress_->PocetK; ++i) {
      text += progress_->KomRec[i].Name + "-=+!"[progress_->StavK[i]] + std::to_string(progress_->Score[i]) + " ";
    }
    text += "sum " + std::to_string(progress_->Total()) + " left " + std::to_string(progress_->Left());
    text += " before " + std::to_string(progress_->OpenBefore(progress_->PocetK));
    return next_ == 0 ? text : text + " next " + std::to_string(next_);
  }

 private:
  Players players_;
  std::unique_ptr<Progress> progress_ = std::make_unique<Progress>();
  int next_ = 0;
};

TEST(ProgressTest, Scenarios) {
  scenario::Run("progress", [] { return std::make_unique<ProgressWorld>(); });
}

TEST(ProgressTest, TellsWhatIsLeftInTheRightWord) {
  NactiJazyk(kLanguages + "/cestina.zbl");
  const auto progress = std::make_unique<Progress>();
  std::string words;
  for (progress->PocetK = 0; progress->PocetK <= 5; ++progress->PocetK) {
    const std::string text = ToUtf8(progress->LeftText(), CodePage::k1250);
    words += text.substr(text.find_first_of("0123456789")) + " ";
  }
  EXPECT_EQ(words, "0 . 1 komnata. 2 komnaty. 3 komnaty. 4 komnaty. 5 komnat. ");
}

TEST(ProgressTest, MoreBonusCavesThanRowsAreAFault) {
  const auto progress = std::make_unique<Progress>();
  progress->PocetK = 98;
  for (CaveRecord& cave : progress->KomRec) cave.Name = "bonus";
  ExpectFault([&] { progress->Win(1, 0); }, "", "more bonus caves");
}

// ------------------------------------------------------------------------------------------------------------ Records

TEST(RecordsTest, TellWhoseTheyAreAndWhetherTheyAreOfThisCave) {
  const Players players;
  const auto read = [](int seconds = 100) {
    return PlayerRecords("Karel").Read("Sada", "A", BuildCaveText(WonByOneStep("A", seconds)) + "---02");
  };
  EXPECT_EQ(read().verdict, Verdict::kNone);
  players.Record("Karel", "A", " KAREL ", 640);
  EXPECT_EQ(read().verdict, Verdict::kOwn) << "case, blanks around the name and the cave's number do not matter";
  EXPECT_EQ(read().score, 640);
  EXPECT_EQ(read(99).verdict, Verdict::kNone) << "another version of the cave";
  EXPECT_EQ(read(99).score, 0);
  const std::string other = players.Path("Hráči/Karel/SADA - a.zbr");
  fs::rename(players.Path("Hráči/Karel/Sada - A.zbr"), other);
  EXPECT_EQ(read().verdict, Verdict::kOwn) << "the case of file names does not matter";
  players.Record("Karel", "A", "Eva", 70);
  EXPECT_EQ(read().verdict, Verdict::kForeign) << "which takes the place of the other";
  const std::string damaged = players.Make("Hráči/Karel/sada - a.zbr", Scramble("Sada") + "\r\n");
  ExpectFault([&] { read(); }, damaged, "line 2");
}

TEST(RecordsTest, OfARussianSetAreFoundInEveryLanguage) {
  const Players players;
  const std::string dog = FromUtf8("Пёс", CodePage::k1251);
  fs::create_directories(players.Path("Hráči/Пёс"));
  players.Record("Пёс", dog, FromUtf8("пЁС", CodePage::k1251), 640);
  for (const char* language : {"cestina", "russian"}) {
    NactiJazyk(kLanguages + "/" + language + ".zbl");
    EXPECT_EQ(PlayerRecords(dog).Read("Sada", dog, BuildCaveText(WonByOneStep(dog)) + "---01").verdict, Verdict::kOwn)
        << language << ": the page of the player tells the case of the name";
  }
}

// ------------------------------------------------------------------------------------------------------------ Players

TEST(FoldersTest, StandBesideTheProgramOrAreIt) {
  const TempFolder folder;
  folder.Make("Komnaty/a.zb");
  SetFolders(folder.path(), "zorbik");
  EXPECT_EQ(CestaKomnaty, folder.path() + "/Komnaty/");
  EXPECT_EQ(CestaZaznamy, folder.path() + "/") << "there are no records";
  EXPECT_EQ(CestaHraci, folder.path() + "/Hráči");
  EXPECT_EQ(OwnSets, CestaKomnaty);

  folder.Make("Caves/a.zb");
  folder.Make("Records/a.zbr");
  SetFolders(folder.path(), "Borzeek");
  EXPECT_EQ(CestaKomnaty + CestaZaznamy + CestaHraci,
            folder.path() + "/Caves/" + folder.path() + "/Records/" + folder.path() + "/Players");

  const TempFolder other;
  other.Make("KOMNATY/a.zb");
  other.Make("hráči/x");
  SetFolders(other.path(), "zorbik");
  EXPECT_EQ(CestaKomnaty + CestaHraci, other.path() + "/KOMNATY/" + other.path() + "/hráči") << "in any case";

  SetFolders(folder.path(), "b", "/data/of/eva");
  EXPECT_EQ(CestaKomnaty, folder.path() + "/Komnaty/") << "what is shipped stays";
  EXPECT_EQ(CestaHraci + OwnSets, "/data/of/eva/Hráči/data/of/eva/Komnaty/");
}

TEST(PlayersTest, AreFoldersInTheLettersOfTheirLanguageAndInOrder) {
  const Players players;
  players.Make("Hráči/soubor");
  fs::remove(players.Path("Hráči/Karel"));
  for (const char* name : {"karel", "Žofie", "Adam", "日本"}) fs::create_directory(players.Path("Hráči/") + name);
  const std::string russian = FromUtf8("Вася", CodePage::k1251);
  const std::string czech = Cp1250("Čeněk");
  NactiJazyk(kLanguages + "/russian.zbl");
  EXPECT_TRUE(MakePlayer(russian));
  NactiJazyk(kLanguages + "/cestina.zbl");
  EXPECT_TRUE(MakePlayer(czech));
  for (const char* language : {"cestina", "russian"}) {
    NactiJazyk(kLanguages + "/" + language + ".zbl");
    EXPECT_THAT(ListPlayers(), ElementsAre("Adam", czech, "karel", Cp1250("Žofie"), russian))
        << language << "; what both code pages lack is no player";
    EXPECT_EQ(PlayerFolder(russian), players.Path("Hráči/Вася"));
    EXPECT_TRUE(PlayerPage(russian) == CodePage::k1251 && PlayerPage(czech) == CodePage::k1250);
    EXPECT_FALSE(MakePlayer(russian)) << "the player is known in every language";
  }
  NactiJazyk(kLanguages + "/cestina.zbl");
  for (const std::string& name : {Cp1250("čeněk"), std::string(), std::string(".."), std::string("  ")})
    EXPECT_FALSE(MakePlayer(name)) << name;
  fs::remove_all(CestaHraci);
  EXPECT_TRUE(MakePlayer("Eva")) << "with the folder of all players";
}

}  // namespace
