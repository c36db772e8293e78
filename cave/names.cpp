#include "cave/names.h"

#include <cstdint>
#include <cstdio>

#include "base/code_page.h"

std::string CistyNazev(std::string_view text) {
  std::string clean(text);
  std::erase_if(clean, [](char c) { return std::string_view("?*\\/,;:=\t\"").find(c) != std::string_view::npos; });
  return clean;
}

namespace {

/// A number of eight digits that tells two long texts apart, the same on every machine: 32-bit FNV-1a.
std::string ShortHash(std::string_view text) {
  std::uint32_t hash = 2166136261U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  char digits[9];
  std::snprintf(digits, sizeof digits, "%08x", hash);
  return digits;
}

}  // namespace

std::string RecordName(std::string_view setName, std::string_view caveName) {
  constexpr std::string_view kEnding = ".zbr";
  constexpr std::size_t kLongestFileName = 255;  // bytes of UTF-8
  const std::string whole = CistyNazev(std::string(setName).append(" - ").append(caveName));
  const auto fits = [&](const std::string& name) {
    return ToUtf8(name, CodePage::k1250).size() + kEnding.size() <= kLongestFileName;
  };
  if (whole.find('\0') == std::string::npos && fits(whole)) return whole + std::string(kEnding);
  const std::string hash = "~" + ShortHash(whole);
  std::string name = whole;
  std::erase(name, '\0');
  while (!fits(name + hash)) name.pop_back();
  return name + hash + std::string(kEnding);
}

bool JeBonus(std::string_view name) { return ToUpper(name, CodePage::k1250).find("BONUS") != std::string::npos; }
