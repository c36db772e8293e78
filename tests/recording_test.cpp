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
#include "base/random.h"
#include "cave/cave_text.h"
#include "cave/scramble.h"
#include "engine/replay.h"
#include "temp_folder.h"

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

/// Plays a cave holding the keys that `hold` names for each tick, at most so many ticks.
class Player {
 public:
  Player(const std::string& caveText, std::uint64_t seed) : game(&hooks_) {
    hooks_.keyHeld = [this](int key) { return held_[static_cast<std::size_t>(key)]; };
    game.random = Random(seed);
    game.PaintCave(caveText);
    game.Command1_Click();
  }

  void Play(int ticks, const std::function<void(std::array<bool, 256>&)>& hold) {
    for (int i = 0; i < ticks && !game.Won; ++i) {
      hold(held_);
      game.tmrHra_Timer();
      crcs.push_back(CellsCrc(game));
    }
    // The line of the tick that won has no end.
    if (game.Won) game.RecordBuffer.resize(game.RecordBuffer.size() - 2);
  }

  std::vector<std::uint32_t> crcs;  // cells after each tick

 private:
  Hooks hooks_;
  std::array<bool, 256> held_{};

 public:
  Hra game;
};

std::string WonRecord(int score, const std::string& name = "Chodba") {
  Player player(SmallCave(name), 1);
  player.Play(10, [](auto& held) { held[key::kRight] = true; });
  EXPECT_TRUE(player.game.Won);
  return RecordText("Sada", score, "Hráč", player.game.RecordBuffer);
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
  const Recording recording = ReadRecording(RecordText(name, 42, "\x8A", Scramble("cave---07") + "\r\nBC\r\nD"));
  EXPECT_EQ(recording.setName, name);
  EXPECT_EQ(recording.score, 42);
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

TEST(Replaying, ReproducesEveryCellOfEveryTick) {
  const std::string tiles = ".;RDXMFOPQUYZBWTAKEVSL!@#%^&123456789......;;;;";
  Random random(11);
  const auto below = [&random](std::size_t n) {
    return static_cast<std::size_t>(random.Next() * static_cast<double>(n));
  };
  for (int cave = 0; cave < 60; ++cave) {
    CaveRecord record;
    record.Width = static_cast<std::uint8_t>(5 + below(25));
    record.Height = static_cast<std::uint8_t>(5 + below(12));
    record.Time = cave % 4 == 0 ? 6 : 200;  // some run out of time
    record.Need = static_cast<std::int16_t>(below(3));
    record.MagicTime = record.AmoebaTime = static_cast<std::uint8_t>(below(8));
    record.SlimeThrough = static_cast<std::uint8_t>(below(9));
    for (int y = 0; y < record.Height; ++y) {
      for (int x = 0; x < record.Width; ++x) record.Cell(x, y) = tiles[below(tiles.size())];
    }
    record.Cell(1, 1) = 'S';  // a teleport pair
    record.Cell(1, 2) = 'W';
    record.Cell(3, 1) = 'W';
    record.Cell(3, 2) = 'S';
    Player player(BuildCaveText(record), static_cast<std::uint64_t>(cave));
    player.Play(150, [&below](std::array<bool, 256>& held) {
      for (const int code : {37, 38, 39, 40, 32, 9, 97, 98, 99}) held[static_cast<std::size_t>(code)] = below(4) == 0;
    });
    const Recording recording = ReadRecording(RecordText("s", 0, "p", player.game.RecordBuffer));
    Replay replay(recording, true);
    for (const std::uint32_t crc : player.crcs) {
      ASSERT_TRUE(replay.Tick()) << "cave " << cave << " tick " << replay.ticks();
      ASSERT_EQ(CellsCrc(replay.game()), crc) << "cave " << cave << " tick " << replay.ticks();
    }
    EXPECT_FALSE(replay.Tick());
    EXPECT_EQ(replay.won(), player.game.Won);
  }
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
  for (const std::string keys : {"gAA", "gAC", "gCB", "BAB",
                                 "\x40"
                                 "AB"}) {
    EXPECT_THAT(with(good[0] + keys + good[4], false), StartsWith("line 4: ")) << keys;
  }
  // Only a contest looks at the range of a drawn number and at what stands behind a tick.
  EXPECT_EQ(with(std::string(1, 'A' + 33) + good.substr(1), false), "");
  EXPECT_THAT(with(std::string(1, 'A' + 33) + good.substr(1), true), HasSubstr("number 33 out of 32"));
  EXPECT_EQ(with(good + Scramble("Look!"), true), "");
  EXPECT_EQ(with(good + "???", false), "");
  EXPECT_THAT(with(good + "AZZ", true), HasSubstr("no note"));
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
