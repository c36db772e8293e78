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
#include "engine/recording.h"
#include "kit/desk.h"
#include "kit/fault_check.h"
#include "kit/temp_folder.h"
#include "platform/file_dialog.h"
#include "platform/keys.h"
#include "platform/links.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/testing.h"
#include "platform/window_shape.h"
#include "shell/registry_values.h"

using namespace platform;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

namespace fs = std::filesystem;

std::vector<std::string> Names(int count) {
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) names.push_back("Komnata " + std::to_string(i));
  return names;
}

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

// ------------------------------------------------------------------------------------------- First start, new players

TEST(StartTest, AsksANewUserForLanguageAndName) {
  Desk desk;
  desk.AddSet("sada.zb", SetOf({"A"}, "Sada"));
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
  EXPECT_THAT(boxes.texts.back(), HasSubstr(Utf8(LangStr[text::kPlayerNotMade])));
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
  desk.AddSet("b.zb", SetOf({"A"}, "Be"));
  desk.Make("game/Komnaty/a.zb", "");
  EditedSet own = SetOf({"A"}, "Vlastní");
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
  std::string path = desk.Make("jinde/b.zb", ReadFile(desk.Path("game/Komnaty/b.zb")));
  Boxes boxes({BoxAnswer::kYes, BoxAnswer::kNo});
  start.AnotherColl(path);
  EXPECT_EQ(path, desk.Path("data/Komnaty/b~.zb")) << "a shipped set has that name";
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
  EXPECT_THAT(asked, ElementsAre(LangStr[text::kOpenSetElsewhereTitle] + "|" + LangStr[text::kSetFiles] + "(*.zb)" +
                                     zero + "*.zb" + zero + "|" + CestaKomnaty + "|4100",
                                 LangStr[text::kOpenReplayTitle] + "|" + LangStr[text::kRecordFiles] + " (*.zbr)" +
                                     zero + "*.zbr" + zero + "|" + CestaZaznamy + "|4100"));
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
    EditedSet set = SetOf({"A"}, name);
    SaveColl(source, set);
    Boxes boxes({copy, remove});
    std::string path = source;
    start.AnotherColl(path);
    EXPECT_EQ(desk.program->frmPoSt.Label4.caption(), name);
    EXPECT_EQ(desk.program->frmPoSt.caption(), LangStr[text::kOverviewTitle] + " Karel");
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
  EditedSet fifth = SetOf({"A"}, "Pata");
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
  Overview overview(SetOf(names, "Sada"), [&](Desk& desk) {
    desk.AddRecord("Karel", "Sada", "A", "Karel", 111, 1);
    desk.AddRecord("Karel", "Sada", "B", "Eva", 222, 2);
    desk.AddRecord("Karel", "Sada", "C", "Karel", 333, 3);
    desk.AddRecord("Karel", "Sada", "F", "Karel", 444, 6, 99);
  });
  FrmPoSt& form = overview.form();
  EXPECT_THAT(overview.States(), ElementsAre(Passed, ForeignRecord, Passed, Open, Open, Locked));
  EXPECT_EQ(overview.Score(2) + overview.Score(6), "0022200000");
  EXPECT_EQ(overview.Cave(6), "???");
  EXPECT_EQ(form.lblCave[2]->fore_colour(), form.BarvaCizi);
  EXPECT_EQ(form.Label2.caption(), "00666");
  EXPECT_EQ(form.Label6.caption(), LangStr[text::kStillToWin] + " 3 " + LangStr[text::kFewCavesLeft] + ".")
      << "the bonus cave need not be won";
  EXPECT_FALSE(form.Command3.visible());
  EXPECT_EQ(form.Label3.caption(), Cp1250("© Eva"));
  EXPECT_EQ(form.Label1.text(), "Popis\r\nsady");
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
  EXPECT_EQ(form.lblDescr.caption(), LangStr[text::kCaveLocked] + "\r\nE");
  EXPECT_FALSE(form.Command2.visible());
  form.Label1.SetFocus();
  user::TapKey(kKeyEnter);
  EXPECT_FALSE(overview.program->hra.visible()) << "a locked cave is not played, not by the keyboard either";
  user::TapKey(kKeyEscape);
  EXPECT_TRUE(overview.program->frmStart2.visible());
  EXPECT_FALSE(form.visible());
}

TEST(OverviewTest, TheMarkOfABonusCaveHidesNoText) {
  Overview overview(SetOf({"BONUS", "Bonusova komnata se jmenem na dva radky"}, "Sada"));
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

TEST(OverviewTest, ScrollsFromElevenCavesOn) {
  Overview ten(SetOf(Names(10), "Sada"));
  EXPECT_FALSE(ten.form().VScroll1.enabled());
  for (int i = 0; i < 12; ++i) user::TapKey(kKeyDown);
  EXPECT_EQ(ten.form().AktK, 10);
  EXPECT_EQ(ten.form().Picture2.top(), 0);
  ten.program.reset();

  Overview eleven(SetOf(Names(11), "Sada"));
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
  EditedSet set = SetOf({"A", "A"}, Cp1250("TEMPOerný Zorbík"));
  set.Mail = "eva@jeskyne.cz?cc=a&b%40";
  Overview overview(set, [&](Desk& desk) { desk.AddRecord("Karel", set.Name, "A", "Karel", 5, 1); });
  FrmPoSt& form = overview.form();
  EXPECT_THAT(overview.States(), ElementsAre(Passed, Passed)) << "caves of one name share a record";
  std::vector<std::string> links;
  SetLinkResponder([&](const std::string& link) { links.push_back(link); });
  EXPECT_EQ(form.Label3.tool_tip(), LangStr[text::kMailToAuthorTip] + " '" + set.Mail + "'");
  user::Click(form.Label3, 5, 10);
  ASSERT_TRUE(form.Command4.visible());
  user::Click(form.Command4);
  user::TapKey(kKeyEscape);  // to the start screen
  user::TapKey(kKeyEscape);  // whose panel hides the link
  user::Click(overview.program->frmStart2.Label8_3);
  SetLinkResponder({});
  EXPECT_THAT(links,
              ElementsAre("mailto:eva@jeskyne.cz%3Fcc%3Da%26b%2540?subject=" + Utf8(LangStr[text::kMailSubjectBefore]) +
                              " 'TEMPOerný Zorbík' " + Utf8(LangStr[text::kMailSubjectBehind]),
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
  desk.AddSet("b.zb", SetOf({"A", "B"}, "Sada"));
  desk.AddRecord("Karel", "Sada", "A", "Karel", 111, 1);
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
  Overview overview(SetOf({"A", "bonus", "C", "D"}, "Sada"), SetFastest);
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
  EXPECT_EQ(form.Label6.caption(), LangStr[text::kStillToWin] + " 1 " + LangStr[text::kOneCaveLeft] + ".");
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
  Overview overview(SetOf({"A", "B"}, "Sada"), SetFastest);
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
  Overview overview(SetOf({"A", "B"}, "Sada"), [](Desk& desk) {
    SetFastest(desk);
    desk.AddRecord("Karel", "Sada", "A", "Karel", 5000, 1);
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
  Overview overview(SetOf({"A", "B"}, "Sada"));
  FormHra& hra = overview.program->hra;
  user::DoubleClick(*overview.form().lblCave[2], 40, 10);
  EXPECT_FALSE(hra.visible()) << "a locked cave";
  user::DoubleClick(*overview.form().lblScore[1], 40, 10);
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
  EXPECT_THAT(boxes.texts,
              ElementsAre(LangStr[text::kAboutTranslation] + ": " + Utf8(LangStr[text::kTranslationText])));
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
  EXPECT_EQ(program.frmSettings.caption(), LangStr[text::kSettingsTitle]);
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
  WriteNumber(registry::kRychlost, 300);
  WriteNumber(registry::kZvuk, 256);
  desk.Run();
  EXPECT_EQ(desk.program->frmSettings.Rychlost, 10) << "a damaged speed is the slowest";
  EXPECT_EQ(desk.program->frmSettings.Zvuk, 1) << "and a damaged flag is set";

  WriteNumber(registry::kRychlost, 0);
  desk.Run();
  EXPECT_EQ(ReadNumber(registry::kJoystick), 0) << "a first start again";
  EXPECT_EQ(desk.program->frmSettings.Rychlost, 8);
}

}  // namespace
