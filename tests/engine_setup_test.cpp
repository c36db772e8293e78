// Setting up a cave and pressing "Start".

#include <gtest/gtest.h>

#include "base/lang_str.h"
#include "cave/scramble.h"
#include "cave_notation.h"

// The ring lies over whatever a larger cave left there.
TEST(EngineSetup, SteelRingAroundCavesOfEverySize) {
  Play play("RRRR/RRRR/RRRR/RRRR");
  std::string largest(81, ';');
  for (int y = 1; y < 51; ++y) largest += "/" + std::string(81, ';');
  for (const std::string& rows : {std::string(";"), std::string(";/;/;"), std::string(";;;"), largest}) {
    play.Load(rows);
    const int right = play.game.CaveWidth;
    const int bottom = play.game.CaveHeight;
    for (int y = -1; y <= bottom; ++y) {
      for (int x = -1; x <= right; ++x) {
        const bool inside = x >= 0 && y >= 0 && x < right && y < bottom;
        ASSERT_EQ(play.game.Tiles(x, y), inside ? Dirt : SteelWall) << x << " " << y;
        ASSERT_EQ(play.game.Motion(x, y), 0) << x << " " << y;
      }
    }
  }
  EXPECT_EQ(play.Shown(), Rows(largest));
  play.game.PaintCave("");
  play.Run("_", 2);
  EXPECT_EQ(play.Shown(), "");
}

TEST(EngineSetup, UnknownCharacterKeepsTheCellOfTheCaveBefore) {
  Play play("QrX1R");
  play.Load("  0 .");
  EXPECT_EQ(play.Shown(), Rows("QrXH."));  // a hero tile that no record points at
  EXPECT_EQ(play.game.HeroCount, 0);
}

TEST(EngineSetup, NewCaveClearsTheStateOfTheLastButNotTheScore) {
  Play play("1D.", {.time = 1, .need = 1, .pointsBefore = 7});
  play.Run("r l");
  Hra& game = play.game;
  ASSERT_TRUE(game.ExitOpen);
  game.MagicState = game.AmoebaMode = 2;
  game.MagicStart = 0;
  game.FollowHero = false;
  game.HeroLocked = game.TeleportActive = true;
  game.TeleportPhase = 3;
  play.Load(".2", {.time = 12, .pointsBefore = 4});
  EXPECT_EQ(game.Score, 7);
  EXPECT_EQ(game.Collected + game.TeleportPhase + game.MagicState + game.AmoebaMode + game.ElapsedTime, 0);
  EXPECT_FALSE(game.ExitOpen || game.HeroLocked || game.TeleportActive || !game.FollowHero);
  EXPECT_TRUE(game.MagicStart == 1000 && game.lblCas == 12 && game.PointsNow == 4);
  EXPECT_TRUE(game.Heroes[1].alive == 0 && game.Heroes[2] == (HeroRecord{1, 0, -1}));
}

// A blast in the last tick of a cave leaves marks; restarted there, the recording could not be replayed otherwise.
TEST(EngineSetup, EveryCellHasItsTurnInTheFirstTick) {
  Play play("F1/;;");
  play.Run("-");
  play.Load("R;/.;");
  play.Run("-");
  EXPECT_EQ(play.Shown(), Rows(".;/r;"));
}

TEST(EngineSetup, TheKeyOfTheCaveBeforeWalksNobody) {
  Play play("1.");
  play.Run("r");
  play.Load("2..", {.time = 0});
  play.Run("_");
  EXPECT_EQ(play.Shown(), Rows("2.."));
}

TEST(EngineSetup, OfTwoEqualDigitsTheLaterCellIsTheHero) {
  Play play("1.1/.H.");
  EXPECT_FALSE(play.game.MultiHero);
  play.Run("r");
  EXPECT_EQ(play.Shown(), Rows("H.H/..1"));
}

TEST(EngineSetup, StartNamesTheNumberOfHeroes) {
  const std::pair<const char*, const char*> cases[] = {
      {"1", "89"}, {"1..4", "a 4 b"}, {"1.5", "c 5 d"}, {"2", "a 2 b"}, {"...", "a 0 b"}};
  for (const auto& [rows, message] : cases) {
    Play play(rows);
    LangStr[text::kStartFewHeroes] = "a 2-4 b";
    LangStr[text::kStartManyHeroes] = "c 5-9 d";
    play.game.Command1_Click();
    EXPECT_EQ(play.Took("say"), message + std::string(":white"));
  }
}

TEST(EngineSetup, RecordingStartsWithTheCaveUnlessReplayedOrTested) {
  Play play("1");
  const std::string text = TextOfCave(";1");
  const std::pair<bool, bool> cases[] = {{false, false}, {true, false}, {false, true}};
  for (const auto& [replay, test] : cases) {
    play.game.PlayingReplay = replay;
    play.game.TestPlay = test;
    play.game.RecordBuffer = "old";
    play.pressed = {key::kUp};
    play.game.PaintCave(text);
    const std::string& record = play.game.RecordBuffer;
    EXPECT_TRUE(play.pressed.empty());  // what was pressed before does not count
    EXPECT_EQ(play.game.chkRec, replay || test ? 0 : 1);
    EXPECT_EQ(replay || test ? record : Unscramble(record.substr(0, record.size() - 2)), replay || test ? "old" : text);
  }
}

// Slime below steel is a teleport's exit, the ring above the first row included; slime above steel is an entrance, but
// the ring below the last row does not count.
TEST(EngineSetup, TeleportCells) {
  Play play("S;;W/;S;S/;W;;/;;;S");
  EXPECT_EQ(play.Shown(), Rows(".;;W/;.;./;W;;/;;;S"));
  EXPECT_TRUE(play.game.TeleportSourceX == 1 && play.game.TeleportSourceY == 1);
  EXPECT_TRUE(play.game.TeleportTargetX == 3 && play.game.TeleportTargetY == 1);  // the last one found
  play.Load(";/S");
  EXPECT_FALSE(play.game.TeleportActive);
  play.Load("S/;");
  EXPECT_TRUE(play.game.TeleportActive);
  EXPECT_EQ(play.game.TeleportTargetX + play.game.TeleportTargetY, 0);
}
