// The shipped cave set: every cave is played to its end by its script, and is what a beginner may expect of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "cave/names.h"
#include "cave/set_file.h"
#include "tools/script_player.h"

namespace {

using testing::HasSubstr;

constexpr int kCaves = 20;
constexpr std::uint64_t kSeeds = 25;

std::unique_ptr<PlayedSet> Loaded(const std::string& name) {
  auto loaded = std::make_unique<PlayedSet>();
  LoadColl(KOMNATY_FOLDER "/" + name, *loaded);
  return loaded;
}

const PlayedSet& Komnaty() {
  static const std::unique_ptr<PlayedSet> set = Loaded("Komnaty.zb");
  return *set;
}

const CaveRecord& Cave(int number) { return Komnaty().KomRec[static_cast<std::size_t>(number)]; }

Script ScriptOf(int number) {
  const std::string path = KOMNATY_FOLDER "/scripts/Komnaty/" + Digits(number, 2) + ".txt";
  return ParseScript(ReadFile(path), path);
}

int Count(int number, const std::string& characters) {
  const CaveRecord& cave = Cave(number);
  return static_cast<int>(std::count_if(cave.Cells.begin(), cave.Cells.end(),
                                        [&](char c) { return c != 0 && characters.find(c) != std::string::npos; }));
}

class EachCave : public testing::TestWithParam<int> {};

// A win within the time, whatever the rules draw. The clock has stood still for nobody: 0.1 seconds a tick.
TEST_P(EachCave, IsWonByItsScript) {
  const CaveRecord& cave = Cave(GetParam());
  const Script script = ScriptOf(GetParam());
  for (std::uint64_t seed = 1; seed <= kSeeds; ++seed) {
    ScriptPlayer player(Komnaty().KomText[static_cast<std::size_t>(GetParam())], script, seed);
    while (player.Tick()) {
    }
    ASSERT_EQ(player.outcome(), Outcome::Won) << "seed " << seed << ": " << player.explanation() << "\n"
                                              << player.game().Picture();
    const Hra& game = player.game();
    EXPECT_LT(player.ticks(), cave.Time * 10) << "seed " << seed;
    EXPECT_GE(game.Collected, cave.Need);
    EXPECT_EQ(game.Sum.aliveHeroes, Count(GetParam(), "123456789")) << "no hero may be lost on the way";
    EXPECT_EQ(game.Sum.Score(), cave.Need * cave.PointsBefore + (game.Collected - cave.Need) * cave.PointsAfter +
                                    game.Sum.secondsLeft * game.Sum.aliveHeroes);
    EXPECT_NEAR(game.Sum.secondsLeft, cave.Time - player.ticks() / 10.0, 1.1);
  }
}

// Whoever only waits wins nothing, and dies of nothing but what creeps about.
TEST_P(EachCave, StaysOnShow) {
  ScriptPlayer player(Komnaty().KomText[static_cast<std::size_t>(GetParam())], ParseScript(".50", "wait"), 1);
  while (player.Tick()) {
  }
  EXPECT_EQ(player.outcome(), Outcome::ScriptEnded) << player.explanation();
}

TEST_P(EachCave, IsClosedAndReadable) {
  const CaveRecord& cave = Cave(GetParam());
  EXPECT_GE(cave.Width, 19) << "smaller than the window";
  EXPECT_GE(cave.Height, 11);
  for (int y = 0; y < cave.Height; ++y) {
    for (int x = 0; x < cave.Width; ++x) {
      const bool isEdge = x == 0 || y == 0 || x == cave.Width - 1 || y == cave.Height - 1;
      const char c = cave.Cell(x, y);
      EXPECT_TRUE(LoadOfCharacter(c).known) << "at " << x << ", " << y;
      EXPECT_TRUE(!isEdge || c == 'W' || c == 'T') << "at " << x << ", " << y;
    }
  }
  EXPECT_EQ(Count(GetParam(), "T"), 1);
  EXPECT_FALSE(cave.Description.empty());
}

INSTANTIATE_TEST_SUITE_P(Komnaty, EachCave, testing::Range(1, kCaves + 1));

TEST(Komnaty, TheSetAsAWhole) {
  const PlayedSet& set = Komnaty();
  ASSERT_EQ(set.PocetK, kCaves);
  EXPECT_EQ(set.Name, Cp1250("Komnaty pro začátečníky"));
  EXPECT_EQ(set.Author, Cp1250("Zorbík"));
  EXPECT_THAT(set.Gratulace, HasSubstr("$P"));
  std::set<std::string> files;  // records are kept under the caves' names
  int bonuses = 0;
  int open = 0;
  for (int i = 1; i <= kCaves; ++i) {
    files.insert(CistyNazev(Cave(i).Name));
    bonuses += JeBonus(Cave(i).Name) ? 1 : 0;
    open += set.StavK[static_cast<std::size_t>(i)] == Open ? 1 : 0;
  }
  EXPECT_EQ(files.size(), static_cast<std::size_t>(kCaves));
  EXPECT_EQ(bonuses, 2);
  EXPECT_EQ(set.StavK[1], Open);
  EXPECT_FALSE(JeBonus(Cave(1).Name) || JeBonus(Cave(kCaves).Name));
  EXPECT_THAT(open, testing::AllOf(testing::Gt(1), testing::Lt(kCaves / 2))) << "starts, so that nobody gets stuck";
}

/// A cave without what is written in it.
std::string Untold(CaveRecord cave) {
  cave.Name.clear();
  cave.Description.clear();
  return BuildCaveText(cave);
}

// Only what is written differs, and is written in letters that show: the name of the set in every language.
TEST(Komnaty, HasTheSameCavesInEveryLanguage) {
  for (const char* name : {"Komnaty_en.zb", "Komnaty_ru.zb"}) {
    SCOPED_TRACE(name);
    const std::unique_ptr<PlayedSet> set = Loaded(name);
    ASSERT_EQ(set->PocetK, kCaves);
    EXPECT_EQ(set->StavK, Komnaty().StavK);
    EXPECT_TRUE(std::all_of(set->Name.begin(), set->Name.end(), [](char c) { return c >= ' ' && c <= '~'; }));
    EXPECT_THAT(set->Gratulace, HasSubstr("$P"));
    std::set<std::string> files;
    for (int i = 1; i <= kCaves; ++i) {
      const CaveRecord& cave = set->KomRec[static_cast<std::size_t>(i)];
      files.insert(CistyNazev(cave.Name));
      EXPECT_EQ(JeBonus(cave.Name), JeBonus(Cave(i).Name)) << i;
      EXPECT_NE(cave.Description, Cave(i).Description) << i;
      EXPECT_EQ(Untold(cave), Untold(Cave(i))) << i;
    }
    EXPECT_EQ(files.size(), static_cast<std::size_t>(kCaves));
  }
}

// Where gems have to be made, those that lie about must not be enough: the idea of the cave could be left out.
TEST(Komnaty, TheIdeaOfACaveCannotBeLeftOut) {
  const int butterflies = 8, bottles = 10, room = 11, mill = 13, splitter = 15, locks = 16, teleport = 17;
  const int fireworks = 19, finale = 20;
  for (const int cave : {butterflies, bottles, room, mill, splitter, locks, teleport, fireworks, finale}) {
    EXPECT_LT(Count(cave, "D"), Cave(cave).Need) << "cave " << cave;
  }
  const int doors = 14;  // a shorter way to the exit leads through four of the six rooms
  EXPECT_LT(Count(doors, "D") * 4 / 6, Cave(doors).Need);
  for (const int cave : {bottles, room}) {  // what is shut in stays below the size at which amoeba turns to stone
    EXPECT_LT(Cave(cave).Need * 22, Cave(cave).Width * Cave(cave).Height * 5) << "cave " << cave;
  }
}

}  // namespace
