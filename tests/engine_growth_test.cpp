// Amoeba, slime and growing walls.

#include <gtest/gtest.h>

#include <algorithm>

#include "base/fault.h"
#include "cave_notation.h"

TEST(EngineGrowth, AmoebaGrowsOneCellOnADrawOfOne) {
  Check({
      {"no draw of one, no second draw", "WWW.A;WWW", "2-", "WWW.A;WWW"},
      {"the second draw picks the cell", "WWW.A;WWW", "12-", "WWW.AAWWW"},
      {"in scan order", "W.W/.A./W.W/WWW", "13-", "W.W/.AA/W.W/WWW"},
      {"before the hero moves", "WWWWA.1WWWW", "11l", "WWWWAA1WWWW"},
      {"the first candidate was taken meanwhile: no second draw", ".AWWWW/V.WWWW", "1-", "VAWWWW/V.WWWW"},
      {"another one was taken: amoeba grows over it", ".A.WWW/WWVWWW", "12-", ".AAWWW/WWVWWW"},
  });
}

TEST(EngineGrowth, EnclosedAmoebaTurnsToGemsInOneScan) {
  Play play("AAWWWWWWWWWWWWWWWWWWWW");
  play.Run("- -");
  EXPECT_EQ(play.Shown(), Rows("DDWWWWWWWWWWWWWWWWWWWW"));
  EXPECT_EQ(play.Took("say"), "101:green");
  EXPECT_EQ(play.game.AmoebaMode, 3);
  Check({
      {"by what it cannot enter", "WTWWWW/DAKWWW/WXWWWW", "-", "WTWWWW/DDKWWW/WXWWWW"},
      {"in the tick in which a rock takes the last room", "RW.WWW/.AWWWW", "-", ".W.WWW/rDWWWW"},
      {"the room that amoeba takes itself still counts in its tick", "A.WWWWWWW", "11-", "AAWWWWWWW"},
      {"and not in the next", "A.WWWWWWW", "11- -", "DDWWWWWWW"},
  });
  Play blast("A.WWW");  // a cell that a blast has just left is no candidate in that tick
  blast.game.Tiles(1, 0) = Explosion;
  blast.game.Aux(1, 0) = 3;
  blast.Run("-");
  EXPECT_EQ(blast.Shown(), Rows("D.WWW"));
}

// The cell that reaches 5/22 of the area and those before it stay amoeba for a tick, the rest of the scan is rocks.
TEST(EngineGrowth, TooBigAmoebaTurnsToRocks) {
  Play play("AAAAAAA.WWWWWWWWWWWWWW");
  play.Run("-");
  EXPECT_EQ(play.Shown(), Rows("AAAAARR.WWWWWWWWWWWWWW"));
  play.Run("- -");
  EXPECT_EQ(play.Shown(), Rows("RRRRRRR.WWWWWWWWWWWWWW"));
  EXPECT_EQ(play.Took("say"), "102:green");
  Check({
      {"four cells of 22 are not enough", "AAAA.WWWWWWWWWWWWWWWWW", "- -", "AAAA.WWWWWWWWWWWWWWWWW"},
      {"five are", "AAAAA.WWWWWWWWWWWWWWWW", "- -", "RRRRR.WWWWWWWWWWWWWWWW"},
      {"two of nine are not", "AA.WWWWWW", "- -", "AA.WWWWWW"},
      {"enclosed and too big: the first cell is a gem", "AAW", "-", "DRW"},
  });
}

TEST(EngineGrowth, AmoebaTurnsFastWhileItHasRoom) {
  Play play("A.WWWWWWW", {.amoebaTime = 2});
  play.Run("-", 10);
  EXPECT_EQ(play.game.AmoebaMode, 0);  // ten times 0.1 is a little less than 1
  play.Run("- -");
  EXPECT_EQ(play.game.AmoebaMode, 1);
  EXPECT_EQ(play.Took("say"), "103:green");
  Play none(";WWW", {.amoebaTime = 0});
  none.Run("- -");
  EXPECT_EQ(none.game.AmoebaMode, 0);
}

// One number a tick, with or without amoeba, from 32 or, while amoeba is fast, from 4.
TEST(EngineGrowth, Draws) {
  const int ranges[] = {32, 4, 32, 32};
  for (int mode = 0; mode < 4; ++mode) {
    Play play(";");
    play.game.AmoebaMode = mode;
    int largest = 0;
    for (int i = 0; i < 900; ++i) largest = std::max(largest, static_cast<unsigned char>(play.Live()[0]) - 65);
    EXPECT_EQ(largest, ranges[mode]) << mode;
  }
}

TEST(EngineGrowth, CandidatesHaveALimit) {
  const auto cave = [](int room) {
    std::string rows;
    for (int y = 0; y < 51; ++y) {
      for (int x = 0; x < 81; ++x) rows += x % 3 == 1 ? 'A' : room-- > 0 ? ';' : 'W';
      rows += '/';
    }
    return rows.substr(0, rows.size() - 1);
  };
  Play play(cave(2501));
  play.Run("-");
  EXPECT_EQ(play.game.CandidateCount, 2501);
  play.Load(cave(2502));
  EXPECT_THROW(play.Run("-"), Fault);
}

TEST(EngineGrowth, SlimeLetsThroughWhatRests) {
  Check({
      {"on a draw of one", ";/R/S/./.", "12-", ";/./S/r/.", "", {.slime = 3}},
      {"a gem as well", ";/#/S/.", "12-", ";/./S/#", "", {.slime = 8}},
      {"on no other", ";/R/S/.", "32-", ";/R/S/.", "", {.slime = 3}},
      {"shut slime draws nothing", ";/R/S/.", "-", ";/R/S/."},
      {"nor does slime without room below", ";/R/S/;", "-", ";/R/S/;", "", {.slime = 8}},
      {"nor under a crate", ";/K/S/.", "-", ";/K/S/.", "", {.slime = 8}},
      {"a falling object comes to rest first", ";/r/S/.", "12-", ";/./S/r", "3", {.slime = 8}},
  });
  for (int slime = 1; slime <= 8; ++slime) {
    int largest = 0;
    Play play(";/r/S/.", {.slime = slime});
    play.game.Slime(0, 2);
    EXPECT_EQ(play.Shown(), Rows(";/r/S/."));  // in flight it does not pass
    for (int i = 0; i < 3000; ++i) {
      play.game.ClearField(0, 3);
      play.game.Tiles(0, 1) = Rock;
      play.game.Motion(0, 1) = 2;
      play.game.Slime(0, 2);
      largest = std::max(largest, static_cast<unsigned char>(play.game.RecordBuffer.back()) - 65);
    }
    EXPECT_EQ(largest, 1 << (8 - slime));
  }
}

TEST(EngineGrowth, Walls) {
  Check({
      {"one cell a tick in both directions", "..E..", "-", ".EEE."},
      {"the new cell waits for the next tick", "E...", "- -", "EEE."},
      {"upward and downward", "./V/./.", "-", "V/V/V/."},
      {"only into empty cells", ";E;/RVR/;;;", "-", ";E;/RVR/;;;"},
      {"not across their line", ".V./.../.E.", "-", ".V./.V./EEE"},
  });
}
