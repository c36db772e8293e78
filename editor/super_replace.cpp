#include "editor/super_replace.h"

#include <array>
#include <utility>

#include "base/text.h"

namespace {

using Pair = std::pair<std::string_view, std::string_view>;

/// One after another over the whole text: later ones see what earlier ones have made. UTF-8.
constexpr std::array<Pair, 15> kWords = {{
    {"zorbi", "Zorbí"},
    {"diamant", "drahokam"},
    {"Diamant", "Drahokam"},
    {"ambén", "améb"},
    {"ambéb", "améb"},
    {"ambém", "améb"},
    {"hmiz", "hmyz"},
    {"diamond", "gem"},
    {"Diamond", "Gem"},
    {"borzek", "Borzeek"},
    {"borzeek", "Borzeek"},
    {"borzeak", "Borzeek"},
    {"borzec", "Borzeek"},
    {"borzeec", "Borzeek"},
    {"borzeac", "Borzeek"},
}};

/// The hero's name, in whatever case it was written.
std::string WithHeroName(std::string text) {
  const std::string name = Cp1250("Zorbí");
  const std::string anyCase = ToLower(name, CodePage::k1250);
  const std::string lower = ToLower(text, CodePage::k1250);
  for (std::size_t at = lower.find(anyCase); at != std::string::npos; at = lower.find(anyCase, at + name.size())) {
    text.replace(at, name.size(), name);
  }
  return text;
}

std::string_view WithoutBlanksAround(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string SuperReplace(std::string_view text, CodePage page) {
  std::string words = WithHeroName(std::string(text));
  for (const auto& [from, to] : kWords) words = Replaced(std::move(words), Cp1250(from), Cp1250(to));
  std::string corrected(WithoutBlanksAround(words));
  if (!corrected.empty()) corrected.replace(0, 1, ToUpper(std::string_view(corrected).substr(0, 1), page));
  return corrected;
}

std::string EMid(std::string_view text, int start, int length) {
  if (static_cast<int>(text.size()) - (start - 1) - length < 0) return {};
  return std::string(text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length)));
}
