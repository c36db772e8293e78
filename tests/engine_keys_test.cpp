// Keys, joystick and the choice of the hero, as fresh play reads them.

#include <gtest/gtest.h>

#include "cave_notation.h"

namespace {

/// One live tick with these keys down; the recorded move, action and hero.
std::string Keys(Play& play, std::set<int> held) {
  play.held = std::move(held);
  std::string text;
  for (const char c : play.Live().substr(1, 3)) text += std::to_string(static_cast<unsigned char>(c) - 65) + " ";
  text.pop_back();
  return text;
}

}  // namespace

TEST(EngineKeys, TheArrowPressedLastWins) {
  using namespace key;
  Play play("1");
  EXPECT_EQ(Keys(play, {kLeft}), "37 0 1");
  EXPECT_EQ(Keys(play, {kLeft, kRight}), "39 0 1");
  EXPECT_EQ(Keys(play, {kLeft}), "37 0 1");
  EXPECT_EQ(Keys(play, {kRight}), "39 0 1");
  EXPECT_EQ(Keys(play, {kLeft, kRight}), "37 0 1");
  EXPECT_EQ(Keys(play, {}), "0 0 1");
  EXPECT_EQ(Keys(play, {kUp, kDown}), "38 0 1");  // pressed together: the lowest code
  play.game.KeyAge[1] = 998;
  EXPECT_EQ(Keys(play, {kLeft}), "37 0 1");
  EXPECT_EQ(Keys(play, {kLeft}), "0 0 1");  // held for a thousand ticks it no longer counts
  EXPECT_EQ(Keys(play, {kLeft, kDown}), "40 0 1");
}

TEST(EngineKeys, QueuedKeyAndJoystickComeBeforeTheArrows) {
  Play play("1.2.3");
  int buttons = 3;
  play.hooks.joystickDirection = [] { return 2; };
  play.hooks.joystickButtons = [&buttons] { return buttons; };
  play.game.KeyQueued = key::kDown;
  EXPECT_EQ(Keys(play, {key::kLeft}), "40 0 1");
  EXPECT_EQ(Keys(play, {key::kLeft}), "37 0 1");
  play.settings.Joystick = 1;
  play.game.KeyQueued = key::kDown;
  EXPECT_EQ(Keys(play, {key::kLeft}), "38 1 2");  // both buttons: action, and on to the next hero
  buttons = 1;
  EXPECT_EQ(Keys(play, {}), "38 1 2");
  buttons = 2;
  EXPECT_EQ(Keys(play, {}), "38 0 1");
}

// A key counts as held when it was pressed and let go since it was last asked for. So each is asked for in every tick.
TEST(EngineKeys, AnEarlierTapIsNotHeardLater) {
  Play play("1");
  for (const int action : {key::kShift, key::kControl, key::kSpace}) EXPECT_EQ(Keys(play, {action}), "0 1 1");
  play.pressed = {key::kSpace, key::kControl};
  EXPECT_EQ(Keys(play, {key::kShift}), "0 1 1");
  play.pressed = {key::kR};
  EXPECT_EQ(Keys(play, {}), "0 0 1");
  Keys(play, {key::kControl});
  EXPECT_EQ(play.Took("restart"), "");
  Keys(play, {key::kControl, key::kR});
  EXPECT_EQ(play.Took("restart"), ".");
}

TEST(EngineKeys, TabStepsToTheNextLivingHero) {
  using namespace key;
  Play play("1.3.4");
  EXPECT_EQ(Keys(play, {kTab}), "0 0 4");
  EXPECT_EQ(Keys(play, {kTab}), "0 0 3");
  EXPECT_EQ(Keys(play, {kTab}), "0 0 1");  // there is no hero 2
  EXPECT_EQ(Keys(play, {kTab, kShift}), "0 1 3");
  EXPECT_EQ(Keys(play, {kTab, kSpace}), "0 1 4");
  EXPECT_EQ(Keys(play, {kTab, kControl}), "0 1 1");
  EXPECT_EQ(play.Took("sound"), "7 7 7 7 7 7");
  play.game.Heroes[3].alive = play.game.Heroes[4].alive = 0;
  EXPECT_EQ(Keys(play, {kTab}), "0 0 1");
  EXPECT_TRUE(play.game.MultiHero);
}

TEST(EngineKeys, NumericPadSelectsTheLowestAndIsHeardOnce) {
  Play play("1.2.3");
  EXPECT_EQ(Keys(play, {key::kNumpad0 + 2, key::kNumpad0 + 3, key::kLeft}), "37 0 2");
  Keys(play, {key::kNumpad0 + 2});
  EXPECT_EQ(Keys(play, {key::kNumpad0 + 2}), "0 0 2");
  EXPECT_EQ(play.game.IdleTicks, 1);  // selected anew in every tick
  EXPECT_EQ(play.Took("sound"), "7");
  EXPECT_EQ(Keys(play, {key::kTab, key::kNumpad0 + 3}), "0 0 3");
}

TEST(EngineKeys, SwitchKeepsTheAgeOfAHeldKeyAndShowsBothHeroes) {
  Play play("1.2");
  Keys(play, {key::kUp});
  play.log.clear();
  Keys(play, {key::kUp, key::kTab});
  EXPECT_EQ(play.game.KeyAge[2], 2);
  EXPECT_EQ(play.Took("strip"), "1,66 2,75");             // kMultiPes, kSinglePes
  EXPECT_EQ(play.Took("paint"), "0,0,66 2,0,59 2,0,63");  // kMultiPes, kImgZBP, kImgZBZ
}

TEST(EngineKeys, SelectingADeadHeroShowsTheCurrentOneAgain) {
  Play play("1.2");
  play.game.Heroes[2].alive = 0;
  play.game.FollowHero = false;
  EXPECT_EQ(Keys(play, {key::kNumpad0 + 2}), "0 0 1");
  EXPECT_EQ(play.Took("view"), "0,0");
  Play left("2;.F");
  left.game.Heroes[1] = HeroRecord{3, 0, 0};  // a creature leaves the place of the dead one in this very tick
  EXPECT_EQ(Keys(left, {key::kNumpad0 + 1}), "0 0 1");
  EXPECT_EQ(left.Took("paint").substr(0, 5), "3,0," + std::to_string(picture::kEmpty));
}

TEST(EngineKeys, WithNobodyLeftTabGivesUpForGood) {
  for (const char* rows : {"1.2", "..."}) {
    Play play(rows);
    play.game.ClearField(0, 0);
    play.game.ClearField(2, 0);
    EXPECT_EQ(Keys(play, {key::kRight}), "39 0 1");
    Keys(play, {key::kTab});
    EXPECT_FALSE(play.game.MultiHero);
    const int current = play.game.CurrentHero;
    Keys(play, {key::kTab, key::kNumpad0 + 2, key::kLeft});
    EXPECT_EQ(play.game.CurrentHero, current);
    EXPECT_EQ(play.Shown(), Rows("..."));
  }
}

TEST(EngineKeys, PauseComesAfterTheRecordedKeys) {
  Play play("1");
  const std::size_t before = play.game.RecordBuffer.size();
  play.hooks.pause = [&] { EXPECT_EQ(play.game.RecordBuffer.size(), before + 4); };
  Keys(play, {key::kP});
  EXPECT_EQ(play.Took("drop"), ". .");
}
