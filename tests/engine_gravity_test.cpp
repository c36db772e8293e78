// Falling, rolling, the magic wall, the splitter, and the blasts of what is fallen on.

#include <gtest/gtest.h>

#include "cave_notation.h"

TEST(EngineGravity, AtRest) {
  Check({
      {"starts to fall, one cell a tick", "R/./.", "-", "./r/."},
      {"only the lower of two starts, for rows go from the top", "R/R/.", "-", "R/./r"},
      {"rolls left before right", ".R./.R.", "-", "r../.R."},
      {"rolls right once when the left is blocked", "WR./.R.", "-", "W.r/.R."},
      {"the cell below the left one has to be empty too", ".R./WR.", "-", "..r/WR."},
      {"the cell below the right one too", "WR./.RW", "-", "WR./.RW"},
      {"off a wall", ".R./.X.", "-", "r../.X."},
      {"off a crate and a lock", ".R..D./.K..%.", "-", "r..d../.K..%."},
      {"not off steel or dirt", ".R..R./.W..;.", "-", ".R..R./.W..;."},
      {"not off a magic wall, nor into it", ".R./.M./...", "-", ".R./.M./..."},
      {"not off a hero, who is not hurt", ".R./.1.", "- -", ".R./.1."},
      {"crates, walls and locks hang in the air", "KX%^&/.....", "-", "KX%^&/....."},
  });
  const std::string steel(63, 'W');  // the last columns of the widest cave
  Play wide(steel + "RRRRRRRRRRRRRRRRRR/" + steel + "..................");
  wide.Run("-");
  EXPECT_EQ(wide.Shown(), Rows(steel + "................../" + steel + "rrrrrrrrrrrrrrrrrr"));
}

TEST(EngineGravity, Falling) {
  Check({
      {"falls on without a sound", "r/./.", "-", "./r/."},
      {"a rock lands", "r", "-", "R", "3"},
      {"a gem lands", "d", "-", "D", "1"},
      {"a coloured gem lands", "i/;", "-", "!/;", "1"},
      {"lands on something rounded and rolls left in flight", ".d./.R.", "- -", ".../dR.", "1"},
      {"or right", "Wr./.X.", "-", "W.r/.X.", "3"},
      {"or rests, with one sound", "WrW/.X.", "-", "WRW/.X.", "3"},
      {"the upper of two in flight lands on the lower", "r/r/.", "-", "R/./r", "3"},
  });
}

TEST(EngineGravity, MagicWall) {
  Check({
      {"a rock comes out as a gem, which waits for the next tick", "r/M/./.", "-", ":/M/d/.", "9"},
      {"a gem as a rock", "d/M/.", "-", ":/M/r", "9"},
      {"a coloured gem as a gem", "i/M/.", "-", ":/M/d", "9"},
      {"without room it is lost", "r/M/;", "-", ":/M/;", "9"},
      {"a plain wall is none", "r/X/.", "-", "R/X/.", "3"},
  });
  Play play("rR/MM/..", {.magicTime = 0});
  play.Run("-");
  EXPECT_EQ(play.Took("say"), "96:yellow");
  play.game.Motion(1, 0) = 3;
  play.Run("-", 5);
  EXPECT_EQ(play.Shown(), Rows("::/MM/D."));  // the second came too late: swallowed, and nothing comes out
  EXPECT_EQ(play.Took("say"), "104:yellow");
  Play late("r/M/.", {.time = 0, .magicTime = 0});
  late.Run("_", 5);
  EXPECT_EQ(late.game.MagicState, 1);  // the clock stands still, so the magic does not end
}

// What a magic wall swallows leaves its Motion 2 behind, on an empty cell.
TEST(EngineGravity, InvisibleWeight) {
  Check({
      {"rests on the wall for good", ":/M/.", "- - -", ":/M/."},
      {"gives way to what falls", "R/:/M", "-", "./r/M"},
      {"falls like a rock and kills", ":/./1", "- -", "./*/*", "5"},
      {"passes slime", ";/:/S/.", "12-", ";/./S/|", "", {.slime = 8}},
      {"makes a growing wall fall", "E:/W.", "- -", "E./Wf"},
      {"is trodden out by a hero", "1:/W;", "r l", "1./W;"},
      {"takes a creature down, which stands still from then on", "P:/W.", "- -", "../WF", "3"},
  });
}

TEST(EngineGravity, Splitter) {
  Check({
      {"divides what falls on it", ".r./WEW/.../...", "-", ".../WEW/r.r/...", "3"},
      {"only to the free sides", ".d./WEW/;..", "-", ".../WEW/;.d", "1"},
      {"and what has no side is gone", ".i./WEW/;.;", "-", ".../WEW/;.;", "1"},
      {"what rests on it stays", ".R./WEW/...", "-", ".R./WEW/..."},
      {"one side of another wall is not enough", ".r./XEW/...", "-", ".R./XEW/...", "3"},
      {"whichever side", ".r./WEX/...", "-", ".R./WEX/...", "3"},
  });
}

TEST(EngineGravity, TheCalmRuleOfRollingStandsByItself) {
  Play play(".R./.R.");
  play.game.ZaoblenéObjekty(1, 0);
  EXPECT_EQ(play.Shown(), Rows("R../.R."));
}

// A rock falls on the middle of nine cells. The centre alone decides, and creatures beside it vanish without a blast.
TEST(EngineBlast, FramesAndRemainsByCentre) {
  const std::pair<const char*, const char*> kinds[] = {{";rF/;FU/TXM", ".../.../..."},
                                                       {"KrA/;1;/;%;", ".../.../..."},
                                                       {";rU/;L1/FAS", "RRR/RRR/RRR"},
                                                       {"DrF/;UL/1;E", "DDD/DDD/DDD"}};
  int frame = 0;
  for (const auto& [rows, left] : kinds) {
    SCOPED_TRACE(rows);
    Play play(rows);
    for (const int end = frame + 4; frame < end; ++frame) {
      play.Run("-");
      EXPECT_EQ(play.Shown(), Rows("***/***/***"));
      EXPECT_EQ(play.game.Aux(0, 0), frame);
      EXPECT_EQ(play.game.pctK[Explosion], picture::kExpld + frame);
    }
    play.Run("-");
    EXPECT_EQ(play.Shown(), Rows(left));
    EXPECT_EQ(play.Took("sound"), "5");
  }
}

TEST(EngineBlast, SparesSteelAndItsRemainsWaitATick) {
  Check({
      {"only steel survives", "WrW/WUW/W;W/W.W", "-", "W*W/W*W/W*W/W.W", "5"},
      {"the remains", "WrW/WUW/W;W/W.W", "- - - - -", "WDW/WDW/WDW/W.W", "5"},
      {"fall a tick later", "WrW/WUW/W;W/W.W", "- - - - - -", "WDW/WDW/W.W/WdW", "5"},
  });
  Play play("FU;;");
  play.game.Exploze(1, 0, 0, 0);
  play.Run("- -");
  play.game.Exploze(3, 0, 3, 2);  // the last two arguments mean nothing
  play.Run("- -");
  EXPECT_EQ(play.Shown(), Rows("DD**"));  // a later blast starts the frames of its cells again
  Play ending("R/.");
  ending.game.Tiles(0, 1) = Explosion;
  ending.game.Aux(0, 1) = 3;
  ending.Run("-");
  EXPECT_EQ(ending.Shown(), Rows("./r"));  // blasts end before gravity looks
}

// The blast is not cut by another sound in its own tick and the next.
TEST(EngineBlast, SoundLock) {
  Play play("WrWr/WFWW");
  std::string sounds;
  for (int tick = 0; tick < 3; ++tick) {
    play.game.Motion(3, 0) = 3;
    play.Run("-");
    sounds += play.Took("sound") + "/";
  }
  EXPECT_EQ(sounds, "5//3/");
  play.settings.Zvuk = 0;
  play.game.Exploze(1, 1, 0, 0);
  EXPECT_EQ(play.game.SoundLock, 0);
  EXPECT_EQ(play.Took("sound"), "");
}
