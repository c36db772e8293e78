#include "platform/registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "base/files.h"
#include "kit/temp_folder.h"
#include "platform/links.h"

using namespace platform;
using namespace platform::Registr;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

constexpr Root kRoot = Root::kLocalMachine;
const std::string kKey = "Software\\Somebody\\Game";

class RegistryTest : public ::testing::Test {
 protected:
  RegistryTest() { SetFolder(folder_.Path("settings")); }
  ~RegistryTest() override { SetFolder(""); }

  static std::int32_t Number(const std::string& name) { return NumberOf(QueryValue(kRoot, kKey, name)); }
  static std::string String(const std::string& name) { return StringOf(QueryValue(kRoot, kKey, name)); }
  static void Set(const std::string& name, std::int32_t number) { SetKeyValue(kRoot, kKey, name, number, kNumber); }
  static void Set(const std::string& name, const std::string& string) {
    SetKeyValue(kRoot, kKey, name, string, kString);
  }

  const TempFolder folder_;
};

TEST_F(RegistryTest, ValuesLast) {
  EXPECT_EQ(QueryValue(kRoot, kKey, "Rychlost"), Value());
  EXPECT_EQ(Number("Rychlost"), 0);
  Set("Rychlost", 8);
  EXPECT_EQ(Number("Rychlost"), 0) << "there is no such key";
  CreateNewKey(kRoot, kKey);
  Set("Rychlost", 8);
  Set("low", std::numeric_limits<std::int32_t>::min());
  Set("Jazyk", "cestina.zbl");
  Set("", "default");
  Set("none", "");
  CreateNewKey(kRoot, kKey);
  EXPECT_EQ(Number("Rychlost"), 8);
  EXPECT_EQ(Number("low"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(String("Jazyk"), std::string("cestina.zbl\0", 12)) << "with its terminator";
  EXPECT_EQ(String(""), std::string("default\0", 8));
  EXPECT_EQ(QueryValue(kRoot, kKey, "none"), Value(std::string()));
  EXPECT_EQ(String("Rychlost"), "");
  EXPECT_EQ(Number("Jazyk"), 0);
  EXPECT_EQ(QueryValue(Root::kClassesRoot, kKey, "Rychlost"), Value());
  EXPECT_EQ(QueryValue(kRoot, "Software", "Rychlost"), Value());
  EXPECT_TRUE(Open(kRoot, "Software\\Somebody")) << "made with the key below";
  EXPECT_FALSE(Open(kRoot, "Software\\Some"));
}

TEST_F(RegistryTest, OnlyValuesOfTheirTypeAreWritten) {
  CreateNewKey(kRoot, kKey);
  Set("a", 1);
  SetKeyValue(kRoot, kKey, "a", 2, kString);
  SetKeyValue(kRoot, kKey, "a", std::string("x"), kNumber);
  SetKeyValue(kRoot, kKey, "a", 2, 3);
  SetKeyValue(kRoot, kKey, "a", Value(), kNumber);
  Set("a", std::string(kLongestString + 1, 'x'));
  EXPECT_EQ(Number("a"), 1);
  Set("a", std::string(kLongestString, 'x'));
  EXPECT_EQ(String("a").size(), kLongestString + 1);
  Set(std::string(kLongestName + 1, 'n'), 5);
  EXPECT_EQ(Number(std::string(kLongestName + 1, 'n')), 0);
  for (int i = 0; i < 17; ++i) Set("big" + std::to_string(i), std::string(kLongestString, 'x'));
  EXPECT_EQ(String("a").size(), kLongestString + 1) << "a store that is full keeps what it has";
}

TEST_F(RegistryTest, AnyByteComesBack) {
  std::string all = "\"]\r\n = %22";
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  CreateNewKey(kRoot, kKey + all.substr(0, 40));
  SetKeyValue(kRoot, kKey + all.substr(0, 40), all.substr(1, 200), all, kString);
  EXPECT_EQ(StringOf(QueryValue(kRoot, kKey + all.substr(0, 40), all.substr(1, 200))), all + '\0');
  EXPECT_EQ(ReadFile(FilePath())
                .find_first_not_of("\n !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
                                   "abcdefghijklmnopqrstuvwxyz{|}~"),
            std::string::npos)
      << "the file is readable text";
}

TEST_F(RegistryTest, ProgramsThatRunTogetherKeepEachOthersValues) {
  CreateNewKey(kRoot, kKey);
  Set("mine", 1);
  std::string file = ReadFile(FilePath());
  file.insert(file.find("\"mine\""), "\"theirs\" = -7\n\n");
  WriteFile(FilePath(), file);
  Set("mine", 2);
  EXPECT_EQ(Number("mine"), 2);
  EXPECT_EQ(Number("theirs"), -7);
}

TEST_F(RegistryTest, DamagedFilesAreSetAside) {
  CreateNewKey(kRoot, kKey);
  Set("a", 1);
  const std::string good = ReadFile(FilePath());
  const auto broken = [&good](const std::string& from, const std::string& to) {
    std::string text = good;
    return text.replace(text.find(from), from.size(), to);
  };
  const std::vector<std::string> files = {"",
                                          "registry 1\n",
                                          good.substr(0, good.size() - 4),
                                          broken("registry 1", "registry 2"),
                                          broken("= 1", "= 2147483648"),
                                          broken("= 1", "= 1x"),
                                          broken("= 1", "= \"%4\""),
                                          broken("= 1", "= \"%-1\""),
                                          broken("= 1", "= \"x"),
                                          broken("= 1", "="),
                                          broken("\"a\"", "\"" + std::string(kLongestName + 1, 'n') + "\""),
                                          broken("]", ""),
                                          broken("[HKEY", "x[HKEY"),
                                          broken("[HKEY", "\"early\" = 1\n[HKEY"),
                                          good + std::string(std::size_t{1} << 20, '\n') + "end\n"};
  for (std::size_t i = 0; i < files.size(); ++i) {
    WriteFile(FilePath(), files[i]);
    EXPECT_EQ(QueryValue(kRoot, kKey, "a"), Value()) << files[i].substr(0, 200);
    const std::string number = i == 0 ? "" : "-" + std::to_string(i + 1);
    EXPECT_EQ(ReadFile(FilePath() + ".damaged" + number), files[i]);
  }
  CreateNewKey(kRoot, kKey);
  Set("a", 3);
  EXPECT_EQ(Number("a"), 3);
}

TEST_F(RegistryTest, FailuresGoUnnoticed) {
  folder_.Make("file");
  SetFolder(folder_.Path("file/below"));
  CreateNewKey(kRoot, kKey);
  Set("a", 1);
  EXPECT_EQ(Number("a"), 0);
  // What cannot be read is never replaced.
  SetFolder(folder_.path());
  folder_.Make("registry.txt/inside");
  CreateNewKey(kRoot, kKey);
  Set("a", 1);
  EXPECT_EQ(Number("a"), 0);
  EXPECT_EQ(FindPath(folder_.Path("registry.txt/inside")), folder_.Path("registry.txt/inside"));
}

TEST_F(RegistryTest, LiesInTheUsersConfigurationFolder) {
  SetFolder("");
  setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1);
  EXPECT_THAT(FilePath(), StartsWith(folder_.path() + "/"));
}

// ----------------------------------------------------------------------------------------------------------- Links

TEST(LinksTest, TextsBecomeLinks) {
  const TempFolder folder;
  const std::string file = folder.Make("Nápověda/Epravidla 1.html");
  EXPECT_THAT(CodedLink(folder.Path("nápověda/epravidla 1.HTML")), StartsWith("file:///"));
  EXPECT_THAT(CodedLink(file), ::testing::EndsWith("/N%C3%A1pov%C4%9Bda/Epravidla%201.html"));
  EXPECT_EQ(CodedLink(folder.Path("missing.html")), "");
  EXPECT_EQ(CodedLink("javascript:alert(1)"), "");
  EXPECT_EQ(CodedLink("http://game.invalid/a b"), "http://game.invalid/a%20b");
  EXPECT_EQ(CodedLink("mailto:a@b.invalid"), "mailto:a@b.invalid");
  EXPECT_EQ(CodedLink("mailto:a@b.invalid?subject=Sada 'A & B #1?' é"),
            "mailto:a@b.invalid?subject=Sada%20%27A%20%26%20B%20%231%3F%27%20%C3%A9");
}

TEST(LinksTest, ResponderGetsTheTextAsItWas) {
  std::vector<std::string> opened;
  SetLinkResponder([&](const std::string& text) { opened.push_back(text); });
  OpenLink("mailto:a@b.invalid?subject=A & B");
  OpenLink("no such file");
  SetLinkResponder({});
  EXPECT_THAT(opened, ElementsAre("mailto:a@b.invalid?subject=A & B", "no such file"));
}

}  // namespace
