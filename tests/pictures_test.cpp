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
