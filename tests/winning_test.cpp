// A cave won in the window: the screen with the sum, the record, and its replay.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/lang_str.h"
#include "cave/scramble.h"
#include "engine/recording.h"
#include "engine/replay.h"
#include "game_window.h"
#include "kit/temp_folder.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "view/form_analyze.h"

using namespace platform;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

CaveRecord WinnableCave(const std::string& name) {
  CaveRecord cave = Cave("1DT;");
  cave.Name = Cp1250(name);
  cave.Need = 1;
  cave.PointsBefore = 10;
  return cave;
}

/// A game of the player Eva whose records go to a folder of the test's own.
class WinningTest : public testing::Test {
 protected:
  explicit WinningTest(const std::string& name = "Chodba") : game(WinnableCave(name)) {
    CestaHraci = folder.path();
    std::filesystem::create_directories(folder.Path("Eva"));
    LangStr[text::kForeignReplay] = "Not yours:";
    game.form.frmAnalyze = &analyze;
    game.form.SetName = "Sada: 1";
    game.form.PlayerName = "Eva";
    game.form.caveWon = [this] { ++wins; };
    SetBoxResponder([this](const MessageBox& box) {
      boxes.push_back(box.text);
      return answer ? answer() : BoxAnswer::kOk;
    });
  }
  ~WinningTest() override { SetBoxResponder({}); }

  /// Walks right until the exit; the screen with the sum is closed as soon as it shows.
  void Win() {
    game.Start();
    user::PressKey(kKeyRight);
    user::WhenFront([this] {
      shown.push_back(analyze.Label2.caption() + analyze.Label3.caption() + (analyze.Image1.visible() ? " bonus" : "") +
                      (analyze.lblBonus.visible() ? " " + analyze.lblBonus.caption() : ""));
      countdown = analyze.Label4.caption();
      user::ReleaseKey(kKeyRight);
      user::TapKey(kKeyEnter);
    });
    for (int i = 0; i < 20 && !game.form.game.Won; ++i) game.Tick();
    user::ReleaseKey(kKeyRight);
  }

  /// Lets the timer run a replay to its end.
  void PlayReplay(const std::string& file) {
    game.form.CurrentFile = file;
    user::WhenFront([this] {
      countdown = analyze.Label4.caption();
      user::TapKey(kKeyEnter);
    });
    game.form.Replay();
    user::WaitUntil([this] { return !game.form.tmrHra.enabled() && !analyze.visible(); });
  }

  std::string RecordFile() const { return folder.Path("Eva/Sada 1 - Chodba.zbr"); }

  TempFolder folder;
  FormAnalyze analyze{kData};
  Game game;
  int wins = 0;
  std::vector<std::string> boxes;
  std::function<BoxAnswer()> answer;
  std::vector<std::string> shown;
  std::string countdown = "-";
};

class BonusTest : public WinningTest {
 protected:
  BonusTest() : WinningTest("Bonusová") {}
};

TEST_F(WinningTest, ShowsTheSumAndWritesARecordThatReplays) {
  Win();
  EXPECT_THAT(shown, ElementsAre(Cp1250("001 · 10 + 000 · 20 + 149 · 1 = 00159")));
  EXPECT_EQ(countdown, "3");
  EXPECT_EQ(wins, 1);
  EXPECT_FALSE(game.form.tmrHra.enabled());
  const std::string contents = ReadFile(RecordFile());
  const Recording recording = ReadRecording(contents);
  EXPECT_EQ(recording.setName + "|" + recording.player + "|" + std::to_string(recording.score), "Sada: 1|Eva|159");
  EXPECT_EQ(recording.caveText, game.text);
  EXPECT_FALSE(contents.ends_with("\r\n")) << "the line of the winning tick has no end";

  const std::uint32_t cells = CellsCrc(game.form.game);
  PlayReplay(RecordFile());
  EXPECT_TRUE(game.form.game.Won);
  EXPECT_EQ(CellsCrc(game.form.game), cells);
  EXPECT_EQ(wins, 1) << "a replay opens no cave";
  EXPECT_EQ(countdown, "") << "and does not count down";
  EXPECT_EQ(ReadFile(RecordFile()), contents) << "and writes no record";
  EXPECT_THAT(boxes, IsEmpty());
  EXPECT_TRUE(game.form.Image2.visible());
  EXPECT_EQ(game.form.Label5.caption(), "Sada: 1");
}

TEST_F(BonusTest, CountsInTheRecordAndNotInTheSum) {
  Win();
  EXPECT_THAT(shown, ElementsAre(HasSubstr("= 00159 bonus + 500")));
  EXPECT_EQ(ReadRecording(ReadFile(folder.Path("Eva/Sada 1 - Bonusová.zbr"))).score, 659);
}

TEST_F(WinningTest, LeavesNoRecordWhenNoneIsAskedFor) {
  game.Open();
  user::Click(game.form.chkRec);
  user::Click(game.form.chkRec);
  EXPECT_EQ(game.form.chkRec.value(), 0) << "once off it stays off";
  game.form.Command1_Click();
  game.form.tmrHra.Stop();
  user::PressKey(kKeyRight);
  user::WhenFront([] { user::TapKey(kKeyEscape); });
  game.Tick(3);
  user::ReleaseKey(kKeyRight);
  EXPECT_TRUE(game.form.game.Won);
  EXPECT_EQ(FindPath(RecordFile()), "");
  game.Open();
  EXPECT_TRUE(game.form.chkRec.value() == 1 && game.form.chkRec.enabled()) << "a new cave is recorded again";
}

TEST_F(WinningTest, TriesAgainToWriteUntilThePlayerGivesUp) {
  // A file where the player's folder was: once it is gone, the folder is made again.
  std::filesystem::remove(folder.Path("Eva"));
  folder.Make("Eva");
  answer = [this] {
    EXPECT_EQ(analyze.Label3.caption(), "00159") << "the sum is made before the record";
    std::filesystem::remove(folder.Path("Eva"));
    return BoxAnswer::kYes;
  };
  Win();
  EXPECT_THAT(boxes, ElementsAre(HasSubstr("/Eva: ")));
  EXPECT_EQ(ReadRecording(ReadFile(RecordFile())).score, 159);

  std::filesystem::remove_all(folder.Path("Eva"));
  folder.Make("Eva");
  answer = [] { return BoxAnswer::kNo; };
  Win();
  EXPECT_EQ(boxes.size(), 2u);
  EXPECT_EQ(wins, 2);
}

TEST_F(WinningTest, ShowsTheWholeSumHoweverLong) {
  for (const WinSum& sum : {WinSum{}, WinSum{1909, 190, 2000, 190, 1909, 9}, WinSum{1, 1, 1, 1, 1, 1}}) {
    analyze.ShowSum(sum, false);
    for (const Label* label : {&analyze.Label2, &analyze.Label3}) EXPECT_LE(label->text_width(), label->width());
    for (const Label& label : analyze.lblValue) EXPECT_LE(label.text_width(), label.width());
    EXPECT_LE(analyze.Label2.left() + analyze.Label2.width(), analyze.Label3.left());
    EXPECT_LT(analyze.Label3.left() + analyze.Label3.width(), analyze.width());
  }
}

TEST_F(WinningTest, CountsDownAndStaysWhenTheCounterIsClicked) {
  analyze.ShowSum({}, false);
  analyze.NastavCas(2);
  analyze.Show();
  analyze.Timer1_Timer();
  EXPECT_EQ(analyze.Label4.caption(), "1");
  user::Click(analyze.Label4);
  EXPECT_FALSE(analyze.Timer1.enabled());
  int left = 0;
  analyze.leave = [&left] { ++left; };
  analyze.NastavCas(1);
  analyze.Timer1_Timer();
  EXPECT_FALSE(analyze.visible());
  EXPECT_FALSE(analyze.Timer1.enabled());
  EXPECT_EQ(left, 1);
}

// The tick runs on behind the screen, and its last step asks for Ctrl+R.
TEST_F(WinningTest, KeysPressedWhileTheSumShowsDoNotRestartTheCave) {
  game.Start();
  user::PressKey(kKeyRight);
  user::WhenFront([] {
    user::PressKey(kKeyCtrl);
    user::TapKey('R', kCtrl);
    user::ReleaseKey(kKeyCtrl);
    user::TapKey(kKeyEnter);
  });
  game.Tick(2);
  user::ReleaseKey(kKeyRight);
  EXPECT_TRUE(game.form.game.Won);
  EXPECT_EQ(wins, 1);
  EXPECT_EQ(game.restarts, 0);
}

TEST_F(WinningTest, TellsWhoseRecordItPlays) {
  Win();
  game.form.PlayerName = "/";
  PlayReplay(RecordFile());
  EXPECT_THAT(boxes, ElementsAre("Not yours:\r\n  Eva"));
  EXPECT_TRUE(game.form.game.Won);

  const std::string endless(std::size_t{2} << 20, 'W');
  PlayReplay(folder.Make("long.zbr", RecordText(endless, 0, endless, game.form.game.RecordBuffer)));
  const std::string shortened = std::string(199, 'W') + '\x85';
  EXPECT_EQ(boxes.back(), "Not yours:\r\n  " + shortened);
  EXPECT_EQ(game.form.Label5.caption(), shortened);
}

TEST_F(WinningTest, TellsFileAndLineOfADamagedRecord) {
  Win();
  const std::string contents = ReadFile(RecordFile());
  const std::string cut = folder.Make("cut.zbr", contents.substr(0, contents.rfind("\r\n")));
  const std::string bent = folder.Make("bent.zbr", contents.substr(0, contents.size() - 2));
  const std::string none = folder.Make("none.zbr", "ABC");
  const Recording whole = ReadRecording(contents);
  const auto with = [&](const std::string& name, const std::string& buffer) {
    return folder.Make(name, RecordText(whole.setName, whole.score, "Adam", buffer));
  };
  const std::string noText = with("notext.zbr", "\r\nCAAB");
  const std::string noCave = with("nocave.zbr", Scramble("E") + "\r\n");
  // To begin again with it at once would show the box about its player for ever.
  const std::string noTick = with("notick.zbr", Scramble(whole.caveText) + "\r\n\r\n");
  game.form.CurrentFile = cut;
  game.form.Replay();
  game.Tick(5);
  EXPECT_FALSE(game.form.game.Won) << "it ends before the exit, without a word";
  EXPECT_TRUE(game.form.visible());
  game.form.CurrentFile = bent;
  game.form.Replay();
  EXPECT_TRUE(user::WaitUntil([this] { return !game.form.tmrHra.enabled(); }));
  EXPECT_TRUE(game.form.visible()) << "what was played so far can be looked at";
  for (const std::string& file : {none, noText, noCave, noTick}) {
    game.form.Show();
    game.form.CurrentFile = file;
    game.form.Replay();
    EXPECT_FALSE(game.form.visible());
    EXPECT_FALSE(game.form.tmrHra.enabled());
  }
  EXPECT_EQ(game.left, 4);
  using testing::AllOf;
  const auto notYours = HasSubstr("Not yours");
  EXPECT_THAT(
      boxes, ElementsAre(AllOf(HasSubstr(bent), HasSubstr("line 5")), HasSubstr(none),
                         AllOf(HasSubstr(noText), HasSubstr("line 3")), notYours,
                         AllOf(HasSubstr(noCave), HasSubstr("line 3")), AllOf(HasSubstr(noTick), HasSubstr("line 4"))));
}

}  // namespace
