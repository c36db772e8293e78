// The player's road on the offscreen platform, driven by keys and mouse as a player does: first start, players, sets,
// the overview, a played set, replays, settings.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/web_hosts.h"
#include "campaign/players.h"
#include "cave/cave_text.h"
#include "cave/names.h"
#include "cave/scramble.h"
#include "cave/set_file.h"
#include "desk.h"
#include "engine/recording.h"
#include "fault_check.h"
#include "platform/file_dialog.h"
#include "platform/keys.h"
#include "platform/links.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/testing.h"
#include "platform/window_shape.h"
#include "shell/program.h"
#include "shell/registry_values.h"
#include "temp_folder.h"

using namespace platform;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

namespace fs = std::filesystem;

const std::string kData = ZORBIK_PROGRAM_DATA;

/// A cave that is won by a step to the right in its first ticks: 100 points for its gem-less exit come from the time.
std::string WonByOneStep(const std::string& name, int seconds = 100) {
  CaveRecord cave;
  cave.Name = name;
  cave.Description = "Popis " + name;
  cave.Time = static_cast<std::int16_t>(seconds);
  cave.PointsBefore = 5;
  cave.PointsAfter = 7;
  cave.Width = 19;
  cave.Height = 11;
  cave.Cells.fill(';');
  cave.Cell(3, 3) = '1';
  cave.Cell(4, 3) = 'T';
  return BuildCaveText(cave);
}

/// A set of caves with these names; the first one is a start point.
EditedSet SetOf(const std::string& name, const std::vector<std::string>& caves) {
  EditedSet set;
  set.Name = name;
  set.Author = "Eva";
  set.Mail = "eva@jeskyne.cz";
  set.Description = "Popis sady";
  set.PocetK = static_cast<std::uint8_t>(caves.size());
  for (std::size_t i = 0; i < caves.size(); ++i) set.KomText[i + 1] = WonByOneStep(caves[i]);
  set.Gratulace = "Gratulujeme! $P a $P";
  return set;
}

std::vector<std::string> Names(int count) {
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) names.push_back("Komnata " + std::to_string(i));
  return names;
}

/// A folder with the program's data, and a store of its own for the settings.
class Desk : public TempFolder {
 public:
  Desk() {
    Registr::SetFolder(Path("config"));
    fs::create_directory(Path("config"));
    fs::create_directory(Path("game"));
    fs::create_symlink(kData + "/pictures", Path("game/pictures"));
    for (const char* language : {"cestina.zbl", "english.zbl", "russian.zbl"}) {
      fs::copy_file(kData + "/" + language, Path(std::string("game/") + language));
    }
    fs::create_directory(Path("game/Komnaty"));
  }

  void AddSet(const std::string& file, EditedSet set) const { SaveColl(Path("game/Komnaty/" + file), set); }
  void AddPlayer(const std::string& name) const { fs::create_directories(Path("game/Hráči/" + name)); }

  /// A record of a cave as WonByOneStep makes it, in the folder of a player.
  void AddRecord(const std::string& folder, const std::string& set, const std::string& cave, const std::string& player,
                 int score, const std::string& caveText) const {
    const std::string text = RecordText(set, score, player, Scramble(caveText) + "\r\n");
    WriteFile(Path("game/Hráči/" + folder + "/" + Utf8(CistyNazev(set + " - " + cave)) + ".zbr"), text);
  }

  /// Starts the program with its language chosen before.
  Program& Start(const std::string& language = "cestina.zbl") {
    CreateProgramKey();
    WriteText(registry::kJazyk, language);
    Run();
    return *program;
  }
  void Run(const std::string& executable = "zorbik", const std::string& dataFolder = {}) {
    program.reset();
    program = std::make_unique<Program>(Path("game"), executable, dataFolder);
    program->Main();
    user::WaitUntil([this] { return user::HasInput(program->frmStart2); });
  }

  std::unique_ptr<Program> program;
};

void SetFastest(Desk& /*desk*/) {
  CreateProgramKey();
  WriteNumber(registry::kRychlost, 1);
}

/// The overview of a set for the player Karel.
struct Overview : Desk {
  explicit Overview(const EditedSet& set, const std::function<void(Desk&)>& before = {}) {
    AddSet("sada.zb", set);
    AddPlayer("Karel");
    if (before) before(*this);
    Start();
    user::Click(program->frmStart2.Image3, 70, 30);
    user::Click(program->frmStart2.Command3);
    user::WaitUntil([this] { return user::HasInput(program->frmPoSt); });
  }

  FrmPoSt& form() { return program->frmPoSt; }
  std::string Cave(int row) { return form().lblCave[static_cast<std::size_t>(row)]->caption(); }
  std::string Score(int row) { return form().lblScore[static_cast<std::size_t>(row)]->caption(); }
  std::vector<int> States() { return {form().StavK.begin() + 1, form().StavK.begin() + 1 + form().PocetK}; }
  /// Plays the selected cave to its end.
  void Win(const std::function<void()>& atFirst = {}) {
    user::TapKey(kKeyEnter);
    ASSERT_TRUE(user::WaitUntil([this] { return user::HasInput(program->hra); }));
    if (atFirst) atFirst();
    bool closed = false;
    InTurn({[&] {
      user::TapKey(kKeyEnter);
      closed = true;
    }});
    user::PressKey(kKeyRight);
    ASSERT_TRUE(user::WaitUntil([&] { return closed && user::HasInput(form()); }));
    user::ReleaseKey(kKeyRight);
  }
};

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
  EXPECT_EQ(CestaKomnaty, folder.path() + "/Caves/");
  EXPECT_EQ(CestaZaznamy, folder.path() + "/Records/");
  EXPECT_EQ(CestaHraci, folder.path() + "/Players");

  const TempFolder other;
  other.Make("KOMNATY/a.zb");
  other.Make("hráči/x");
  SetFolders(other.path(), "zorbik");
  EXPECT_EQ(CestaKomnaty, other.path() + "/KOMNATY/") << "the case of names does not matter";
  EXPECT_EQ(CestaHraci, other.path() + "/hráči");

  SetFolders(folder.path(), "b", "/data/of/eva");
  EXPECT_EQ(CestaKomnaty, folder.path() + "/Komnaty/") << "what is shipped stays";
  EXPECT_EQ(CestaHraci, "/data/of/eva/Hráči");
  EXPECT_EQ(OwnSets, "/data/of/eva/Komnaty/");
}

TEST(PlayersTest, AreFoldersInOrderOfTheirNames) {
  NactiJazyk(kData + "/cestina.zbl");
  const TempFolder folder;
  SetFolders(folder.path(), "zorbik");
  fs::create_directory(folder.Path("Hráči"));
  folder.Make("Hráči/soubor");
  for (const char* name : {"karel", "Žofie", "Adam", "Ёж", "日本"}) fs::create_directory(folder.Path("Hráči/") + name);
  EXPECT_THAT(ListPlayers(), ElementsAre("Adam", "karel", Cp1250("Žofie"), FromUtf8("Ёж", CodePage::k1251)))
      << "what both code pages lack is no player";
  EXPECT_TRUE(MakePlayer(Cp1250("Čeněk")));
  EXPECT_TRUE(fs::is_directory(folder.Path("Hráči/Čeněk")));
  EXPECT_FALSE(MakePlayer(Cp1250("čeněk"))) << "the same name";
  EXPECT_FALSE(MakePlayer("")) << "the folder of all players";
  EXPECT_FALSE(MakePlayer(".."));
  EXPECT_FALSE(MakePlayer("  ")) << "nobody could tell this player from none";
  fs::remove_all(CestaHraci);
  EXPECT_TRUE(MakePlayer("Eva")) << "with the folder of all players";
}

TEST(PlayersTest, HaveFoldersNamedInTheLettersOfTheirLanguage) {
  const TempFolder folder;
  SetFolders(folder.path(), "zorbik");
  fs::create_directory(folder.Path("Hráči"));
  const std::string russian = FromUtf8("Вася", CodePage::k1251);
  const std::string czech = Cp1250("Žofie");
  NactiJazyk(kData + "/russian.zbl");
  EXPECT_TRUE(MakePlayer(russian));
  NactiJazyk(kData + "/cestina.zbl");
  EXPECT_TRUE(MakePlayer(czech));
  for (const char* language : {"cestina", "russian"}) {
    NactiJazyk(kData + "/" + language + ".zbl");
    EXPECT_EQ(PlayerFolder(russian), folder.Path("Hráči/Вася")) << language;
    EXPECT_EQ(PlayerPage(russian), CodePage::k1251);
    EXPECT_EQ(PlayerFolder(czech), folder.Path("Hráči/Žofie"));
    EXPECT_EQ(PlayerPage(czech), CodePage::k1250);
    EXPECT_FALSE(MakePlayer(russian)) << "the player is known in every language";
    EXPECT_THAT(ListPlayers(), ElementsAre(czech, russian));
  }
}

TEST(RecordsTest, TellWhoseTheyAreAndWhetherTheyAreOfThisCave) {
  const Desk desk;
  SetFolders(desk.Path("game"), "zorbik");
  desk.AddPlayer("Karel");
  const std::string cave = WonByOneStep("A");
  const auto read = [&](const std::string& text) { return PlayerRecords("Karel").Read("Sada", "A", text + "---07"); };
  EXPECT_EQ(read(cave).verdict, Verdict::kNone);

  desk.AddRecord("Karel", "Sada", "A", " KAREL ", 640, cave + "---02");
  EXPECT_EQ(read(cave).verdict, Verdict::kOwn) << "case, blanks around the name and the cave's number do not matter";
  EXPECT_EQ(read(cave).score, 640);
  EXPECT_EQ(read(WonByOneStep("A", 99)).verdict, Verdict::kNone) << "another version of the cave";
  EXPECT_EQ(read(WonByOneStep("A", 99)).score, 0);
  const std::string other = desk.Path("game/Hráči/Karel/SADA - a.zbr");
  fs::rename(desk.Path("game/Hráči/Karel/Sada - A.zbr"), other);
  EXPECT_EQ(read(cave).verdict, Verdict::kOwn) << "the case of file names does not matter";
  fs::remove(other);

  desk.AddRecord("Karel", "Sada", "A", "Eva", 70, cave + "---02");
  EXPECT_EQ(read(cave).verdict, Verdict::kForeign);
  EXPECT_EQ(read(cave).score, 70);

  const std::string damaged = desk.Make("game/Hráči/Karel/Sada - A.zbr", Scramble("Sada") + "\r\n");
  ExpectFault([&] { read(cave); }, damaged, "line 2");
}

TEST(RecordsTest, OfARussianSetAreFoundInEveryLanguage) {
  const Desk desk;
  SetFolders(desk.Path("game"), "zorbik");
  const std::string dog = FromUtf8("Пёс", CodePage::k1251);
  const std::string cave = WonByOneStep("A");
  desk.AddPlayer("Пёс");
  // Case does not matter in a name of Cyrillic letters either, whatever language is spoken.
  desk.AddRecord("Пёс", dog, "A", FromUtf8("пЁС", CodePage::k1251), 640, cave + "---02");
  for (const char* language : {"cestina", "russian"}) {
    NactiJazyk(kData + "/" + language + ".zbl");
    EXPECT_EQ(PlayerRecords(dog).Read(dog, "A", cave + "---07").verdict, Verdict::kOwn) << language;
  }
}

// ------------------------------------------------------------------------------------------- First start, new players

TEST(StartTest, AsksANewUserForLanguageAndName) {
  Desk desk;
  desk.AddSet("sada.zb", SetOf("Sada", {"A"}));
  Boxes boxes;
  InTurn({[] {
            user::TapKey(kKeyDown);
            user::TapKey(kKeyEnter);
          },
          [] {
            user::Type("?*/");
            user::TapKey(kKeyEnter);
          },
          [] {
            user::Type("Karel Ж");  // not without the letter that cannot be kept
            user::TapKey(kKeyEnter);
          },
          [] { user::TapKey(kKeyEscape); },
          [] {
            user::Type("Kare?l");
            user::TapKey(kKeyEnter);
          }});
  desk.Run();
  const FrmStart2& start = desk.program->frmStart2;
  EXPECT_EQ(HeroName, "Borzeek");
  EXPECT_EQ(start.Label1.caption(), "Play");
  EXPECT_EQ(ReadText(registry::kJazyk), "english.zbl");
  EXPECT_THAT(boxes.texts, ElementsAre(HasSubstr("cannot be created: A player with this name"), boxes.texts[0],
                                       AllOf(HasSubstr("Welcome, Karel!"), HasSubstr(desk.Path("game/Hráči/Karel")))));
  EXPECT_EQ(start.List2.item(start.List2.list_index()), "Karel");
  EXPECT_EQ(desk.program->hra.PlayerName, "Karel");
  EXPECT_EQ(start.List1.item(0), "Sada (sada.zb)");
  EXPECT_TRUE(start.visible());
  EXPECT_FALSE(desk.program->frmLoading.visible());
  EXPECT_EQ(ReadNumber(registry::kAnimovatAaB), 1);
  EXPECT_EQ(ReadNumber(registry::kRychlost), 8);
  EXPECT_EQ(ReadNumber(registry::kRychlostZ), 1);
  EXPECT_EQ(ReadNumber(registry::kDatPauzu), 1);
  EXPECT_EQ(ReadNumber(registry::kZvuk), 1);
  EXPECT_EQ(ReadNumber(registry::kJoystick), 0);
  EXPECT_EQ(desk.program->hra.tmrHra.interval(), 80) << "before the first cave";

  desk.Run();
  EXPECT_EQ(HeroName, "Borzeek") << "asked once";
  for (const char* lost : {"gone.zbl", "Komnaty"}) {  // the latter is a folder
    InTurn({[] {
      user::TapKey(kKeyDown);
      user::TapKey(kKeyEnter);
    }});
    desk.Start(lost);
    EXPECT_EQ(ReadText(registry::kJazyk), "english.zbl") << "asked again, and the answer counts";
  }
}

TEST(StartTest, KeepsThePlaceOfThePlayerInTheListAndNotTheName) {
  Desk desk;
  desk.AddPlayer("Karel");
  desk.AddPlayer("Zora");
  FrmStart2& start = desk.Start().frmStart2;
  user::Click(start.Image3, 70, 30);
  start.List2.SetFocus();
  user::TapKey(kKeyDown);
  EXPECT_EQ(desk.program->hra.PlayerName, "Zora");
  EXPECT_EQ(ReadNumber(registry::kPosledniHrac), 1);

  Boxes boxes;
  const auto add = [&](const std::string& name) {
    InTurn({[name] {
      user::Type(name);
      user::TapKey(kKeyEnter);
    }});
    user::Click(start.Command1);
  };
  add("karel");
  EXPECT_THAT(boxes.texts.back(), HasSubstr(Utf8(LangStr[48])));
  EXPECT_EQ(start.List2.count(), 2);
  EXPECT_EQ(desk.program->frmDialog3.Text1.text(), "");
  add("Adam");
  EXPECT_THAT(boxes.texts.back(), HasSubstr("Adam"));
  EXPECT_EQ(start.List2.count(), 3);
  EXPECT_EQ(desk.program->hra.PlayerName, "Karel") << "whose place is now the second";
  EXPECT_TRUE(start.List2.has_focus());
  user::TapKey(kKeyEnter);
  EXPECT_TRUE(start.List1.has_focus()) << "goes on to the sets and does not play as Karel yet";

  WriteNumber(registry::kPosledniHrac, 7);
  desk.Run();
  EXPECT_EQ(desk.program->hra.PlayerName, "Zora") << "the last one";
}

TEST(StartTest, ListsShippedAndOwnSetsTogether) {
  Desk desk;
  desk.AddSet("b.zb", SetOf("Be", {"A"}));
  desk.Make("game/Komnaty/a.zb", "");
  EditedSet own = SetOf("Vlastní", {"A"});
  own.Name = Cp1250("Vlastní");
  desk.Make("data/Komnaty/x");
  SaveColl(desk.Path("data/Komnaty/c.zb"), own);
  fs::create_directories(desk.Path("data/Hráči/Eva"));
  CreateProgramKey();
  WriteText(registry::kJazyk, "cestina.zbl");
  desk.Run("zorbik", desk.Path("data"));
  FrmStart2& start = desk.program->frmStart2;
  EXPECT_EQ(desk.program->hra.PlayerName, "Eva");
  ASSERT_EQ(start.List1.count(), 3);
  EXPECT_EQ(start.List1.item(0), " (a.zb)") << "a set that cannot be read has no name";
  EXPECT_EQ(start.List1.item(2), Cp1250("Vlastní (c.zb)"));
  start.List1.set_list_index(2);
  start.Command3_Click();
  EXPECT_EQ(desk.program->frmPoSt.Label4.caption(), own.Name);
}

// ----------------------------------------------------------------------------------------------------------- The panel

TEST(StartTest, RoundButtonsAreRoundAndThePanelClosesByItself) {
  Desk desk;
  desk.AddPlayer("Karel");
  FrmStart2& start = desk.Start().frmStart2;
  EXPECT_TRUE(InWindow(start, 10, 209) && InWindow(start, 607, 8)) << "round buttons and the corner";
  EXPECT_FALSE(InWindow(start, 4, 4) || InWindow(start, 600, 470));
  EXPECT_TRUE(InWindow(start, 140, 384)) << "the badge, beside the disc";
  user::Click(start.Image3, 22, 22);
  EXPECT_FALSE(start.Picture1.visible()) << "76.4 pixels from the centre";
  user::Click(start.Image3, 23, 22);
  EXPECT_TRUE(start.Picture1.visible());
  EXPECT_FALSE(start.Image1.visible() || start.Label8_4.visible());
  EXPECT_FALSE(InWindow(start, 140, 384));
  EXPECT_FALSE(start.Command3.enabled()) << "there is no set";
  ExpectFault([&] { start.Command3_Click(); }, "", "No cave set");

  user::MoveMouse(start.Image4, 40, 40);
  EXPECT_TRUE(start.Timer1.enabled());
  user::MoveMouse(start.Image10, 8, 60);
  EXPECT_FALSE(start.Timer1.enabled());
  user::MoveMouse(start.Image6, 40, 40);
  ASSERT_TRUE(user::WaitUntil([&] { return !start.Picture1.visible(); }));
  EXPECT_FALSE(start.Timer1.enabled());
  EXPECT_TRUE(start.Image1.visible() && start.Label8_4.visible());
  EXPECT_TRUE(InWindow(start, 140, 384));

  start.Label1.SetFocus();
  user::TapKey(kKeyEnter);
  EXPECT_TRUE(start.Picture1.visible()) << "by keyboard";
  user::TapKey(kKeyEscape);
  EXPECT_FALSE(start.Picture1.visible());
}

TEST(StartTest, AsksForFilesAndIgnoresNone) {
  Desk desk;
  desk.AddPlayer("Karel");
  FrmStart2& start = desk.Start().frmStart2;
  std::vector<std::string> asked;
  SetFileDialogResponder([&](const FileDialog& dialog) {
    asked.push_back(dialog.title + "|" + dialog.filter + "|" + dialog.folder + "|" + std::to_string(dialog.flags));
    return std::string();
  });
  user::Click(start.Label1);
  user::Click(start.Command2);
  user::Click(start.Label2);
  SetFileDialogResponder({});
  const std::string zero(1, '\0');
  EXPECT_THAT(asked, ElementsAre(LangStr[111] + "|" + LangStr[56] + "(*.zb)" + zero + "*.zb" + zero + "|" +
                                     CestaKomnaty + "|4100",
                                 LangStr[109] + "|" + LangStr[110] + " (*.zbr)" + zero + "*.zbr" + zero + "|" +
                                     CestaZaznamy + "|4100"));
  EXPECT_TRUE(start.visible());
  EXPECT_FALSE(desk.program->hra.visible() || desk.program->frmPoSt.visible());
}

TEST(StartTest, EndsAtOnceAndKeepsTheStateOfTheGameWindow) {
  Desk desk;
  desk.AddPlayer("Karel");
  Program& program = desk.Start();
  const auto end_with = [&](WindowState state) {
    program.hra.set_window_state(state);
    EXPECT_EXIT(program.frmStart2.Close(), ::testing::ExitedWithCode(0), "");
    return ReadNumber(registry::kMaximized);
  };
  EXPECT_EQ(end_with(WindowState::kMaximised), 1);
  EXPECT_EQ(end_with(WindowState::kMinimised), 0);
}

TEST(StartTest, CopiesASetFromElsewhereAndKeepsOneOlderCopy) {
  Desk desk;
  desk.AddPlayer("Karel");
  desk.Start();
  FrmStart2& start = desk.program->frmStart2;
  fs::create_directory(desk.Path("jinde"));
  const std::string source = desk.Path("jinde/cizi.zb");
  const auto open = [&](const std::string& name, BoxAnswer copy, BoxAnswer remove) {
    EditedSet set = SetOf(name, {"A"});
    SaveColl(source, set);
    Boxes boxes({copy, remove});
    std::string path = source;
    start.AnotherColl(path);
    EXPECT_EQ(desk.program->frmPoSt.Label4.caption(), name);
    EXPECT_EQ(desk.program->frmPoSt.caption(), LangStr[108] + " Karel");
    desk.program->frmPoSt.Close();
    return path;
  };
  EXPECT_EQ(open("Prvni", BoxAnswer::kNo, BoxAnswer::kNo), source);
  EXPECT_EQ(start.List1.count(), 0);
  EXPECT_EQ(open("Druha", BoxAnswer::kYes, BoxAnswer::kNo), CestaKomnaty + "cizi.zb");
  EXPECT_EQ(open("Treti", BoxAnswer::kYes, BoxAnswer::kNo), CestaKomnaty + "cizi~.zb");
  EXPECT_EQ(open("Ctvrta", BoxAnswer::kYes, BoxAnswer::kYes), CestaKomnaty + "cizi~.zb");
  EXPECT_FALSE(fs::exists(source));
  EXPECT_THAT(ListFiles(CestaKomnaty, ".zb"), ElementsAre("cizi.zb", "cizi~.zb"));
  EXPECT_EQ(start.List1.item(1), "Ctvrta (cizi~.zb)");
  std::string kept = source;
  EditedSet fifth = SetOf("Pata", {"A"});
  SaveColl(kept, fifth);
  InTurn({[] { user::TapKey(kKeyEnter); }, [] { user::TapKey(kKeyEnter); }});
  start.AnotherColl(kept);
  EXPECT_TRUE(kept != source && fs::exists(source)) << "two strokes of Enter copy, and delete nothing";
  desk.program->frmPoSt.Close();
  std::string none;
  start.AnotherColl(none);
  EXPECT_FALSE(desk.program->frmPoSt.visible());
  std::string missing = desk.Path("jinde/neni.zb");
  Boxes boxes({BoxAnswer::kYes});
  ExpectFault([&] { start.AnotherColl(missing); }, missing, "cannot be opened");
}

// -------------------------------------------------------------------------------------------------------- The overview

TEST(OverviewTest, ShowsWhatRecordsAndBonusCavesOpen) {
  const std::vector<std::string> names = {"A", "B", "C", "D bonus", "E", "F"};
  Overview overview(SetOf("Sada", names), [&](Desk& desk) {
    desk.AddRecord("Karel", "Sada", "A", "Karel", 111, WonByOneStep("A") + "---01");
    desk.AddRecord("Karel", "Sada", "B", "Eva", 222, WonByOneStep("B") + "---02");
    desk.AddRecord("Karel", "Sada", "C", "Karel", 333, WonByOneStep("C") + "---03");
    desk.AddRecord("Karel", "Sada", "F", "Karel", 444, WonByOneStep("F", 99) + "---06");
  });
  FrmPoSt& form = overview.form();
  EXPECT_THAT(overview.States(), ElementsAre(Passed, ForeignRecord, Passed, Open, Open, Locked));
  EXPECT_EQ(overview.Score(2) + overview.Score(6), "0022200000");
  EXPECT_EQ(overview.Cave(6), "???");
  EXPECT_EQ(form.lblCave[2]->fore_colour(), form.BarvaCizi);
  EXPECT_EQ(form.Label2.caption(), "00666");
  EXPECT_EQ(form.Label6.caption(), LangStr[78] + " 3 " + LangStr[80] + ".") << "the bonus cave need not be won";
  EXPECT_FALSE(form.Command3.visible());
  EXPECT_EQ(form.Label3.caption(), Cp1250("© Eva"));
  EXPECT_EQ(form.Label1.text(), "Popis sady");
  EXPECT_EQ(form.caption(), Cp1250("Přehled sady - hráč Karel"));

  EXPECT_EQ(form.AktK, 1);
  user::TapKey(kKeyUp);
  EXPECT_EQ(form.AktK, 1);
  EXPECT_TRUE(form.Command1.visible());
  EXPECT_EQ(form.lblZzn.caption(), "Sada - A.zbr");
  EXPECT_THAT(form.lblZzn.tool_tip(), HasSubstr("Karel/Sada - A.zbr"));
  user::Click(*form.lblScore[4]);
  EXPECT_EQ(form.AktK, 4);
  EXPECT_TRUE(form.Image1.visible());
  EXPECT_FALSE(form.Command1.visible());
  EXPECT_EQ(form.lblDescr.caption(), "Popis D bonus");
  EXPECT_EQ(overview.program->hra.lblCas.caption(), "100");
  user::TapKey(kKeyDown);
  user::TapKey(kKeyDown);
  user::TapKey(kKeyDown);
  EXPECT_EQ(form.AktK, 6);
  EXPECT_EQ(form.lblName.caption(), "???");
  EXPECT_EQ(form.lblDescr.caption(), LangStr[84] + "\r\nE");
  EXPECT_FALSE(form.Command2.visible());
  form.Label1.SetFocus();
  user::TapKey(kKeyEnter);
  EXPECT_FALSE(overview.program->hra.visible()) << "a locked cave is not played, not by the keyboard either";
  user::TapKey(kKeyEscape);
  EXPECT_TRUE(overview.program->frmStart2.visible());
  EXPECT_FALSE(form.visible());
}

TEST(OverviewTest, TheMarkOfABonusCaveHidesNoText) {
  Overview overview(SetOf("Sada", {"BONUS", "Bonusova komnata se jmenem na dva radky"}));
  const FrmPoSt& form = overview.form();
  const Image& mark = form.Image1;
  for (const int cave : {1, 2}) {
    overview.form().lblCave_Click(cave);
    EXPECT_TRUE(mark.visible());
    EXPECT_GE(mark.left(), form.lblName.left() + form.lblName.width());
    EXPECT_GE(form.lblDescr.top(), mark.top() + mark.height());
    EXPECT_LE(form.Label1.top() + form.Label1.height(), mark.top());
    EXPECT_LE(mark.left() + mark.width(), form.width());
  }
}

TEST(OverviewTest, OfBonusCavesAloneIsDoneFromTheStart) {
  EditedSet set = SetOf("Sada", {"bonus 1", "Bonus 2", "BONUS 3"});
  set.Mail = "a@b.c";
  Overview overview(set);
  EXPECT_THAT(overview.States(), ElementsAre(Open, Open, Open));
  EXPECT_TRUE(overview.form().Command3.visible());
  EXPECT_EQ(overview.form().Label6.caption(), LangStr[78] + " 0 .");
  EXPECT_FALSE(overview.form().Label3.font().underline) << "too short for an address";
}

TEST(OverviewTest, AForeignRecordInTheLastCaveDoesNotFinishTheSet) {
  Overview overview(SetOf("Sada", {"A"}),
                    [](Desk& desk) { desk.AddRecord("Karel", "Sada", "A", "Eva", 5, WonByOneStep("A") + "---01"); });
  EXPECT_THAT(overview.States(), ElementsAre(ForeignRecord));
  EXPECT_FALSE(overview.form().Command3.visible());
  EXPECT_EQ(overview.form().Label2.caption(), "00005");
  EXPECT_TRUE(overview.form().Label3.font().underline);
}

TEST(OverviewTest, ScrollsFromElevenCavesOn) {
  Overview ten(SetOf("Sada", Names(10)));
  EXPECT_FALSE(ten.form().VScroll1.enabled());
  for (int i = 0; i < 12; ++i) user::TapKey(kKeyDown);
  EXPECT_EQ(ten.form().AktK, 10);
  EXPECT_EQ(ten.form().Picture2.top(), 0);
  ten.program.reset();

  Overview eleven(SetOf("Sada", Names(11)));
  FrmPoSt& form = eleven.form();
  EXPECT_TRUE(form.VScroll1.enabled());
  EXPECT_EQ(form.VScroll1.max(), 1);
  for (int i = 0; i < 10; ++i) user::TapKey(kKeyDown);
  EXPECT_EQ(form.VScroll1.value(), 1);
  EXPECT_EQ(form.Picture2.top(), -form.lblCave[2]->top());
  user::TapKey(kKeyHome);
  user::TapKey(kKeyPageDown);
  user::TapKey(kKeyPageUp);
  user::TapKey(kKeyEnd);
  EXPECT_EQ(form.AktK, 11);
  user::TapKey(kKeyPageUp);
  EXPECT_EQ(form.AktK, 1);
  user::TapKey(kKeyPageDown);
  EXPECT_EQ(form.AktK, 11);
  for (int i = 0; i < 9; ++i) user::TapKey(kKeyUp);
  EXPECT_EQ(form.VScroll1.value(), 1);
  user::TapKey(kKeyUp);
  EXPECT_EQ(form.VScroll1.value(), 0);
  user::TurnWheel(*form.lblCave[3], -1);
  EXPECT_EQ(form.VScroll1.value(), 1);
}

TEST(OverviewTest, LinksToAuthorAndContest) {
  EditedSet set = SetOf(Cp1250("TEMPOerný Zorbík"), {"A", "A"});
  set.Mail = "eva@jeskyne.cz?cc=a&b%40";
  Overview overview(
      set, [&](Desk& desk) { desk.AddRecord("Karel", set.Name, "A", "Karel", 5, WonByOneStep("A") + "---01"); });
  FrmPoSt& form = overview.form();
  EXPECT_THAT(overview.States(), ElementsAre(Passed, Passed)) << "caves of one name share a record";
  std::vector<std::string> links;
  SetLinkResponder([&](const std::string& link) { links.push_back(link); });
  EXPECT_EQ(form.Label3.tool_tip(), LangStr[77] + " '" + set.Mail + "'");
  user::Click(form.Label3, 5, 10);
  ASSERT_TRUE(form.Command4.visible());
  user::Click(form.Command4);
  user::TapKey(kKeyEscape);  // to the start screen
  user::TapKey(kKeyEscape);  // whose panel hides the link
  user::Click(overview.program->frmStart2.Label8_3);
  SetLinkResponder({});
  EXPECT_THAT(links,
              ElementsAre("mailto:eva@jeskyne.cz%3Fcc%3Da%26b%2540?subject=" + Utf8(LangStr[82]) +
                              " 'TEMPOerný Zorbík' " + Utf8(LangStr[83]),
                          overview.Path("game/Help/Tempo/index.htm"), overview.Path("game/Help/Tempo/index.htm")));
}

/// What all files in a folder hold, by their names.
std::map<std::string, std::string> Contents(const std::string& folder) {
  std::map<std::string, std::string> contents;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) contents[entry.path().string()] = ReadFile(entry.path().string());
  }
  return contents;
}

TEST(OverviewTest, ADamagedFileEndsTheProgramWithABoxAndNothingIsLost) {
  Desk desk;
  desk.AddPlayer("Karel");
  desk.Make("game/Komnaty/a.zb", Scramble("ESada") + "\r\n");
  desk.AddSet("b.zb", SetOf("Sada", {"A", "B"}));
  desk.AddRecord("Karel", "Sada", "A", "Karel", 111, WonByOneStep("A") + "---01");
  desk.Make("game/Hráči/Karel/sada - b.zbr", "ABC\r\nABC\r\n");
  FrmStart2& start = desk.Start().frmStart2;
  user::Click(start.Image3, 70, 30);
  const auto before = Contents(desk.path());
  const auto play_selected = [&] {
    SetBoxResponder([&desk](const MessageBox& box) {
      const bool in_front = !desk.program->frmLoading.visible();
      std::cerr << (in_front && box.icon == BoxIcon::kCritical ? "Box: " : "") << Utf8(box.text) << std::endl;
      return BoxAnswer::kOk;
    });
    user::Click(start.Command3);
  };
  EXPECT_EXIT(play_selected(), ::testing::ExitedWithCode(1), "Box: .*/game/Komnaty/a.zb: .*line 2");
  start.List1.set_list_index(1);
  EXPECT_EXIT(play_selected(), ::testing::ExitedWithCode(1), "Box: .*/Karel/sada - b.zbr: .*line 3");
  EXPECT_EQ(Contents(desk.path()), before);
}

// ------------------------------------------------------------------------------------------------------ Playing a set

TEST(CampaignTest, ASetIsPlayedToItsCongratulation) {
  Overview overview(SetOf("Sada", {"A", "bonus", "C", "D"}), SetFastest);
  FrmPoSt& form = overview.form();
  EXPECT_THAT(overview.States(), ElementsAre(Open, Locked, Locked, Locked));
  overview.Win();
  EXPECT_THAT(overview.States(), ElementsAre(Passed, Open, Open, Locked)) << "the bonus cave may be skipped";
  EXPECT_EQ(form.AktK, 2);
  EXPECT_EQ(overview.Cave(3), "C");
  const auto record = [&](const std::string& cave) {
    return ReadRecording(ReadFile(overview.Path("game/Hráči/Karel/Sada - " + cave + ".zbr"))).score;
  };
  EXPECT_EQ(std::stoi(overview.Score(1)), record("A"));

  overview.Win();
  EXPECT_GE(record("bonus"), 500) << "with the points of a bonus cave";
  EXPECT_EQ(std::stoi(overview.Score(2)), record("bonus"));
  EXPECT_EQ(form.AktK, 3);
  overview.Win();
  EXPECT_EQ(form.Label6.caption(), LangStr[78] + " 1 " + LangStr[79] + ".");
  EXPECT_FALSE(form.Command3.visible());
  overview.Win();
  EXPECT_EQ(form.AktK, 4) << "the last cave stays selected";
  EXPECT_THAT(overview.States(), ElementsAre(Passed, Passed, Passed, Passed));
  const std::string total = form.Label2.caption();
  EXPECT_EQ(std::stoi(total), record("A") + record("bonus") + record("C") + record("D"));

  ASSERT_TRUE(form.Command3.visible());
  std::string read;
  InTurn({[&] {
    read = overview.program->frmDialog2.Text1.text();
    user::TapKey(kKeyEnter);
  }});
  user::Click(form.Command3);
  EXPECT_EQ(read, "Gratulujeme! " + total + " a " + total);

  user::TapKey(kKeyEscape);
  overview.program->frmStart2.Command3_Click();
  EXPECT_THAT(overview.States(), ElementsAre(Passed, Passed, Passed, Passed)) << "the records tell it";
  EXPECT_EQ(form.Label2.caption(), total);
}

TEST(CampaignTest, ARecordIsReplayedAndLeadsBack) {
  Overview overview(SetOf("Sada", {"A", "B"}), SetFastest);
  FrmPoSt& form = overview.form();
  overview.Win();
  user::TapKey(kKeyUp);
  bool closed = false;
  std::string countdown = "?";
  InTurn({[&] {
    countdown = overview.program->frmAnalyze.Label4.caption();
    user::TapKey(kKeyEnter);
    closed = true;
  }});
  user::Click(form.Command1);
  ASSERT_TRUE(user::WaitUntil([&] { return closed && user::HasInput(form); }));
  EXPECT_EQ(countdown, "");
  EXPECT_EQ(form.AktK, 1) << "a replay wins nothing";
  EXPECT_FALSE(overview.program->hra.visible());
  EXPECT_FALSE(overview.program->hra.tmrHra.enabled());

  // The same record, as somebody else's file.
  const std::string file = overview.Path("record.zbr");
  fs::copy_file(overview.Path("game/Hráči/Karel/Sada - A.zbr"), file);
  user::TapKey(kKeyEscape);
  closed = false;
  Boxes boxes;
  overview.program->frmStart2.AnotherRepl(file);
  EXPECT_THAT(boxes.texts, ElementsAre(HasSubstr("Karel"))) << "whose it is";
  InTurn({[&] {
    user::TapKey(kKeyEnter);
    closed = true;
  }});
  FrmStart2& start = overview.program->frmStart2;
  ASSERT_TRUE(user::WaitUntil([&] { return closed && user::HasInput(start); }));
  EXPECT_EQ(overview.program->hra.PlayerName, "Karel");
}

TEST(CampaignTest, TheLastWinCountsAndOneThatIsNotRecordedIsForgotten) {
  Overview overview(SetOf("Sada", {"A", "B"}), [](Desk& desk) {
    SetFastest(desk);
    desk.AddRecord("Karel", "Sada", "A", "Karel", 5000, WonByOneStep("A") + "---01");
  });
  EXPECT_EQ(overview.Score(1), "05000");
  overview.Win();
  EXPECT_LT(std::stoi(overview.Score(1)), 5000);
  ASSERT_EQ(overview.form().AktK, 2);
  overview.Win([&] { user::Click(overview.program->hra.chkRec, 8, 12); });
  EXPECT_THAT(overview.States(), ElementsAre(Passed, Passed));
  EXPECT_TRUE(overview.form().Command3.visible());
  user::TapKey(kKeyEscape);
  overview.program->frmStart2.Command3_Click();
  EXPECT_THAT(overview.States(), ElementsAre(Passed, Open));
  EXPECT_LT(std::stoi(overview.Score(1)), 5000);
}

TEST(CampaignTest, AGameIsLeftAndRestarted) {
  Overview overview(SetOf("Sada", {"A", "B"}));
  FormHra& hra = overview.program->hra;
  user::DoubleClick(*overview.form().lblCave[2], 40, 10);
  EXPECT_FALSE(hra.visible()) << "a locked cave";
  user::DoubleClick(*overview.form().lblCave[1], 40, 10);
  ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(hra); }));
  EXPECT_TRUE(hra.tmrHra.enabled()) << "the game runs at once";
  EXPECT_FALSE(overview.form().visible());
  ASSERT_TRUE(user::WaitUntil([&] { return hra.game.ElapsedTime > 0.15; }));
  user::Click(hra.Command3);
  EXPECT_LT(hra.game.ElapsedTime, 0.15);
  EXPECT_TRUE(hra.tmrHra.enabled());
  user::TapKey(kKeyEscape);
  EXPECT_TRUE(overview.form().visible());
  EXPECT_FALSE(hra.visible());
  EXPECT_TRUE(user::WaitUntil([&] { return overview.form().Command2.has_focus(); })) << "the focus is where it was";
  EXPECT_THAT(overview.States(), ElementsAre(Open, Locked));
  hra.PaintCave("");
  EXPECT_FALSE(overview.form().visible() || hra.visible()) << "there is no cave to look at";
}

// --------------------------------------------------------------------------------------------------- Help and language

TEST(HelpTest, OpensPagesLinksAndAbout) {
  Desk desk;
  desk.AddPlayer("Karel");
  Program& program = desk.Start("english.zbl");
  std::vector<std::string> links;
  SetLinkResponder([&](const std::string& link) { links.push_back(link); });
  const HelpMenu& help = program.helpMenu;
  for (const MenuItem* item : {&help.mnuHlpPravidla, &help.mnuAbout, &help.mnuHlpRady, &help.mnuHlpPrispet,
                               &help.mnuHlp2, &help.mnuHlp3, &help.mnuHlp4, &help.mnuHlp5}) {
    item->Click();
  }
  const std::string page = desk.Path("game/Help/E");
  EXPECT_THAT(links, ElementsAre(page + "pravidla.html", page + "oprogramu.html", page + "editovat.html",
                                 page + "prispet.html", page + "help.html", "http://" + WebHra, HasSubstr("http://"),
                                 AllOf(HasSubstr("mailto:"), HasSubstr("?subject=Borzeek"))));
  links.clear();
  InTurn({[&] {
    EXPECT_EQ(program.frmAbout.Label1.caption(), "Version 1.1L");
    FrmAbout& about = program.frmAbout;
    for (Label* link : {&about.Label6, &about.Label7, &about.Label10, &about.Label4}) user::Click(*link);
    user::TapKey(kKeyEnter);
  }});
  help.mnuHlp1.Click();
  EXPECT_THAT(links, ElementsAre("http://" + WebHra, HasSubstr(kAuthorHost), HasSubstr(kAuthorCavesHost),
                                 HasSubstr(kAuthorMail)));
  EXPECT_FALSE(program.frmAbout.visible());
  SetLinkResponder({});
  Boxes boxes;
  help.mnuAboutTr.Click();
  EXPECT_THAT(boxes.texts, ElementsAre(LangStr[99] + ": " + Utf8(LangStr[199])));
}

TEST(LanguageTest, ChangesAllTextsAtOnce) {
  Desk desk;
  desk.AddPlayer("Karel");
  Program& program = desk.Start();
  FrmStart2& start = program.frmStart2;
  EXPECT_EQ(start.Image7.picture(), start.Image11.picture());
  InTurn({[] {
    user::TapKey(kKeyDown);
    user::TapKey(kKeyEnter);
  }});
  user::Click(start.Label9);
  EXPECT_EQ(start.Label2.caption(), " Watch a replay");
  EXPECT_EQ(start.Image7.picture(), start.Image12.picture());
  EXPECT_EQ(program.frmPoSt.Command2.caption(), "Play");
  EXPECT_EQ(program.hra.EndGame.caption(), "Quit");
  EXPECT_EQ(program.frmSettings.caption(), LangStr[59]);
  EXPECT_EQ(program.helpMenu.mnuHlp1.caption(), "About Borzeek");
  EXPECT_TRUE(start.visible());

  // The charset of the Cyrillic letters stays until the next start.
  desk.Start("russian.zbl");
  EXPECT_EQ(desk.program->frmStart2.Label1.charset(), Charset::kCyrillic);
  EXPECT_EQ(desk.program->frmDialog2.Text1.charset(), Charset::kCyrillic);
  EXPECT_EQ(desk.program->frmStart2.List2.charset(), Charset::kCentralEuropean) << "a drop-down list is left out";
  EXPECT_EQ(ToUtf8(desk.program->frmStart2.Label2.caption(), CodePage::k1251), " Смотреть запись");
  desk.program->frmSLang.Combo1.Choose(0);
  EXPECT_EQ(HeroName, Cp1250("Zorbík"));
  EXPECT_EQ(desk.program->frmStart2.Label1.charset(), Charset::kCyrillic);
}

TEST(LanguageTest, EachIsListedInItsOwnLetters) {
  Desk desk;
  desk.AddPlayer("Karel");
  const ComboBox& languages = desk.Start().frmSLang.Combo1;
  ASSERT_EQ(languages.count(), 3);
  EXPECT_EQ(languages.row_charset(0), Charset::kCentralEuropean);
  EXPECT_EQ(languages.row_charset(2), Charset::kCyrillic);
  EXPECT_EQ(ToUtf8(languages.item(2), CodePage::k1251), "Русский");
}

TEST(LanguageTest, ANameInCyrillicLettersIsShownInThem) {
  Desk desk;
  Boxes boxes;
  InTurn({[] {
    user::Type("Вася");
    user::TapKey(kKeyEnter);
  }});
  const FrmStart2& start = desk.Start("russian.zbl").frmStart2;
  ASSERT_EQ(boxes.texts.size(), 1U);
  EXPECT_THAT(ToUtf8(Cp1250(boxes.texts[0]), CodePage::k1251),
              AllOf(HasSubstr("Добро пожаловать, Вася!"), HasSubstr("/Hraci/Вася")));
  EXPECT_TRUE(fs::is_directory(desk.Path("game/Hráči/Вася")));
  EXPECT_EQ(start.List2.item(0), FromUtf8("Вася", CodePage::k1251));
  EXPECT_EQ(start.List2.row_charset(0), Charset::kCyrillic);
  EXPECT_EQ(desk.Start().frmStart2.List2.row_charset(0), Charset::kCyrillic) << "also when Czech is spoken";
}

// ------------------------------------------------------------------------------------------------------------ Settings

TEST(SettingsTest, LastFromOneStartToTheNext) {
  Desk desk;
  desk.AddPlayer("Karel");
  desk.Start();
  FrmSettings& settings = desk.program->frmSettings;
  InTurn({[&] {
    user::TapKey(kKeyRight);
    user::TapKey(kKeyTab);
    user::TapKey(kKeyLeft);
    user::Click(settings.Check1, 8, 13);
    user::Click(settings.Check4, 8, 13);
    user::TapKey(kKeyEnter);
  }});
  desk.program->hra.Command4_Click();
  EXPECT_EQ(desk.program->hra.tmrHra.interval(), 121);
  int shown = 0;
  InTurn({[&] {
    shown = settings.HScroll1.value();
    settings.HScroll1.set_value(10);
    user::TapKey(kKeyEscape);
  }});
  desk.program->hra.Command4_Click();
  EXPECT_EQ(shown, 4);
  EXPECT_EQ(settings.Rychlost, 7) << "closed without its button the dialog takes nothing over";
  desk.Run();
  const FrmSettings& again = desk.program->frmSettings;
  EXPECT_EQ(again.Rychlost, 7);
  EXPECT_EQ(again.RychlostZ, 2);
  EXPECT_EQ(again.AnimovatAaB, 0);
  EXPECT_EQ(again.DatPauzu, 1);
  EXPECT_EQ(again.Joystick, 1);
  EXPECT_EQ(again.HScroll1.value(), 4);
  EXPECT_EQ(again.Check1.value(), 0);

  WriteNumber(registry::kRychlostZ, 0);
  WriteNumber(registry::kMaximized, 1);
  desk.Run();
  EXPECT_EQ(desk.program->frmSettings.RychlostZ, 1);
  EXPECT_EQ(ReadNumber(registry::kRychlostZ), 0) << "mended in memory alone";
  EXPECT_EQ(desk.program->hra.window_state(), WindowState::kMaximised);

  WriteNumber(registry::kRychlost, 0);
  desk.Run();
  EXPECT_EQ(ReadNumber(registry::kJoystick), 0) << "a first start again";
  EXPECT_EQ(desk.program->frmSettings.Rychlost, 8);
}

}  // namespace
