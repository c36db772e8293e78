#include "cave/names.h"

#include "base/code_page.h"

std::string CistyNazev(std::string_view text) {
  std::string clean(text);
  std::erase_if(clean, [](char c) { return std::string_view("?*\\/,;:=\t\"").find(c) != std::string_view::npos; });
  return clean;
}

bool JeBonus(std::string_view name) { return ToUpper(name, CodePage::k1250).find("BONUS") != std::string::npos; }
