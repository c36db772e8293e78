// The game window on the offscreen platform, driven by keys and mouse as a player does.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/lang_str.h"
#include "base/language.h"
#include "cave/set_file.h"
#include "game_window.h"
#include "kit/boxes.h"
#include "kit/temp_folder.h"
#include "platform/cramped.h"
#include "platform/keys.h"
#include "platform/message_box.h"

using namespace platform;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// ----------------------------------------------------------------------------------------------- Opening and starting

TEST(GameWindowTest, ShowsACaveOfASetAndWaitsForStart) {
  const TempFolder folder;
  EditedSet set;
  set.Name = "Sada";
  set.PocetK = 2;
  set.KomText[1] = BuildCaveText(Cave("1;T"));
  set.KomText[2] = BuildCaveText(DirtCave(30, 20, 2, 2));
  const std::string file = folder.Path("sada.zb");
  SaveColl(file, set);

  Game game(Cave("1"));
  game.form.SetFile = file;
  game.form.PlayerName = "Eva";
  game.form.OpenCave(2);
  game.form.Show();
  user::Wait(20);
  EXPECT_EQ(game.form.lblName.caption(), "Doupe");
  EXPECT_THAT(game.form.caption(), ::testing::HasSubstr("Eva"));
  EXPECT_EQ(game.form.lblCas.caption() + game.form.lblTreba.caption() + game.form.lblBz1.caption(), "15000905");
  EXPECT_EQ(game.form.KOMNATA.width(), 30 * game.Tile());
  EXPECT_EQ(user::Grab(game.form.KOMNATA).Part(game.Cell(2, 2)), PicturesOf(game, 2)[picture::kImgZBP]);
  EXPECT_TRUE(game.form.Picture5.visible());
  EXPECT_FALSE(game.form.tmrHra.enabled());
  user::Click(game.form.Command1);
  EXPECT_FALSE(game.form.Picture5.visible());
  EXPECT_TRUE(user::WaitUntil([&] { return game.form.game.ElapsedTime > 0; })) << "the timer makes ticks";

  game.form.OpenCave(1);
  EXPECT_EQ(game.form.KOMNATA.width(), 3 * game.Tile());
  EXPECT_FALSE(game.form.tmrHra.enabled());
  user::TapKey(kKeyEnter);
  EXPECT_FALSE(game.form.Picture5.visible());
  EXPECT_TRUE(game.form.tmrHra.enabled());
  game.form.OpenCave(3);
  EXPECT_FALSE(game.form.visible()) << "there is no such cave";
}

// ----------------------------------------------------------------------------------------------------------- The view

TEST(GameViewTest, IsCentredOnTheHeroAsFarAsTheCaveReaches) {
  const auto view = [](int width, int height, int x, int y) {
    Game game(DirtCave(width, height, x, y));
    game.Start();
    EXPECT_EQ(game.form.KOMNATA.left(), game.form.idleft(x));
    EXPECT_EQ(game.form.KOMNATA.top(), game.form.idtop(y));
    return std::pair(game.form.idleft(x) / game.Tile(), game.form.idtop(y) / game.Tile());
  };
  EXPECT_EQ(view(40, 22, 0, 0), std::pair(0.0, 0.0));
  EXPECT_EQ(view(40, 22, 9, 5), std::pair(0.0, 0.0));
  EXPECT_EQ(view(40, 22, 10, 6), std::pair(-1.0, -1.0));
  EXPECT_EQ(view(40, 22, 30, 16), std::pair(-21.0, -11.0));
  EXPECT_EQ(view(40, 22, 39, 21), std::pair(-21.0, -11.0));
  EXPECT_EQ(view(19, 11, 18, 10), std::pair(0.0, 0.0));
  EXPECT_EQ(view(7, 4, 3, 2), std::pair(12.0, 7.0)) << "a small cave lies in the lower right corner";
}

TEST(GameViewTest, ScrollsFreelyInAReplayAndStopsAtTheEdges) {
  Game game(DirtCave(40, 22, 20, 10));
  Hooks hooks = *game.form.game.hooks;
  hooks.readReplayLine = [](std::string& line) {
    line = "BAAB";  // nothing drawn for amoeba, no key, hero 1
    return true;
  };
  game.form.game.hooks = &hooks;
  game.form.game.PlayingReplay = true;
  game.Start();
  const double centre = game.form.idleft(20);
  user::PressKey(kKeyCtrl);
  user::PressKey('C', kCtrl);
  game.Tick();
  user::ReleaseKey('C');
  user::ReleaseKey(kKeyCtrl);
  EXPECT_FALSE(game.form.game.FollowHero);
  EXPECT_EQ(game.form.KOMNATA.left(), centre);
  const auto hold = [&game](int key, int ticks) {
    user::PressKey(key);
    game.Tick(ticks);
    user::ReleaseKey(key);
    game.Tick();
    return std::pair(game.form.KOMNATA.left(), game.form.KOMNATA.top());
  };
  const int tile = game.Tile();
  const int y = static_cast<int>(game.form.idtop(10));
  EXPECT_EQ(hold(kKeyRight, 1).first, static_cast<int>(centre) - tile * 3 / 2);
  EXPECT_EQ(hold(kKeyRight, 20), std::pair(-21 * tile, y));
  EXPECT_EQ(hold(kKeyDown, 20), std::pair(-21 * tile, -11 * tile));
  EXPECT_EQ(hold(kKeyLeft, 30), std::pair(0, -11 * tile));
  EXPECT_EQ(hold(kKeyUp, 20), std::pair(0, 0));
}

// ----------------------------------------------------------------------------------------------------------- The keys

TEST(GameKeysTest, TapsCountTheNewestKeyWinsAndLostFocusLetsGo) {
  Game game(DirtCave(19, 11, 5, 5));
  game.Start();
  const auto after = [&game](int ticks) {
    game.Tick(ticks);
    return std::pair<int, int>(game.Hero().x, game.Hero().y);
  };
  user::TapKey(kKeyDown);
  EXPECT_EQ(after(3), std::pair(5, 6)) << "one step for a tap between two ticks";
  user::PressKey(kKeyLeft);
  EXPECT_EQ(after(1), std::pair(4, 6));
  user::PressKey(kKeyRight);
  EXPECT_EQ(after(2), std::pair(6, 6)) << "the newest key wins";
  user::ReleaseKey(kKeyRight);
  EXPECT_EQ(after(1), std::pair(5, 6)) << "and gives way to the older one";
  user::SetProgramActive(false);
  EXPECT_EQ(after(2), std::pair(5, 6));
  user::SetProgramActive(true);
  user::PressKey(kKeyCtrl);
  user::PressKey(kKeyUp);
  EXPECT_EQ(after(1), std::pair(5, 6)) << "with the action key the hero digs and stays";
  EXPECT_EQ(game.form.game.Tiles(5, 5), Empty);
  user::ReleaseKey(kKeyUp);
  user::ReleaseKey(kKeyCtrl);
}

TEST(GameKeysTest, CtrlRRestartsAlsoWhenStruckBetweenTwoTicks) {
  Game game(DirtCave(19, 11, 5, 5));
  game.Start();
  user::TapKey('R');
  user::TapKey(kKeyCtrl);
  game.Tick(2);
  EXPECT_EQ(game.restarts, 0) << "one after the other is no chord";
  user::PressKey(kKeyCtrl);
  user::TapKey('R', kCtrl);
  user::ReleaseKey(kKeyCtrl);
  game.form.tmrHra.Start();
  EXPECT_EQ(game.restarts, 0);
  game.form.tmrHra.Stop();
  game.Tick(2);
  EXPECT_EQ(game.restarts, 0) << "struck while the game stood still";
  game.Start();
  game.form.tmrHra.Start();
  user::PressKey(kKeyCtrl);
  user::TapKey('R', kCtrl);
  user::ReleaseKey(kKeyCtrl);
  EXPECT_TRUE(user::WaitUntil([&] { return game.restarts > 0; }));
  user::Wait(200);
  EXPECT_EQ(game.restarts, 1);
  game.Start();
  user::PressKey(kKeyCtrl);
  user::PressKey('R', kCtrl);
  game.Tick();
  EXPECT_EQ(game.restarts, 2) << "held";
  user::ReleaseKey('R');
  user::ReleaseKey(kKeyCtrl);
}

TEST(GameKeysTest, PauseBoxStopsTheGameAndForgetsKeys) {
  Game game(DirtCave(19, 11, 5, 5));
  game.Open();
  game.form.Command1_Click();
  user::TapKey('P');
  double before = -1;
  double inside = -1;
  user::WhenFront([&] {
    before = game.form.game.ElapsedTime;
    user::TapKey(kKeyRight);
    user::Wait(200);
    inside = game.form.game.ElapsedTime;
    user::PressKey(kKeyEnter);  // closes the box
  });
  ASSERT_TRUE(user::WaitUntil([&] { return inside >= 0 && game.form.game.ElapsedTime > inside + 0.15; })) << "goes on";
  EXPECT_EQ(inside, before) << "no tick inside";
  EXPECT_EQ(game.Hero().x, 5) << "a key pressed in the box moves nobody";

  game.Start();
  user::ReleaseKey(kKeyEnter);
  const Boxes boxes;
  user::TapKey('P');
  game.Tick(2);
  user::TapKey('P');
  game.form.game.hooks->idlePause();
  EXPECT_FALSE(Held('P')) << "what goes on with the game does not pause it again";
  EXPECT_THAT(boxes.texts, ElementsAre(Utf8(HeroName + ": " + LangStr[text::kPauseText]),
                                       Utf8(LangStr[text::kIdlePauseTitle] + ": " + LangStr[text::kIdlePauseText])));
}

TEST(GameViewTest, TheLastTenSecondsStandOut) {
  Game game(DirtCave(19, 11, 5, 5));
  game.Start();
  game.form.game.ElapsedTime = game.form.game.TimeLimit - 11.25;
  game.Tick();
  EXPECT_EQ(game.form.lblCas.caption(), "011");
  EXPECT_EQ(game.form.lblCas.fore_colour(), std::nullopt);
  game.Tick(3);
  EXPECT_EQ(game.form.lblCas.caption(), "010");
  EXPECT_NE(game.form.lblCas.fore_colour(), std::nullopt);
  game.Start();
  EXPECT_EQ(game.form.lblCas.fore_colour(), std::nullopt) << "a new start";
}

/// The pictures of the strip, by hero.
std::vector<int> StripOf(Game& game, const std::vector<int>& candidates) {
  std::vector<int> found;
  const Picture strip = game.form.Psi.surface().Snapshot();
  for (int hero = 1; hero <= game.form.game.HeroCount; ++hero) {
    found.push_back(-1);
    for (const int number : candidates) {
      Surface expected;
      expected.Reset(25, 25, Application::PixelRatio(), Application::theme().background);
      expected.Copy(LoadNumbered(kPictures, number, 25, Application::PixelRatio()), 0, 0);
      if (expected.Snapshot() == strip.Part({25 * (hero - 1), 0, 25, 25})) found.back() = number;
    }
  }
  return found;
}

TEST(GameHeroesTest, TabAndNumbersSelectAndTheStripShowsIt) {
  constexpr int kOne = picture::kMultiPes;
  constexpr int kTwo = picture::kMultiPes + 1;
  constexpr int kThree = picture::kMultiPes + 2;
  constexpr int kSelected = picture::kSinglePes;
  constexpr int kDead = picture::kMrtvejPes;
  Game game(Cave("1;;;;;2;;;;;3"));
  const auto strip = [&] { return StripOf(game, {kOne, kTwo, kThree, kSelected, kDead}); };
  const auto tap = [&](int code, int action = 0) {
    if (action != 0) user::PressKey(action);
    user::TapKey(code);
    game.Tick();
    if (action != 0) user::ReleaseKey(action);
    return game.form.game.CurrentHero;
  };
  game.Start();
  const TilePictures pictures = PicturesOf(game, 2);
  EXPECT_TRUE(game.form.Psi.visible());
  EXPECT_THAT(strip(), ElementsAre(kSelected, kTwo, kThree));
  EXPECT_EQ(tap(kKeyTab, kKeyShift), 2) << "forward";
  EXPECT_THAT(strip(), ElementsAre(kOne, kSelected, kThree));
  EXPECT_EQ(game.Shown(0, 0), pictures[kOne]);
  EXPECT_EQ(game.Shown(6, 0), pictures[picture::kImgZBP]);
  EXPECT_EQ(tap(kKeyTab), 1) << "backward";
  EXPECT_EQ(tap(kNumpad0 + 3), 3);
  EXPECT_THAT(strip(), ElementsAre(kOne, kTwo, kSelected));
  game.form.game.Exploze(6, 0, 0, 0);
  game.Tick();
  EXPECT_THAT(strip(), ElementsAre(kOne, kDead, kSelected));
  EXPECT_EQ(tap(kKeyTab), 1) << "past the dead one";
  EXPECT_EQ(tap(kNumpad0 + 2), 1);
  EXPECT_FALSE(game.form.Picture8.visible());
  game.form.game.Exploze(0, 0, 0, 0);
  game.form.game.Exploze(12, 0, 0, 0);
  game.Tick();
  EXPECT_THAT(strip(), ElementsAre(kDead, kDead, kDead));
  EXPECT_TRUE(game.form.Picture8.visible()) << "nobody is left: how to go on";
  user::TapKey(kKeySpace);
  EXPECT_EQ(game.restarts, 0) << "may have been meant for the hero";
  user::TapKey(kKeyEnter);
  EXPECT_EQ(game.restarts, 1);
  EXPECT_FALSE(game.form.Picture8.visible());

  Game alone(Cave("1;;"));
  alone.Start();
  EXPECT_FALSE(alone.form.Psi.visible());
}

// --------------------------------------------------------------------------------------------------------- The window

TEST(GameFormTest, ClosingEndsTheGameAndKeepsTheForm) {
  Game game(DirtCave(19, 11, 5, 5));
  game.Open();
  game.form.Command1_Click();
  game.form.Close();
  EXPECT_FALSE(game.form.visible());
  EXPECT_FALSE(game.form.tmrHra.enabled());
  EXPECT_EQ(game.left, 1);
  game.Open();
  EXPECT_TRUE(game.form.visible());
  EXPECT_EQ(user::Grab(game.form.KOMNATA).Part(game.Cell(5, 5)), PicturesOf(game, 2)[picture::kImgZBP]);
  user::TapKey(kKeyEscape);
  EXPECT_EQ(game.left, 2);
  EXPECT_FALSE(game.form.visible());
}

TEST(GameFormTest, AMinimisedWindowStandsStillAndGoesOnOnlyIfItRan) {
  Game game(DirtCave(19, 11, 5, 5));
  game.Open();
  const auto set = [&game](WindowState state) {
    game.form.set_window_state(state);
    user::Wait(30);
    return game.form.tmrHra.enabled();
  };
  EXPECT_FALSE(set(WindowState::kMinimised));
  EXPECT_FALSE(set(WindowState::kNormal)) << "it still waits for the start";
  game.form.Command1_Click();
  EXPECT_FALSE(set(WindowState::kMinimised));
  EXPECT_TRUE(set(WindowState::kNormal));
  set(WindowState::kMinimised);
  game.form.EndGame_Click();
  EXPECT_FALSE(set(WindowState::kNormal));
  game.Open();
  EXPECT_FALSE(game.form.tmrHra.enabled()) << "the game that ran is over, the new one waits";
}

TEST(GameFormTest, SettingsStopTheTickAndSetItsInterval) {
  Game game(DirtCave(19, 11, 5, 5));
  game.settings.RychlostZ = 2;
  game.Open();
  game.form.Command1_Click();
  EXPECT_EQ(game.form.tmrHra.interval(), 141);
  bool stopped = false;
  user::WhenFront([&] {
    stopped = game.settings.visible() && !game.form.tmrHra.enabled();
    ScrollBar& speed = game.settings.HScroll1;
    user::Click(speed, speed.width() - 5, speed.height() / 2);
    user::TapKey(kKeyEnter);
  });
  user::Click(game.form.Command4);
  EXPECT_TRUE(stopped);
  EXPECT_TRUE(game.form.tmrHra.enabled());
  EXPECT_EQ(game.form.tmrHra.interval(), 121);
  game.form.game.PlayingReplay = true;
  game.form.SetSpeed();
  EXPECT_EQ(game.form.tmrHra.interval(), 21);
  game.form.tmrHra.Stop();
  user::WhenFront([&game] { game.settings.Close(); });
  user::TapKey(kF1 + 9);
  EXPECT_FALSE(game.form.tmrHra.enabled()) << "it was stopped before";
}

TEST(GameFormTest, MessagesAreCentredAndGoByThemselves) {
  Game game(DirtCave(19, 11, 5, 5));
  game.Start();
  EXPECT_EQ(game.form.Message1.caption(), LangStr[text::kStartOneHero]);
  for (const char* text : {"short", "a message of some more words than that"}) {
    game.form.ShowMessage(text, 0x0080FF);
    EXPECT_EQ(game.form.Message1.width(), game.form.Message1.text_width());
    EXPECT_EQ(game.form.Picture6.width(), game.form.Message1.width() + 60);
    EXPECT_EQ(game.form.shpO7.width(), game.form.Picture6.width() - 30);
    EXPECT_EQ(game.form.Picture6.left(), (game.form.Frame1.width() - game.form.Picture6.width()) / 2);
    EXPECT_TRUE(game.form.Picture6.visible());
  }
  for (const std::size_t letters : {60, 100, 5'000'000}) {  // in smaller letters, in more lines, cut
    game.form.ShowMessage(std::string(letters, 'W'), 0x0080FF);
    EXPECT_GE(game.form.Picture6.left(), 0);
    EXPECT_LE(game.form.Message1.text_height(), game.form.Message1.height());
  }
  EXPECT_EQ(game.form.Message1.fore_colour(), (Colour{255, 128, 0})) << "blue stands in the high byte";
  EXPECT_EQ(game.form.tmrMsg.interval(), 3000);
  EXPECT_TRUE(game.form.tmrMsg.enabled());
  game.form.tmrMsg.set_interval(400);
  user::Wait(250);
  game.form.ShowMessage("the next", 0);
  user::Wait(250);
  EXPECT_TRUE(game.form.Picture6.visible()) << "each message has the whole time";
  game.form.tmrMsg.set_interval(20);
  EXPECT_TRUE(user::WaitUntil([&] { return !game.form.Picture6.visible(); }));
  EXPECT_FALSE(game.form.tmrMsg.enabled());
}

TEST(GameFormTest, AnOpeningExitFlashesOverTheWholeWindow) {
  CaveRecord cave = DirtCave(19, 11, 5, 5);
  cave.Need = 0;
  Game game(cave);
  game.Start();
  user::Wait(20);
  user::PaintedPixels();
  game.Tick();
  const Frame& view = game.form.Ram;
  EXPECT_GE(user::PaintedPixels(), view.width() * view.height()) << "painted within the tick";
  EXPECT_FALSE(game.form.pctBlesk.visible());
  EXPECT_EQ(game.form.lblBz1.caption(), "20");
  EXPECT_EQ(game.form.Message1.caption(), LangStr[text::kExitOpens]);
  user::Wait(20);
  user::PaintedPixels();
  game.Tick();
  EXPECT_LT(user::PaintedPixels(), view.width() * view.height()) << "once";
}

TEST(GameFormTest, ALongCaveNameHasItsRoom) {
  CaveRecord cave = Cave("1;2;3;4");
  cave.Name = "Velmi dlouhe jmeno jedne male komnaty";
  cave.Description =
      "Popis, ktery je tak dlouhy, jak jen popis komnaty vubec muze byt, a ktery se proto musi zalomit do "
      "nekolika radku. Vejde se do nej vic nez sto osmdesat pismen a par carek navic, ale ne vic.";
  Game game(cave);
  game.Open();
  EXPECT_THAT(CrampedTexts(game.form), IsEmpty());
}

// ---------------------------------------------------------------------------------------------------------- The texts

class GameTextTest : public ::testing::TestWithParam<const char*> {
 protected:
  GameTextTest() { Use(GetParam()); }
  ~GameTextTest() override { Use("cestina.zbl"); }

 private:
  static void Use(const std::string& language) {
    NactiJazyk(kData + "/" + language);
    Application::set_default_charset(CharsetOf(PageInForce()));
  }
};

TEST_P(GameTextTest, ControlsKeepInsideTheWindowAndApart) {
  Game game(Cave("1;2;3;4"));
  game.form.SetLW();
  game.Open();
  FormHra& form = game.form;
  EXPECT_LE(form.height() + 20, Application::ScreenHeight()) << "the window with its title fits on the screen";
  EXPECT_LE(form.width(), Application::ScreenWidth());
  const auto apart = [&form](const std::vector<Control*>& row) {
    int left = 0;
    for (const Control* control : row) {
      EXPECT_GE(control->left(), left);
      left = control->left() + control->width();
      EXPECT_LE(control->top() + control->height(), form.Frame1.height());
    }
    EXPECT_LE(left, form.Frame1.width());
  };
  apart({&form.imgCas, &form.Label1, &form.lblCas, &form.imgSebr, &form.Label2, &form.lblSebr, &form.imgTreba,
         &form.Label4, &form.lblTreba, &form.imgBz, &form.Label7, &form.lblBz1, &form.imgBody, &form.lblBody,
         &form.lblName});
  apart({&form.Psi, &form.imgLamp, &form.chkRec, &form.Command3, &form.Command4, &form.EndGame});
  apart({&form.Psi, &form.imgLamp, &form.Image2, &form.Label5, &form.Command3});
  EXPECT_GE(form.lblName.width(), 100);
  EXPECT_GE(form.Label5.width(), 60);
}

INSTANTIATE_TEST_SUITE_P(Languages, GameTextTest, ::testing::Values("cestina.zbl", "english.zbl", "russian.zbl"),
                         [](const auto& language) { return std::string(language.param).substr(0, 6); });

}  // namespace

/// "small" as the only argument gives a screen of 800 x 600.