// The player of scripts, and zbplay around it.

#include "tools/script_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "cave/cave_text.h"
#include "cave/set_file.h"
#include "kit/fault_check.h"
#include "kit/run_program.h"
#include "kit/temp_folder.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// A cave of the rows, with the steel ring around it, 60 seconds.
std::string CaveOf(const std::vector<std::string>& rows, int need = 1) {
  CaveRecord cave;
  cave.Name = "Test";
  cave.Width = static_cast<std::uint8_t>(rows[0].size());
  cave.Height = static_cast<std::uint8_t>(rows.size());
  cave.Time = 60;
  cave.Need = static_cast<std::int16_t>(need);
  cave.PointsBefore = 5;
  cave.PointsAfter = 7;
  for (int y = 0; y < cave.Height; ++y) {
    for (int x = 0; x < cave.Width; ++x)
      cave.Cell(x, y) = rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
  }
  return BuildCaveText(cave);
}

struct Played {
  Outcome outcome;
  std::string explanation;
  std::string picture;
  int ticks;
  int score;
};

Played Play(const std::vector<std::string>& rows, const std::string& script, int need = 1, std::uint64_t seed = 1) {
  ScriptPlayer player(CaveOf(rows, need), ParseScript(script, "s"), seed);
  while (player.Tick()) {
  }
  return {player.outcome(), player.explanation(), player.game().Picture(), player.ticks(), player.game().Sum.Score()};
}

TEST(ScriptPlayer, WalksCollectsAndWins) {
  const Played played = Play({"1;D;T"}, "R4");
  EXPECT_EQ(played.outcome, Outcome::Won);
  EXPECT_EQ(played.ticks, 4);
  EXPECT_EQ(played.score, 5 + 59);
}

TEST(ScriptPlayer, TriesAgainUntilAStepIsReallyDone) {
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    EXPECT_EQ(Play({"1R...", "WWWWW"}, "R2", 1, seed).picture, "..1R.\nWWWWW\n") << "a stone moves one time in four";
    EXPECT_EQ(Play({"1KW"}, "R", 1, seed).picture, "K1W\n") << "the dog and the crate change places in the end";
    EXPECT_EQ(Play({"1R..", "WWWW"}, "r", 1, seed).picture, "1.R.\nWWWW\n") << "pushed from where the hero stands";
  }
}

TEST(ScriptPlayer, ActsWithoutMoving) {
  EXPECT_EQ(Play({"1;.", "DWW"}, "r d R").picture, ".1.\n.WW\n");
  const Played late = Play({"D.", ".1", "WW"}, ".1 l");  // the gem comes down beside the hero first
  EXPECT_EQ(late.picture, "..\n.1\nWW\n");
  EXPECT_EQ(Play({"1!.", "WWW"}, "r").picture, "1..\nWWW\n");
  for (const char* object : {"R", "D", "!"}) {  // what falls away from beside the hero was not taken by him
    EXPECT_EQ(Play({"1" + std::string(object) + "..", "....", "WWWW"}, "r").outcome, Outcome::Stuck) << object;
  }
}

TEST(ScriptPlayer, DrawsByItsSeed) {
  std::set<int> ticks;
  for (std::uint64_t seed = 1; seed <= 20; ++seed) ticks.insert(Play({"1R..", "WWWW"}, "R", 1, seed).ticks);
  EXPECT_GT(ticks.size(), 2u);
}

TEST(ScriptPlayer, WaitsForTicksGemsAndCells) {
  EXPECT_EQ(Play({"1..."}, "R .5 R").ticks, 7);
  EXPECT_EQ(Play({"1..."}, "R @9 @3 R").ticks, 10);
  EXPECT_EQ(Play({"R1.", "...", "..."}, "?0,2=R R").ticks, 3);
  EXPECT_EQ(Play({"R1.", "...", "..."}, "?0,0!R R").ticks, 2);
  EXPECT_EQ(Play({"R1.", "...", "..."}, "?-1,+2=R R").ticks, 3);
  EXPECT_EQ(Play({"1D.."}, "R $1 R").ticks, 2);
  EXPECT_EQ(Play({"1D.."}, "$1 R").outcome, Outcome::TimeOut) << "the cave's time ends every wait";
}

TEST(ScriptPlayer, RepeatsAndSkipsRemarks) {
  EXPECT_EQ(Play({"1....", "....."}, "(R2 // there\n L)2\n(D U)2 (R)0").picture, "..1..\n.....\n");
}

TEST(ScriptPlayer, SelectsHeroes) {
  EXPECT_EQ(Play({"1..2."}, "#2 R #1 R").picture, ".1..2\n");
  const Played dead = Play({"1W2R", "WW;.", "WWWW"}, "#2 D #1 #2");
  EXPECT_EQ(dead.outcome, Outcome::ScriptEnded);
  EXPECT_EQ(Play({"1.W", "..W"}, "#3").explanation, "there is no hero 3");
}

TEST(ScriptPlayer, WaitsInTheTeleport) {
  // The hero steps onto the way in (0, 1), comes out at (4, 1) below the steel, and walks on from there by one.
  const Played played = Play({"..WWW..", "1S.WS..", ".WWW..."}, "R R");
  EXPECT_EQ(played.picture, "..WWW..\n...W.1.\n.WWW...\n");
}

TEST(ScriptPlayer, SaysWhyACaveIsNotWon) {
  const Played stuck = Play({"1W"}, "\nR");
  EXPECT_EQ(stuck.outcome, Outcome::Stuck);
  EXPECT_THAT(stuck.explanation, AllOf(HasSubstr("\"R\""), HasSubstr("line 2")));
  EXPECT_EQ(Play({"R..", "...", "1.."}, ".9").explanation, "the hero is dead");
  EXPECT_EQ(Play({"R2", "..", "1."}, ".9").outcome, Outcome::ScriptEnded) << "another hero is alive";
  EXPECT_EQ(Play({"R2", "..", "1."}, ".9 R").explanation, "hero 1 is dead");
  EXPECT_EQ(Play({"1."}, ".700").explanation, "the time is out");
  EXPECT_EQ(Play({"1."}, "").explanation, "the script has ended");
}

TEST(ScriptPlayer, StaysInsideTheLargestCave) {
  EXPECT_EQ(Play({std::string(80, '.') + "1"}, "R").outcome, Outcome::Stuck);
  EXPECT_EQ(Play({"1."}, "l").outcome, Outcome::Stuck);
}

TEST(ParseScript, SaysWhereTheMistakeIs) {
  const auto expect = [](const std::string& script, const std::string& place, const std::string& reason) {
    ExpectFault([&] { ParseScript(script, "s.txt"); }, place, reason);
  };
  expect("R2\n  X3", "s.txt:2", "begins with \"X\"");
  expect("#", "s.txt:1", "number is missing");
  expect("#0", "s.txt:1", "from 1 to 9");
  expect("// fine\n(R\n(L)", "s.txt:2", "never closed");
  expect("R)", "s.txt:1", "without a \"(\"");
  expect("?3=R", "s.txt:1", "\",\" is missing");
  expect("?3,4R", "s.txt:1", "\"=\" or \"!\"");
  expect("?3,4= R", "s.txt:1", "characters to wait for");
  expect(".123456", "s.txt:1", "number above");
  expect("(R999)999", "s.txt:1", "more than 20000 steps");
  expect(std::string(30, '('), "s.txt:1", "20 deep");
  expect(std::string("R\0R", 3), "s.txt:1", "code 0");
}

// --- the program

ProgramRun RunZbplay(const std::string& arguments) { return RunProgram(std::string("'") + ZBPLAY + "' " + arguments); }

class Zbplay : public testing::Test {
 protected:
  Zbplay() {
    EditedSet set;
    set.Name = "Sada";
    set.PocetK = 2;
    set.KomText[1] = CaveOf({"1;D;T"});
    set.KomText[2] = CaveOf({"1.."});
    SaveColl(path_, set);
  }

  /// Runs zbplay on a cave of the set, with a script if one is given.
  ProgramRun Run(const std::string& cave, const std::string& script = "", const std::string& options = "") {
    const std::string file = script.empty() ? "" : " '" + folder_.Make("my script.txt", script) + "'";
    return RunZbplay(options + " '" + path_ + "' " + cave + file);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("sada.zb");
};

TEST_F(Zbplay, ShowsTheLastPictureAndTheResult) {
  const ProgramRun won = Run("1", "R4");
  EXPECT_EQ(won.status, 0);
  EXPECT_THAT(won.output,
              AllOf(HasSubstr("Sada"), HasSubstr("gems 1 of 1"), HasSubstr("won with 64 points after 0.4 s")));
  EXPECT_THAT(won.output, HasSubstr("\n        @1\n")) << "two characters a cell";
  EXPECT_THAT(won.output, Not(HasSubstr("\x1b"))) << "colours are for terminals";
  const ProgramRun notWon = Run("1", "R");
  EXPECT_EQ(notWon.status, 1);
  EXPECT_THAT(notWon.output, HasSubstr("not won: the script has ended after 0.1 s"));
  EXPECT_THAT(Run("1", "R2", "--every 1").output, AllOf(HasSubstr("tick 1"), HasSubstr("tick 2")));
  EXPECT_EQ(RunProgram("echo R4 | '" ZBPLAY "' --summary '" + path_ + "' 1 -").output,
            "01  Test                        won with 64 points after 0.4 s\n");
}

TEST_F(Zbplay, FindsTheShippedScripts) {
  EXPECT_THAT(Run("1").output, HasSubstr("no script is shipped"));
  folder_.Make("scripts/sada/01.txt", "R4");
  EXPECT_EQ(Run("1").status, 0);
  const ProgramRun all = Run("", "", "--summary");
  EXPECT_EQ(all.status, 1);
  EXPECT_THAT(all.output,
              AllOf(HasSubstr("01  Test"), HasSubstr("won with 64"), HasSubstr("02  Test"), HasSubstr("not won")));
  const ProgramRun list = Run("");
  EXPECT_EQ(list.status, 0);
  EXPECT_THAT(list.output, HasSubstr("01 * Test  (5 x 1, 1 gems, 60 s)"));
}

TEST_F(Zbplay, StopsAndDrawsAsAsked) {
  EXPECT_THAT(Run("1", ".99", "--ticks 7").output,
              AllOf(HasSubstr("tick 7"), HasSubstr("not won: stopped after 0.7 s")));
  EXPECT_EQ(Run("1", ".9", "--seed 3").output, Run("1", ".9", "--seed 3").output);
}

TEST_F(Zbplay, SaysWhatIsWrong) {
  const auto expect = [](const ProgramRun& run, const std::string& what) {
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.output, HasSubstr(what));
  };
  expect(Run("1", "R\nx"), "my script.txt:2: no step begins with \"x\"");
  expect(Run("3"), path_ + ": The set has no cave 3; it has 2.");
  expect(Run("0"), "CAVE: Value 0 not in range");
  expect(Run("1 nowhere.txt"), "nowhere.txt");
  expect(Run("1", "", "--every x"), "--every");
  expect(Run("1", "", "--wrong"), "--wrong");
  expect(RunZbplay(""), "SET is required");
  expect(RunZbplay("nowhere.zb"), "nowhere.zb");
  expect(RunZbplay("'" + folder_.Make("no.zb", "no set") + "'"), "no.zb");
  const ProgramRun help = RunZbplay("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, AllOf(HasSubstr("--every"), HasSubstr("select hero 2")));
}

}  // namespace
