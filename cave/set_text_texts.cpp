#include <algorithm>
#include <array>
#include <cstddef>

#include "base/files.h"
#include "cave/set_text.h"
#include "cave/set_text_syntax.h"

namespace {

constexpr std::array<std::string_view, 6> kTextKeys = {"code page",   "set",  "author",
                                                       "description", "name", "congratulation"};

bool IsText(const Entry& entry) { return std::find(kTextKeys.begin(), kTextKeys.end(), entry.key) != kTextKeys.end(); }

int LastLine(const Entry& entry) { return entry.more.empty() ? entry.line() : entry.more.back().line; }

/// The entries behind the first line of a file of texts. Each can be written in the code page that they name.
std::vector<Entry> ReadTexts(std::string_view texts, SetSyntax& syntax) {
  std::vector<Entry> entries = syntax.Entries(texts);
  if (entries.empty() || entries[0].key != "zorbik texts") {
    syntax.Fail(entries.empty() ? 1 : entries[0].line(), "texts of a set start with the line \"zorbik texts\".");
  }
  entries.erase(entries.begin());
  bool inCave = false;
  for (const Entry& entry : entries) {
    inCave = inCave || entry.key == "name";
    if (!IsText(entry)) syntax.Fail(entry.line(), "\"" + entry.key + "\" is no text of a set.");
    if (entry.key == "code page") {
      syntax.page = syntax.Number(entry, 1250, 1251) == 1250 ? CodePage::k1250 : CodePage::k1251;
    } else if (entry.key == "congratulation" || (entry.key == "description" && !inCave)) {
      syntax.Text(entry);  // of any length
    } else {
      syntax.ShortText(entry);
    }
  }
  return entries;
}

}  // namespace

std::string WithTexts(std::string_view text, const std::string& file, std::string_view texts,
                      const std::string& textsFile) {
  SetSyntax syntax(textsFile);
  const std::vector<Entry> given = ReadTexts(texts, syntax);
  const std::vector<std::string> source = SplitLines(text);
  const std::vector<std::string> lines = SplitLines(texts);
  std::string result;
  std::size_t copied = 0;  // lines of the source that have their place in the result
  const auto append = [&result](const std::vector<std::string>& from, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) result += from[i] + "\n";
  };
  auto next = given.begin();
  for (const Entry& entry : SetSyntax(file).Entries(text)) {
    if (!IsText(entry)) continue;
    const std::string missing = "\"" + entry.key + "\" of line " + std::to_string(entry.line()) + " of the set ";
    if (next == given.end())
      syntax.Fail(given.empty() ? 1 : LastLine(given.back()), missing + "is missing at the end.");
    if (next->key != entry.key) syntax.Fail(next->line(), missing + "is expected here.");
    append(source, copied, static_cast<std::size_t>(entry.line() - 1));
    append(lines, static_cast<std::size_t>(next->line() - 1), static_cast<std::size_t>(LastLine(*next)));
    copied = static_cast<std::size_t>(LastLine(entry));
    ++next;
  }
  if (next != given.end()) syntax.Fail(next->line(), "the set has no such text.");
  append(source, copied, source.size());
  return result;
}
