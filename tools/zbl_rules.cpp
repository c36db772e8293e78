#include "zbl_rules.h"

#include <algorithm>

#include "base/fault.h"
#include "base/files.h"
#include "base/language_file.h"
#include "base/utf8.h"

namespace {

constexpr std::size_t kLongestName = 30;

/// Gathers the findings of one row.
class RowCheck {
 public:
  RowCheck(const LanguageRow& row, std::string text, CodePage page, std::vector<std::string>& findings)
      : row_(row), text_(std::move(text)), page_(page), findings_(findings) {}

  void Run() {
    if (text_.empty()) {
      Add("is empty");
      return;
    }
    CheckCharacters();
    CheckPlaceHolders();
    CheckBlanks();
    CheckEnd();
    if (Is(kInLink) && text_.find_first_of("&?%") != std::string::npos) Add("holds a sign that would break the link");
    if (text_.size() > static_cast<std::size_t>(row_.longest)) {
      Add("has " + std::to_string(text_.size()) + " characters; " + std::to_string(row_.longest) + " fit");
    }
  }

 private:
  bool Is(unsigned shape) const { return (row_.shape & shape) != 0; }

  void CheckCharacters() {
    if (!Is(kLines) && text_.find('#') != std::string::npos) Add("holds a line break, \"#\"");
    for (const char c : text_) {
      const char32_t code = CodePointOf(c, page_);
      if (code >= 0x20 && !(code >= 0x7F && code < 0xA0)) continue;
      Add("holds the byte " + std::to_string(static_cast<unsigned char>(c)) +
          ", which is no character of its code page");
      return;
    }
  }

  void CheckPlaceHolders() {
    const std::vector<std::string> wanted = PlaceHoldersOf(row_);
    for (const std::string& holder : wanted) {
      if (text_.find(holder) == std::string::npos) Add("has lost \"" + holder + "\"");
    }
    for (const std::string holder : kPlaceHolders) {
      const bool replaced = std::any_of(wanted.begin(), wanted.end(), [&holder](const std::string& one) {
        return one.find(holder) != std::string::npos;
      });
      if (!replaced && text_.find(holder) != std::string::npos) Add("holds \"" + holder + "\", which nothing replaces");
    }
  }

  void CheckBlanks() {
    const bool before = text_.front() == ' ';
    const bool behind = text_.back() == ' ';
    if (Is(kPadded) && !(before && behind)) Add("has to begin and end with a blank");
    if (!Is(kPadded) && before) Add("begins with a blank");
    if (!Is(kPadded) && behind) Add("ends with a blank");
  }

  void CheckEnd() {
    const std::string_view stops = ".!?";
    if (Is(kContinued) && !EndsWithPlaceHolder() && stops.find(text_.back()) != std::string_view::npos) {
      Add("ends a sentence, but the program goes on behind it");
    }
  }

  bool EndsWithPlaceHolder() const {
    return std::any_of(kPlaceHolders.begin(), kPlaceHolders.end(),
                       [this](const char* holder) { return text_.ends_with(holder); });
  }

  void Add(const std::string& what) {
    findings_.push_back("row " + std::to_string(row_.index) + " " + what + ": \"" + ToUtf8(text_, page_) + "\" (" +
                        row_.use + ")");
  }

  const LanguageRow& row_;
  std::string text_;
  CodePage page_;
  std::vector<std::string>& findings_;
};

/// True for text with letters outside ASCII that reads as UTF-8 throughout.
bool LooksLikeUtf8(std::string_view bytes) {
  const std::u32string codes = CodePoints(bytes);
  const auto stray = [](char32_t code) { return code >= 0xDC00 && code <= 0xDFFF; };
  return codes.size() < bytes.size() && std::none_of(codes.begin(), codes.end(), stray);
}

void CheckHeader(const LanguageHeader& header, std::vector<std::string>& findings) {
  if (header.number < 1 || header.number > 3) findings.emplace_back("line 1 is no language number (1, 2 or 3)");
  if (header.name.empty()) findings.emplace_back("line 2, the language's own name, is empty");
  if (header.name.size() > kLongestName) {
    findings.push_back("line 2, the language's own name, is longer than " + std::to_string(kLongestName) +
                       " characters");
  }
}

}  // namespace

std::vector<std::string> PlaceHoldersOf(const LanguageRow& row) {
  std::vector<std::string> holders;
  std::string_view rest = row.holds;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('|'), rest.size());
    holders.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return holders;
}

std::vector<std::string> CheckLanguageFile(std::string_view bytes) {
  std::vector<std::string> findings;
  const std::vector<std::string> lines = SplitLines(bytes);
  if (lines.size() != kLanguageFileLines) {
    findings.push_back("has " + std::to_string(lines.size()) + " lines instead of " +
                       std::to_string(kLanguageFileLines));
  }
  if (LooksLikeUtf8(bytes)) findings.emplace_back("is saved as UTF-8; it has to be in the code page of its language");
  if (lines.size() < kLanguageFileLines) return findings;
  const LanguageHeader header = ParseLanguageHeader(bytes);
  CheckHeader(header, findings);
  for (const LanguageRow& row : kLanguageRows) {
    const std::string& text = lines[2 + static_cast<std::size_t>(row.index)];
    RowCheck(row, text, CodePageOf(header.number), findings).Run();
  }
  return findings;
}
