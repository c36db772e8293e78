// Records: written, read back, replayed, judged by zbrcheck.

#include "engine/recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "base/fault.h"
#include "base/files.h"
#include "cave/cave_text.h"
#include "cave/scramble.h"
#include "engine/replay.h"
#include "kit/temp_folder.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A cave of three cells' walk: hero, gem, exit. Its sum is 10 + seconds left.
std::string SmallCave(const std::string& name = "Chodba") {
  CaveRecord record;
  record.Name = name;
  record.Width = 4;
  record.Height = 1;
  record.Time = 150;
  record.Need = 1;
  record.PointsBefore = 10;
  record.PointsAfter = 20;
  for (int x = 0; x < 4; ++x) record.Cell(x, 0) = "1DT;"[static_cast<std::size_t>(x)];
  return BuildCaveText(record) + "---01";
}

/// The record of a game won by walking to the right.
std::string WonRecord(int score, const std::string& name = "Chodba") {
  Hooks hooks;
  hooks.keyHeld = [](int key) { return key == key::kRight; };
  Hra game(&hooks);
  game.PaintCave(SmallCave(name));
  for (int tick = 0; tick < 10 && !game.Won; ++tick) game.tmrHra_Timer();
  EXPECT_TRUE(game.Won);
  game.RecordBuffer.resize(game.RecordBuffer.size() - 2);  // the line of the tick that won has no end
  return RecordText("Sada", score, "Hráč", game.RecordBuffer);
}

std::string FaultOf(const Recording& recording, bool strict) {
  try {
    Replay replay(recording, strict);
    while (replay.Tick()) {
    }
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "";
}

TEST(Record, HoldsWhatWasWritten) {
  const std::string name =
      "S\xE1"
      "da\r00007";  // the name itself looks as if it held a score
  const Recording recording = ReadRecording(RecordText(name, 12345, "\x8A", Scramble("cave---07") + "\r\nBC\r\nD"));
  EXPECT_EQ(recording.setName, name);
  EXPECT_EQ(recording.score, 12345);
  EXPECT_EQ(recording.player, "\x8A");
  EXPECT_EQ(recording.caveText, "cave---07");
  EXPECT_EQ(recording.ticks, (std::vector<std::string>{"BC", "D"}));
}

TEST(Record, OddTitlesAndShortFiles) {
  const std::string rest = "\r\n" + Scramble("p") + "\r\n" + Scramble("c");
  EXPECT_EQ(ReadRecording(Scramble("Sada") + rest).setName, "Sada");
  EXPECT_EQ(ReadRecording(Scramble("Sada\rabcde") + rest).score, 0);
  EXPECT_EQ(ReadRecording(Scramble("\r00009") + rest).setName, "");
  for (const char* contents : {"", "AAA", "AAA\r\nAAA\r\n"}) EXPECT_THROW(ReadRecording(contents), Fault) << contents;
  EXPECT_TRUE(ReadRecording("AAA\r\nAAA\r\nAAA").ticks.empty());
}

TEST(Replaying, TellsTheLineThatDoesNotFit) {
  Recording recording = ReadRecording(WonRecord(160));
  EXPECT_EQ(FaultOf(recording, true), "");
  ASSERT_EQ(recording.ticks.size(), 2u);
  const std::string good = recording.ticks[0];  // draw of the amoeba, three characters of keys, draw of the step
  ASSERT_EQ(good.size(), 5u);
  const auto with = [&](const std::string& line, bool strict) {
    recording.ticks[0] = line;
    return FaultOf(recording, strict);
  };
  for (std::size_t length = 1; length < good.size(); ++length) {
    EXPECT_THAT(with(good.substr(0, length), false), StartsWith("line 4: ")) << length;
  }
  for (const std::string keys : {"gAA", "gAC", "gCB", "BAB", "@AB"}) {
    EXPECT_THAT(with(good[0] + keys + good[4], false), StartsWith("line 4: ")) << keys;
  }
  // Only a contest looks at the range of a drawn number and at what stands behind a tick.
  EXPECT_EQ(with(std::string(1, 'A' + 33) + good.substr(1), false), "");
  EXPECT_THAT(with(std::string(1, 'A' + 33) + good.substr(1), true), HasSubstr("number 33 out of 32"));
  EXPECT_EQ(with(good + Scramble("Look!"), true), "");
  EXPECT_EQ(with(good + "???", false), "");
  for (const char* rest : {"AZZ", "AAD", "AA"}) EXPECT_THAT(with(good + rest, true), HasSubstr("no note")) << rest;
  // Nobody can choose a hero who is missing among those of the cave, as long as another one lives.
  CaveRecord cave = ParseCaveText(SmallCave());
  cave.Cell(3, 0) = '3';
  recording.caveText = BuildCaveText(cave);
  EXPECT_THAT(with("CAAD", false), Not(StartsWith("line 4: ")));
  EXPECT_THAT(with("CAAC", false), StartsWith("line 4: "));
  recording.caveText = "E";
  EXPECT_THAT(FaultOf(recording, false), StartsWith("line 3: "));
}

struct Result {
  int status = 0;
  std::string output;
};

Result RunZbrcheck(const std::string& arguments, const std::string& folder = ".") {
  Result result;
  FILE* pipe = popen(("cd '" + folder + "' && " ZBRCHECK " " + arguments + " 2>&1").c_str(), "r");
  std::array<char, 4096> buffer{};
  for (std::size_t count = 0; (count = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    result.output.append(buffer.data(), count);
  }
  result.status = WEXITSTATUS(pclose(pipe));
  return result;
}

TEST(Zbrcheck, GivesAVerdictOnEachFile) {
  const TempFolder folder;
  const std::string good = folder.Make("a/good.zbr", WonRecord(159));
  folder.Make("a/deep/bonus.ZBR", WonRecord(659, "Bonus"));
  const std::string other = folder.Make("b/other.zbr", WonRecord(9999));
  const std::string record = WonRecord(159);
  const std::string lost = folder.Make("b/lost.zbr", record.substr(0, record.rfind("\r\n")));
  const std::string cut = folder.Make("b/cut.zbr", record.substr(0, record.size() - 1));
  EXPECT_EQ(RunZbrcheck(good).output, good + ": won 159\n");
  const Result all = RunZbrcheck(folder.path());
  EXPECT_EQ(all.status, 1);
  for (const std::string& line :
       {good + ": won 159\n", std::string("bonus.ZBR: won 659\n"), other + ": won 159, record says 9999\n",
        lost + ": not won\n", cut + ": damaged: line 5: ", std::string("2 of 5 records are good\n")}) {
    EXPECT_THAT(all.output, HasSubstr(line));
  }
  EXPECT_EQ(RunZbrcheck(folder.Path("a")).status, 0);
  EXPECT_THAT(RunZbrcheck("--json " + folder.Make("\xE9.zbr", "") + " '\"\xC5\x99'").output,
              AllOf(HasSubstr("/\\udce9.zbr\""), HasSubstr("\"\\\"\xC5\x99\"")));
  EXPECT_THAT(RunZbrcheck(folder.Path("missing.zbr")).output, HasSubstr(": damaged: "));
  EXPECT_THAT(RunZbrcheck("--json " + other).output,
              HasSubstr("\"verdict\": \"other score\", \"ticks\": 2, \"recorded score\": 9999, \"score\": 159}"));
  const std::string without = folder.Make("c/note.txt").substr(0, folder.path().size() + 2);
  EXPECT_EQ(RunZbrcheck(without).output, without + ": no record\n");
  EXPECT_EQ(RunZbrcheck(good + " " + without).status, 1);
  EXPECT_THAT(RunZbrcheck("--json " + without).output, HasSubstr("\"verdict\": \"no record\"}"));
  folder.Make("--json", record);
  const std::string forged = folder.Make("a.zbr: won 9\nb.zbr", "");
  EXPECT_THAT(RunZbrcheck("'" + forged + "'").output, HasSubstr("won 9\\x0ab.zbr: damaged")) << "one line a file";
  EXPECT_THAT(RunZbrcheck("--json '" + folder.Make("\xC2\x9B\x7F.zbr", "") + "'").output,
              HasSubstr("/\\u009b\\u007f.zbr\""));
  EXPECT_EQ(RunZbrcheck("--strict -- --json", folder.path()).output, "--json: won 159\n");
  for (const std::string wrong : {"", "--", "--bogus", "--dump x.zbr", "--trace a b"})
    EXPECT_EQ(RunZbrcheck(wrong).status, 2) << wrong;
}

// Folders hold odd things, and disks are full; neither ends the check of all the others, nor is it passed over.
TEST(Zbrcheck, SaysWhatItCannotReadOrWrite) {
  const TempFolder folder;
  folder.Make("good.Zbr", WonRecord(159));
  std::filesystem::create_symlink("nowhere.zbr", folder.Path("broken.zbr"));
  std::filesystem::create_symlink("loop.zbr", folder.Path("loop.zbr"));
  std::filesystem::create_directory_symlink(".", folder.Path("again"));
  const Result all = RunZbrcheck(folder.path());
  for (const char* line : {"broken.zbr: damaged: ", "loop.zbr: damaged: ", "good.Zbr: won 159\n", "1 of 3 records"}) {
    EXPECT_THAT(all.output, HasSubstr(line));
  }
  EXPECT_THAT(RunZbrcheck(folder.Path("loop.zbr")).output, HasSubstr("loop.zbr: damaged: "));
  EXPECT_THAT(RunZbrcheck(std::string(300, 'a')).output, HasSubstr("a: damaged: "));
  for (const std::string option : {"", "--trace "}) {
    EXPECT_EQ(RunZbrcheck(option + folder.Path("good.Zbr") + " >/dev/full").status, 1) << option;
  }
}

TEST(Zbrcheck, TracesEachTick) {
  const TempFolder folder;
  const std::string file = folder.Make("good.zbr", WonRecord(159));
  const Result trace = RunZbrcheck("--trace --dump " + file);
  EXPECT_EQ(trace.status, 0);
  // Hero 1 on an empty floor, then the exit: two ticks, the second one wins.
  EXPECT_THAT(trace.output, StartsWith("tick=1 cells="));
  EXPECT_THAT(trace.output, HasSubstr(" score=10 collected=1 exit=0 magic=0 amoeba=0 hero=1 at=1,0 alive=1 locked=0 "
                                      "left=149\n.1T;\ntick=2 cells="));
  EXPECT_THAT(trace.output,
              HasSubstr("exit=1 magic=0 amoeba=0 hero=1 at=2,0 alive=1 locked=0 left=149\n..1;\nwon 159\n"));
}

// The CRC of known bytes: an empty cave of one dirt cell is 01 00 00 00.
TEST(Zbrcheck, UsesTheCommonCrc) {
  CaveRecord record;
  record.Width = record.Height = 1;
  record.Cell(0, 0) = ';';
  Hra game;
  game.PaintCave(BuildCaveText(record));
  EXPECT_EQ(CellsCrc(game), 0x99F8B879u);
}

// A process that is killed while it writes leaves the old file or the new one, whole, and the next one can still write.
TEST(Record, SurvivesTheDeathOfItsWriter) {
  const TempFolder folder;
  const std::string file = folder.Path("record.zbr");
  const std::string one(200000, '1');
  const std::string two(300000, '2');
  WriteFile(file, one);
  for (int round = 0; round < 40; ++round) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (;;) {
        WriteFile(file, two);
        WriteFile(file, one);
      }
    }
    std::this_thread::sleep_for(std::chrono::microseconds(300 + round * 211));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string contents = ReadFile(file);
    ASSERT_TRUE(contents == one || contents == two) << "round " << round << ": " << contents.size() << " bytes";
  }
  WriteFile(file, "new");
  EXPECT_EQ(ReadFile(file), "new");
}

}  // namespace
