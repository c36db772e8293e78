#include "engine/pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

#include "view/picture_files.h"

namespace {

const std::filesystem::path kFolder = ZORBIK_PICTURES;

std::string read(std::string_view name) {
  std::ifstream in(kFolder / name);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

TEST(Pictures, TableAndFolderNameTheSameFiles) {
  std::set<std::string> listed;
  for (const auto& file : picture::kFiles) EXPECT_TRUE(listed.emplace(file.name).second) << file.name << " twice";
  for (const auto& extra : picture::kExtras) EXPECT_TRUE(listed.emplace(extra.name).second) << extra.name << " twice";
  std::set<std::string> present;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) present.insert(entry.path().filename());
  EXPECT_EQ(listed, present);
}

TEST(Pictures, RunsStartWhereTheirNumberSays) {
  const auto name = [](int number) { return picture::kFiles.at(static_cast<std::size_t>(number)).name; };
  EXPECT_EQ(name(picture::kWall), "wall.svg");
  EXPECT_EQ(name(picture::kAnim9 + 1), "exit_open.svg");
  EXPECT_EQ(name(picture::kRedGem + 2), "gem_blue.svg");
  EXPECT_EQ(name(picture::kRedLock + 2), "lock_blue.svg");
  EXPECT_EQ(name(picture::kAnim6), "firefly_0.svg");
  EXPECT_EQ(name(picture::kAnim7), "butterfly_0.svg");
  EXPECT_EQ(name(picture::kAnim10), "amoeba_0.svg");
  EXPECT_EQ(name(picture::kAnim14), "slime_0.svg");
  EXPECT_EQ(name(picture::kAnim15), "fly_0.svg");
  EXPECT_EQ(name(picture::kAnimMW), "magic_0.svg");
  EXPECT_EQ(name(picture::kExpld + 15), "explosion_15.svg");
  EXPECT_EQ(name(picture::kImgRzd), "rzd_0.svg");
  EXPECT_EQ(name(picture::kImgTLP), "tlp_0.svg");
  EXPECT_EQ(name(picture::kImgZBL), "zbl.svg");
  EXPECT_EQ(name(picture::kMultiPes + 8), "multipes_9.svg");
  EXPECT_EQ(name(picture::kMrtvejPes), "mrtvejpes.svg");
}

TEST(Pictures, SentinelsStandInTintedFilesOnly) {
  for (const auto& file : picture::kFiles) {
    const std::string text = read(file.name);
    const auto has = [&text](const picture::Sentinel& s) { return text.find(s.colour) != std::string::npos; };
    EXPECT_EQ(std::ranges::any_of(picture::kSentinels, has), file.tinted) << file.name;
  }
}

TEST(Pictures, SizeIsTheViewBox) {
  for (const auto& extra : picture::kExtras) {
    std::ostringstream box;
    box << "viewBox=\"0 0 " << extra.width << ' ' << extra.height << '"';
    EXPECT_THAT(read(extra.name), testing::HasSubstr(box.str())) << extra.name;
  }
}

// What the renderer draws wrongly or not at all, so that a picture would silently miss a part on the screen.
TEST(Pictures, UseOnlyWhatTheRendererDraws) {
  constexpr std::array<std::string_view, 10> kUnknown = {"<filter", "<mask",  "<clipPath", "<text", "<style",
                                                         "<image",  "style=", "class=",    "var(",  "<pattern"};
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    const std::string text = read(entry.path().filename().string());
    for (const std::string_view word : kUnknown) {
      EXPECT_EQ(text.find(word), std::string::npos) << entry.path().filename() << " has " << word;
    }
  }
}

}  // namespace
