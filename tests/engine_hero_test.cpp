// Steps of the hero, locks, the exit and the teleport.

#include <gtest/gtest.h>

#include "cave_notation.h"
#include "kit/fault_check.h"

TEST(EngineHero, WalksDigsAndCollects) {
  Check({
      {"walks", "1.", "r", ".1"},
      {"digs", "1;", "r", ".1", "0"},
      {"digs without moving", "1;", "R", "1.", "0"},
      {"takes a gem", "1D", "r", ".1", "2"},
      {"takes a gem without moving", "D/1", "U", "./1", "2"},
      {"a falling gem is no prey", "Wd/1.", "r", "W./1d"},
      {"nor is a falling rock pushed", "Wr./1..", "r1", "W../1r."},
      {"gravity comes before the step", "r./.1", "l", "../r1"},
      {"the ring is no way", "1", "u d l r", "1"},
  });
  for (const char obstacle : std::string("XMWEVSTA%^&")) {
    const std::string rows = std::string(";;;;;;;;/1") + obstacle + ";;;;;;";
    Play play(rows);
    play.Run("r1 R1");
    EXPECT_EQ(play.Shown(), Rows(rows));
  }
}

TEST(EngineHero, ScoreCountsPlainGemsOnly) {
  Play play("1D!DD", {.need = 2, .pointsBefore = 3, .pointsAfter = 50});
  play.Run("r r211 R");  // the coloured gem tries to open a lock; the next one is taken without moving
  EXPECT_EQ(play.game.Collected, 2);
  EXPECT_EQ(play.game.Score, 6);
  EXPECT_FALSE(play.game.ExitOpen);  // seen at the start of the next tick
  play.Run("r r");
  EXPECT_EQ(play.game.Score, 56);
}

TEST(EngineHero, CratesAndRocks) {
  Check({
      {"a crate goes into an empty cell at every try", "1K.", "r2", ".1K", "6"},
      {"down, and it hangs there", "1/K/./.", "d -", "./1/K/.", "6"},
      {"up", "./K/1", "u", "K/1/.", "6"},
      {"with the hero staying behind", ".K1", "L", "K.1", "6"},
      {"not against dirt without luck", "1K;", "r2 r3 r4", "1K;"},
      {"with luck they change places, heard twice", "1KW", "r1", "K1W", "6 6"},
      {"and the crate is as round as before", "D../1KW", "r1 u r -", ".d1/K.W", "6 6"},
      {"never from where the hero stands", "1KW", "R1", "1KW"},
      {"a rock is pushed with luck", "1R.", "r1", ".1R", "4"},
      {"and not without", "1R.", "r2 r3 r4", "1R."},
      {"to the left", ".R1", "l1", "R1.", "4"},
      {"with the hero staying behind", "1R.", "R1", "1.R", "4"},
      {"never against something", "1R;", "r1", "1R;"},
      {"never down", "1/R/;/.", "d1", "1/R/;/."},
      {"never up", "./R/1", "u1", "./R/1"},
      {"over an edge it falls in the next tick", "1R./WW.", "r1 -", ".1./WWr", "4"},
  });
}

TEST(EngineHero, ControlPassesToAnotherHeroWithLuck) {
  Play play("12");
  play.Run("r2");
  EXPECT_EQ(play.game.CurrentHero, 1);
  play.Run("r1");
  EXPECT_EQ(play.game.CurrentHero, 2);
  EXPECT_EQ(play.Shown(), Rows("12"));
  EXPECT_EQ(play.Took("sound"), "7");
  Check({{"a hero tile without a record is an obstacle", "11", "l1", "H1"}});
}

// Draws after the first one are places, column and row, each one more than on the grid.
TEST(EngineHero, GemsOpenTheirShareOfTheLocks) {
  Check({
      {"one red gem turns all red locks to rocks", "1!%%%^", "r2314151", ".1RRR^"},
      {"misses are tried again", "1!%W", "r2114131", ".1RW"},
      {"green locks to crates", "1@^.", "r231 r", "..1K", "6"},
      {"blue locks to nothing, also from where the hero stands", "1#&", "R231", "1.."},
      {"two gems and three locks: one, then two", "1!!%%%", "r241 r25161", "..1RRR"},
      {"no locks: one try all the same", "1!.", "r211", ".1."},
      {"a share of 0 tries once", "1!!%", "r211", ".1!%"},
      {"and opens every lock when it hits", "1!!!%%", "r2511161", ".1!!RR"},
      {"the rocks have weight", "!1%/WW.", "l231 -", "1../WWr"},
  });
  Play crate("1@^");
  crate.Run("r231");
  EXPECT_EQ(crate.game.Motion(2, 0), 1);
}

// A cave with an entrance alone keeps the exit of the cave before, which may lie beyond its ring.
TEST(EngineHero, GemOutsideTheCaveIsAFault) {
  Play play(";;;;W;/;;;;S!/1;;;;;");
  play.Load(";;;/1S;/;W;");
  play.Run("r _ _ _ -");
  EXPECT_EQ(play.game.Heroes[1], (HeroRecord{4, 1, -1}));
  ExpectFault([&play] { play.Run("r"); }, "", "outside the cave");
}

TEST(EngineHero, Exit) {
  Check({
      {"shut it is a wall", "1T", "r1", "1T"},
      {"open it is entered", "1T", "r", ".1", "", {.need = 0}},
      {"but not by digging", "1T", "R", "1T", "", {.need = 0}},
      {"the last gem opens it", "1DT", "r r", "..1", "2", {.need = 1}},
  });
  Play play("12T3", {.time = 100, .need = 0});
  play.game.Heroes[3].alive = 0;
  play.Run("-");
  play.game.Need = 2;
  play.game.Collected = 5;
  play.Run("r@2");
  EXPECT_TRUE(play.game.Won);
  EXPECT_EQ(play.Took("stop") + play.Took("won"), "..");
  EXPECT_EQ(play.game.Heroes[2], (HeroRecord{2, 0, -1}));
  EXPECT_EQ(play.game.Sum.Score(), 2 * 5 + 3 * 20 + 2 * 99);
}

TEST(EngineHero, ADeadHeroStaysWhileTheCaveGoesOn) {
  Play play("r.2/1.;");
  play.Run("- - r~ r~ -@2 l l");
  EXPECT_EQ(play.Shown(), Rows("2../..;"));
  EXPECT_EQ(play.Took("strip"), "1,76 1,76 1,76 1,76 2,75 1,76 1,76 1,76");  // marked as dead in every tick
}

namespace {
/// Entrance at (1,1) above steel, exit at (3,1) below steel.
constexpr const char* kTeleport = ";;;W/1S;S/2W;.";
}  // namespace

TEST(EngineHero, TeleportTakesFourTicksBetweenSteelWalls) {
  Play play(kTeleport);
  play.Run("r _");
  EXPECT_EQ(play.Shown(), Rows(";;;W/.W;W/2W;."));
  play.game.Exploze(2, 1, 0, 0);
  play.Run("_ _");  // no keys, no deaths, no steps
  EXPECT_EQ(play.Shown(), Rows(";**W/.W*W/2W**"));
  play.Run("-");
  EXPECT_EQ(play.Shown(), Rows(";**W/..*1/2W**"));
  EXPECT_EQ(play.Took("strip"), "1,66 1,75");  // selected anew when lifted, never marked as dead
}

TEST(EngineHero, AnythingTravelsAsItIs) {
  Play play(kTeleport);
  const auto put = [&play](std::uint16_t tile, std::uint8_t motion, std::uint8_t aux) {
    play.game.Tiles(1, 1) = tile;
    play.game.Motion(1, 1) = motion;
    play.game.Aux(1, 1) = aux;
  };
  put(Rock, 2, 0);
  play.Run("- - -");
  EXPECT_EQ(play.Shown(), Rows(";;;W/1W;W/2W;."));
  play.Run("-");
  EXPECT_EQ(play.Shown(), Rows(";;;W/1.;./2W;r"));  // what arrives takes part in the same tick
  put(Butterfly, 3, 2);
  for (int i = 0; i < 4; ++i) play.game.Teleport();
  EXPECT_EQ(play.Shown(), Rows(";;;W/1.;Y/2W;r"));
  EXPECT_EQ(play.game.Motion(3, 1), 3);
  EXPECT_EQ(play.game.Motion(1, 1) + play.game.Aux(1, 1), 0);
  put(Rock, 2, 0);
  play.game.Teleport();
  EXPECT_EQ(play.game.TeleportPhase, 0);  // the exit is taken
}

TEST(EngineHero, TeleportSelectsItsHero) {
  Play play(kTeleport);
  play.game.ClearField(0, 2);
  play.game.Tiles(1, 1) = HeroTile;
  play.game.Heroes[1] = HeroRecord{1, 1, 0};  // died on the entrance earlier
  play.game.Heroes[2] = HeroRecord{1, 1, -1};
  for (int i = 0; i < 4; ++i) play.game.Teleport();
  EXPECT_EQ(play.game.CurrentHero, 2);
  EXPECT_EQ(play.game.Heroes[2], (HeroRecord{3, 1, -1}));
  EXPECT_FALSE(play.game.HeroLocked);
  EXPECT_EQ(play.Took("sound"), "7");
  Play nobody(kTeleport);
  nobody.game.Tiles(1, 1) = HeroTile;  // no record points here
  nobody.game.Teleport();
  EXPECT_FALSE(nobody.game.HeroLocked);
  nobody.Run("u - -");  // the hero can go on meanwhile
  EXPECT_EQ(nobody.Shown(), Rows("1;;W/..;H/2W;."));
}

// An entrance that the cave before has left where this one has its ring: the ring itself is taken away as a thing.
TEST(EngineHero, AnEntranceOfTheCaveBeforeOpensTheRing) {
  Play play(";;;/;S;/;W;");
  play.Load("S/1/;");  // an exit alone
  play.Run("- - -");
  EXPECT_EQ(play.game.Tiles(1, 1), SteelWall);
  play.Run("r");
  EXPECT_EQ(play.Shown(), Rows("W/./;"));
  EXPECT_EQ(play.game.Heroes[1], (HeroRecord{1, 1, -1}));  // outside
}
