// What a tick does around the rules: numbers, clock, pictures that change by themselves, light, view.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "cave_notation.h"

TEST(EngineTick, NumbersAreDrawnUpTo190AndReplayedAsTheyStand) {
  Play play(";");
  int largest = 0;
  int smallest = 999;
  for (int i = 0; i < 5000; ++i) {
    const int drawn = play.game.Nahoda(200);
    ASSERT_EQ(static_cast<unsigned char>(play.game.RecordBuffer.back()), drawn + 65);
    largest = std::max(largest, drawn);
    smallest = std::min(smallest, drawn);
  }
  EXPECT_EQ(largest, 190);
  EXPECT_EQ(smallest, 1);
  play.game.PlayingReplay = true;
  play.game.ReplayLine =
      "\xFF"
      "A";
  EXPECT_EQ(play.game.Nahoda(4), 190);
  EXPECT_EQ(play.game.Nahoda(4), 0);
}

TEST(EngineTick, FreshPlayTakesItsSeedFromTheClockAtEveryStep) {
  Play play("1R......");
  std::uint64_t lucky = 0;
  while (Random(lucky).Next() >= 0.25) ++lucky;
  play.hooks.clock = [lucky] { return lucky; };
  play.held = {key::kRight};
  play.Live(5);
  EXPECT_EQ(play.Shown(), Rows(".....1R."));
}

// A second of play has eleven ticks here, since ten times 0.1 is a little less than 1.
TEST(EngineTick, AfterTheTimeIsOutTheLastKeyGoesOn) {
  Play play("1..............", {.time = 1});
  play.Run("-", 10);
  play.Run("r _2 _2");
  EXPECT_EQ(play.Shown(), Rows("...1..........."));
  Play none("1.", {.time = 0});
  none.held = {key::kRight};
  EXPECT_EQ(none.Live(3).size(), 1u);  // only the draw of amoeba: no keys are read
}

TEST(EngineTick, RecordedLines) {
  Play play("1.");
  play.held = {key::kRight, key::kShift};
  EXPECT_EQ(play.Live().substr(1, 3), "hBB");
  EXPECT_TRUE(play.game.RecordBuffer.ends_with("\r\n"));
  play.game.chkRec = 0;
  const std::size_t before = play.game.RecordBuffer.size();
  play.Live();
  EXPECT_EQ(play.game.RecordBuffer.size(), before + 5);  // characters go on, line ends do not
}

TEST(EngineTick, ClockShowsWholeSecondsAndCountsTheLastOnesDown) {
  Play play(";", {.time = 12});
  play.Run("-", 100);
  EXPECT_EQ(play.game.lblCas, 2);
  EXPECT_EQ(play.Took("countdown"), "10 9 8 7 6 5 4 3 2");
  play.settings.Zvuk = 0;
  play.Run("-", 21);  // 121 ticks for 12 seconds
  const double end = play.game.ElapsedTime;
  play.Run("_ _");
  EXPECT_EQ(play.game.lblCas, 0);
  EXPECT_EQ(play.game.ElapsedTime, end);
  EXPECT_EQ(play.Took("countdown"), "");
  Play longer(";", {.time = 1002});  // more than three digits stand still
  longer.Run("-", 20);
  EXPECT_EQ(longer.game.lblCas, 1002);
  longer.Run("-", 5);
  EXPECT_EQ(longer.game.lblCas, 999);
}

TEST(EngineTick, FramesOfCreaturesAmoebaAndSlime) {
  using namespace picture;
  Play play(";");
  const int crawl[] = {0, 1, 2, 3, 0, 1, 2, 3, 0, 1};
  const int flutter[] = {0, 1, 2, 3, 3, 2, 1, 0, 0, 1};
  for (int i = 0; i < 10; ++i) {
    play.game.Animace();
    EXPECT_EQ(play.game.pctK[Firefly], kAnim6 + crawl[i]) << i;
    EXPECT_EQ(play.game.pctK[Amoeba], kAnim10 + crawl[i]) << i;
    EXPECT_EQ(play.game.pctK[Butterfly], kAnim7 + flutter[i]) << i;
    EXPECT_EQ(play.game.pctK[Fly], kAnim15 + i % 2) << i;
  }
}

TEST(EngineTick, ExitsBlinkAndAmoebaAndSlimeAreAnimatedIfWished) {
  Play play("A;;;;;;;/;S;;;;;T", {.need = 0});
  play.Run("-");
  EXPECT_EQ(play.Took("flash") + play.Took("say"), ".105:white");
  EXPECT_EQ(play.Took("paint"), "7,1,5 0,0,24 1,1,28");
  play.settings.AnimovatAaB = 0;
  play.Run("- -");
  EXPECT_EQ(play.Took("flash") + play.Took("paint"), "7,1,6 7,1,5");
}

// Touched in the second tick; a second of magic is eleven ticks.
TEST(EngineTick, MagicWallRunsInItsUpperHalfUntilItsTimeIsOut) {
  Play play("r;/.;/MX/.;", {.magicTime = 1});
  play.Run("-", 20);
  std::string expected;
  for (int tick = 3; tick <= 12; ++tick) expected += "0,2," + std::to_string(picture::kAnimMW + (tick - 1) % 4) + ",1 ";
  EXPECT_EQ(play.Took("top"), expected + "0,2," + std::to_string(picture::kWall) + ",2");
}

// Ticks without a direction key, and the picture of the hero from then on.
TEST(EngineTick, IdleHero) {
  using namespace picture;
  std::map<int, int> changes = {{2, kImgZBP},     {50, kImgZBW21},  {51, kImgZBW22},  {52, kImgZBP},
                                {110, kImgZBW21}, {111, kImgZBW22}, {112, kImgZBW21}, {113, kImgZBP},
                                {225, kImgZBW21}, {226, kImgZBW22}, {229, kImgZBW21}, {270, kImgZBW22}};
  for (int m = 81; m <= 215; ++m) {
    if (m <= 95 || m >= 177) changes[m] = m % 2 == 0 ? kImgZBW : kImgZBP;
  }
  Play play("1.");
  play.Run("r l");
  play.log.clear();
  int shown = kImgZBL;
  for (int tick = 1; tick <= 700; ++tick) {
    play.Run("-");
    const auto change = changes.find(tick % 300);
    if (change != changes.end() && (tick == 2 || tick % 300 != 2)) shown = change->second;  // the first one comes once
    ASSERT_EQ(play.Took("paint"), "0,0," + std::to_string(shown)) << tick;
  }
  EXPECT_EQ(play.Took("idlePause"), "299 599");
  play.game.HeroLocked = true;
  play.game.KeyMove = key::kLeft;
  play.Run("_ _");
  EXPECT_EQ(play.game.IdleTicks, 700);  // a key neither counts nor sets back while the hero is held
  play.game.HeroLocked = false;
  play.Run("l");
  EXPECT_EQ(play.game.IdleTicks, 0);
  for (const bool wished : {false, true}) {
    Play other("1", {.time = wished ? 0 : 100});
    other.settings.DatPauzu = wished ? 1 : 0;
    other.Run(wished ? "_" : "-", 300);
    EXPECT_EQ(other.Took("idlePause"), "");
  }
}

TEST(EngineTick, LightPulsesRedAndInAReplayBlue) {
  Play play("1");
  std::string expected;
  for (const int level : {111, 135, 159, 183, 207, 231, 255, 255, 231, 207, 183, 159, 135, 111, 87, 87, 111}) {
    expected += std::to_string(level) + " ";
  }
  play.Live(17);
  EXPECT_EQ(play.Took("pulse") + " ", expected);
  play.Run("-");
  EXPECT_EQ(play.Took("pulse"), std::to_string(135 << 16));
}

TEST(EngineTick, ViewFollowsTheHeroUntilControlAndCInAReplay) {
  Play play("1.");
  play.held = {key::kControl, key::kC};
  play.Live();
  play.Run("r");
  EXPECT_EQ(play.Took("view"), "0,0 1,0");
  play.held = {};
  play.Run("l");
  EXPECT_EQ(play.Took("view"), "");
  EXPECT_EQ(play.Took("scroll"), ". .");
}
