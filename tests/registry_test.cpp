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
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
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
}

TEST_F(RegistryTest, AnyByteComesBackAndTheFileIsReadable) {
  std::string all = "\"]\r\n = %22/";
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  CreateNewKey(kRoot, kKey + all.substr(0, 40));
  SetKeyValue(kRoot, kKey + all.substr(0, 40), all.substr(1, 200), all, kString);
  EXPECT_EQ(StringOf(QueryValue(kRoot, kKey + all.substr(0, 40), all.substr(1, 200))), all + '\0');
  CreateNewKey(kRoot, kKey);
  Set("Rychlost", 8);
  Set("Jazyk", "8");
  EXPECT_THAT(ReadFile(FilePath()), AllOf(HasSubstr("\nRychlost=8\n"), HasSubstr("\nJazyk=@ByteArray(8)\n")));
  EXPECT_EQ(String("Jazyk"), std::string("8\0", 2)) << "a string stays one";
}

TEST_F(RegistryTest, ProgramsThatRunTogetherKeepEachOthersValues) {
  CreateNewKey(kRoot, kKey);
  Set("mine", 1);
  std::string file = ReadFile(FilePath());
  file.insert(file.find("mine="), "theirs=-7\n");
  WriteFile(FilePath(), file);
  Set("mine", 2);
  EXPECT_EQ(Number("mine") * 100 + Number("theirs"), 193);
}

TEST_F(RegistryTest, DamagedFilesAreSetAsideAndOddValuesAreNone) {
  CreateNewKey(kRoot, kKey);
  Set("a", 1);
  const std::string good = ReadFile(FilePath());
  const std::vector<std::string> files = {"registry 2\n", good + "no value\n",
                                          good + std::string(std::size_t{1} << 20, '\n')};
  for (std::size_t i = 0; i < files.size(); ++i) {
    WriteFile(FilePath(), files[i]);
    EXPECT_EQ(QueryValue(kRoot, kKey, "a"), Value()) << files[i].substr(0, 200);
    EXPECT_EQ(ReadFile(FilePath() + ".damaged" + (i == 0 ? "" : "-" + std::to_string(i + 1))), files[i]);
  }
  CreateNewKey(kRoot, kKey);
  Set("a", 3);
  EXPECT_EQ(Number("a"), 3);
  for (const char* odd : {"a=2147483648", "a=1x", "a="}) {
    std::string text = good;
    WriteFile(FilePath(), text.replace(text.find("a=1"), 3, odd));
    EXPECT_EQ(QueryValue(kRoot, kKey, "a"), Value()) << odd;
  }
}

TEST_F(RegistryTest, TheOldFormOfTheFileIsTakenOver) {
  WriteFile(
      folder_.Make("settings/registry.txt"),
      "registry 1\n[HKEY_LOCAL_MACHINE\\Software\\Somebody\\Game]\n\"Rychlost\" = 7\n\"Jazyk\" = \"a b.zbl\"\nend\n");
  EXPECT_EQ(Number("Rychlost"), 7);
  EXPECT_EQ(String("Jazyk"), std::string("a b.zbl\0", 8));
  Set("Rychlost", 6);
  EXPECT_EQ(Number("Rychlost"), 6);
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
