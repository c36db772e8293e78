// Replay lines, good and bad; recordings of random play; copies of a game.

#include <gtest/gtest.h>

#include "base/fault.h"
#include "cave/scramble.h"
#include "cave_notation.h"
#include "engine/replay.h"

TEST(EngineReplay, EndOfTheLinesEndsTheTickAndARestIsANote) {
  Play play("r/.");
  play.game.PlayingReplay = true;
  play.game.tmrHra_Timer();  // an empty line
  EXPECT_EQ(play.Took("restart"), ".");
  play.ended = true;
  play.game.tmrHra_Timer();
  EXPECT_EQ(play.Took("restart"), "");
  EXPECT_EQ(play.Shown(), Rows("r/."));
  EXPECT_EQ(play.game.ElapsedTime, 0);
  play.ended = false;
  play.next = "CAAB" + Scramble("Hop!");
  play.game.tmrHra_Timer();
  EXPECT_EQ(play.Took("say"), "Hop!:cyan");
}

TEST(EngineReplay, TheLineSelectsTheHero) {
  Play play("1.2.3");
  play.Run("-@3 l@3 r@1");
  EXPECT_EQ(play.Shown(), Rows(".123."));
  EXPECT_EQ(play.Took("sound"), "7 7");
}

// Lines come from strangers' files. What does not fit is a Fault; what can be carried out is.
TEST(EngineReplay, DamagedLines) {
  const auto fits = [](const char* rows, const std::string& line) {
    Play play(rows);
    play.game.PlayingReplay = true;
    play.next = line;
    try {
      play.game.tmrHra_Timer();
    } catch (const Fault&) {
      return false;
    }
    return true;
  };
  const std::string high = "\xFF";
  for (const char* line : {"C", "CA", "CAA", "CfAB", "CAAM"}) EXPECT_FALSE(fits("12", line)) << line;
  EXPECT_FALSE(fits("12", "CAA" + high));           // hero 190
  EXPECT_FALSE(fits("L", "B"));                     // no draw for amoeba
  EXPECT_FALSE(fits("L", " CAAB"));                 // a direction below 0
  EXPECT_FALSE(fits("A.WWWWW", "BAAAB"));           // amoeba grows into cell 0 of the list
  EXPECT_FALSE(fits("1!%", "ChABC" + high + "B"));  // a lock outside the cave
  EXPECT_TRUE(fits("A.WWWWW", "B" + high + "AAB"));
  EXPECT_TRUE(fits("L", high + "CAAB"));
  EXPECT_TRUE(fits("12", "CAAA"));  // no hero: as recorded once nobody is left
}

namespace {

std::size_t Below(Random& random, std::size_t n) {
  return static_cast<std::size_t>(random.Next() * static_cast<double>(n));
}

/// A random cave with every kind of tile, teleport and heroes with gaps included.
std::string RandomCave(Random& random) {
  const std::string common = "....;;;;RDX";
  const std::string rare = ".;RDXMFOPQUYZBWTAKEVSLL!@#%^&KKSA123456789";
  const std::size_t width = 1 + Below(random, 24);
  const std::size_t cells = width * (1 + Below(random, 14));
  std::string rows;
  for (std::size_t i = 0; i < cells; ++i) {
    if (i > 0 && i % width == 0) rows += '/';
    const std::string& from = Below(random, 3) == 0 ? rare : common;
    rows += from[Below(random, from.size())];
  }
  if (width > 3 && cells > 3 * width) {  // with a teleport, which chance hardly ever makes
    for (const auto& [place, tile] :
         {std::pair(width + 2, 'S'), {2 * width + 3, 'W'}, {width + 4, 'W'}, {2 * width + 5, 'S'}})
      rows[place] = tile;
  }
  return rows;
}

bool SameCells(const Hra& one, const Hra& other) {
  return one.Tiles == other.Tiles && one.Motion == other.Motion && one.Aux == other.Aux;
}

/// What holds between any two ticks.
bool Consistent(const Hra& game) {
  bool good = true;
  for (int y = -1; y <= game.CaveHeight; ++y) {
    for (int x = -1; x <= game.CaveWidth; ++x) {
      const bool inside = x >= 0 && y >= 0 && x < game.CaveWidth && y < game.CaveHeight;
      good = good && (inside ? game.Tiles(x, y) < kTileCodes : game.Tiles(x, y) == SteelWall);
      good = good && game.Motion(x, y) <= 3 && game.Aux(x, y) <= 15;
    }
  }
  return good;
}

}  // namespace

// One game has surroundings that write everything down, the other none at all: the rules are the same.
TEST(EngineReplay, ACopyGoesOnAsTheFirstWouldHave) {
  Random random(7);
  for (int cave = 0; cave < 60; ++cave) {
    const std::string rows = RandomCave(random);
    const Numbers numbers = {.magicTime = 2, .amoebaTime = 3, .slime = cave % 9};
    Play play(rows, numbers);
    Hra bare;
    bare.PaintCave(TextOfCave(rows, numbers));
    for (int tick = 0; tick < 20; ++tick) bare.tmrHra_Timer();
    Hra copy = bare;
    for (int tick = 0; tick < 60; ++tick) bare.tmrHra_Timer();
    for (int tick = 0; tick < 60; ++tick) copy.tmrHra_Timer();
    for (int tick = 0; tick < 80; ++tick) {
      play.Live();
      ASSERT_TRUE(Consistent(play.game)) << rows << "\n" << play.Shown();
    }
    ASSERT_TRUE(SameCells(copy, bare) && SameCells(play.game, bare)) << rows;
  }
}

TEST(EngineReplay, ReproducesEveryCellOfEveryTick) {
  Random random(11);
  for (int cave = 0; cave < 60; ++cave) {
    const auto below = [&random](std::size_t n) { return static_cast<int>(Below(random, n)); };
    Play play(RandomCave(random), {.time = cave % 4 == 0 ? 6 : 200,  // some run out of time
                                   .need = below(3),
                                   .magicTime = below(8),
                                   .amoebaTime = below(8),
                                   .slime = below(9)});
    play.game.random = Random(static_cast<std::uint64_t>(cave));
    std::vector<std::uint32_t> cells;
    while (cells.size() < 150 && !play.game.Won) {
      play.held.clear();
      for (const int code : {37, 38, 39, 40, 32, 9, 97, 98, 99}) {
        if (below(4) == 0) play.held.insert(code);
      }
      play.Live();
      cells.push_back(CellsCrc(play.game));
    }
    const Recording recording = ReadRecording(RecordText("s", 0, "p", play.game.RecordBuffer));
    Replay replay(recording, true);
    for (const std::uint32_t expected : cells) {
      ASSERT_TRUE(replay.Tick()) << "cave " << cave << " tick " << replay.ticks();
      ASSERT_EQ(CellsCrc(replay.game()), expected) << "cave " << cave << " tick " << replay.ticks();
    }
    EXPECT_FALSE(replay.Tick());
    EXPECT_EQ(replay.won(), play.game.Won);
  }
}
