#include "base/language.h"

#include <array>
#include <filesystem>
#include <utility>
#include <vector>

#include "base/language_file.h"
#include "base/web_hosts.h"

std::string HeroName;
std::string WebHra;
std::string HelpCesta;
char LanguageLetter = ' ';
int LogoNumber = 0;

namespace {

/// What a language number stands for.
struct LanguageRecord {
  int number;
  std::string heroName;
  std::string webHost;
  char letter;
  std::string helpPrefix;  // behind the program's folder
};

const std::array<LanguageRecord, 3>& Languages() {
  static const std::array<LanguageRecord, 3> languages{{
      {1, Cp1250("Zorbík"), kWebHostCzech, 'P', "/Help/"},
      {2, "Borzeek", kWebHostEnglish, 'S', "/Help/E"},
      // Code page 1251: five capital letters that code page 1250 would show as "ÇÎĐÁČ".
      {3, "\xC7\xCE\xD0\xC1\xC8", kWebHostRussian, 'S', "/Help/R"},
  }};
  return languages;
}

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

std::vector<std::function<void()>> captionSteps;
std::vector<std::function<void()>> fontSteps;

}  // namespace

void NactiJazyk(const std::string& path) {
  LanguageFile file = ReadLanguageFile(path);
  LangStr = std::move(file.strings);
  for (const LanguageRecord& language : Languages()) {
    if (language.number != file.header.number) continue;
    HeroName = language.heroName;
    WebHra = language.webHost;
    LanguageLetter = language.letter;
    HelpCesta = FolderOf(path) + language.helpPrefix;
    LogoNumber = language.number;
  }
  SetLW();
}

void SetLW() {
  for (const auto& step : captionSteps) step();
  if (HeroNameIsLatin()) return;
  for (const auto& step : fontSteps) step();
}

void OnSetLW(std::function<void()> step) { captionSteps.push_back(std::move(step)); }

void OnSetLFont(std::function<void()> step) { fontSteps.push_back(std::move(step)); }

CodePage PageInForce() { return HeroNameIsLatin() ? CodePage::k1250 : CodePage::k1251; }

bool HeroNameIsLatin() {
  if (HeroName.empty()) return false;
  const char first = HeroName.front();
  return (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
}
