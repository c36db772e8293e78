// The winning records of the shipped caves. When a rule has changed, this tells which cave breaks, and at which tick.

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "cave/names.h"
#include "cave/set_file.h"
#include "engine/replay.h"

namespace {

class EachRecord : public testing::TestWithParam<std::string> {};

TEST_P(EachRecord, IsWonWithItsScoreTickByTick) {
  const Recording recording = ReadRecording(ReadFile(ZORBIK_RECORDS "/" + GetParam() + ".zbr"));
  const std::vector<std::string> cells = SplitLines(ReadFile(ZORBIK_GOLDEN "/" + GetParam() + ".crc"));
  ASSERT_EQ(cells.size(), recording.ticks.size());
  Replay replay(recording, true);
  for (const std::string& expected : cells) {
    ASSERT_NO_THROW(ASSERT_TRUE(replay.Tick())) << "tick " << replay.ticks() + 1;
    char crc[16];
    std::snprintf(crc, sizeof crc, "%08x", CellsCrc(replay.game()));
    ASSERT_EQ(crc, expected) << "the cells differ from tick " << replay.ticks() << " on\n" << replay.game().Picture();
  }
  EXPECT_TRUE(replay.won());
  EXPECT_EQ(replay.Score(), recording.score);
}

std::vector<std::string> Records() {
  std::vector<std::string> names = ListFiles(ZORBIK_RECORDS, ".zbr");
  for (std::string& name : names) name.resize(name.size() - 4);
  return names;
}

INSTANTIATE_TEST_SUITE_P(Komnaty, EachRecord, testing::ValuesIn(Records()),
                         [](const auto& record) { return "Record" + std::to_string(record.index + 1); });

// A record counts only for the cave as it stands in the set.
TEST(ShippedRecords, OneForEachCaveAsItIsNow) {
  const auto set = std::make_unique<PlayedSet>();
  LoadColl(ZORBIK_SET, *set);
  for (int cave = 1; cave <= set->PocetK; ++cave) {
    const auto i = static_cast<std::size_t>(cave);
    const std::string name = CistyNazev(set->Name + " - " + set->KomRec[i].Name);
    const std::string path = ZORBIK_RECORDS "/" + ToUtf8(name, CodePage::k1250) + ".zbr";
    ASSERT_NE(FindPath(path), "") << path;
    EXPECT_EQ(ReadRecording(ReadFile(path)).caveText, set->KomText[i]) << path;
  }
  EXPECT_EQ(Records().size(), static_cast<std::size_t>(set->PocetK));
}

}  // namespace
