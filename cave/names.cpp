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

std::string FileName(std::string_view name, std::string_view ending, CodePage page) {
  constexpr std::size_t kLongestFileName = 255;  // bytes of UTF-8
  const std::string whole = CistyNazev(name);
  const auto fits = [&](const std::string& text) {
    return ToUtf8(text, page).size() + ending.size() <= kLongestFileName;
  };
  if (whole.find('\0') == std::string::npos && fits(whole)) return whole + std::string(ending);
  const std::string hash = "~" + ShortHash(whole);
  std::string cut = whole;
  std::erase(cut, '\0');
  while (!fits(cut + hash)) cut.pop_back();
  return cut + hash + std::string(ending);
}

std::string RecordName(std::string_view setName, std::string_view caveName) {
  return FileName(std::string(setName).append(" - ").append(caveName), ".zbr", CodePage::k1250);
}

bool JeBonus(std::string_view name) { return ToUpper(name, CodePage::k1250).find("BONUS") != std::string::npos; }
