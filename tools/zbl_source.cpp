#include "zbl_source.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/language_file.h"
#include "base/language_rows.h"
#include "base/utf8.h"
#include "zbl_rules.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The lines of a source, one after the other, with their number for messages.
class Lines {
 public:
  Lines(std::string_view source, std::string path) : lines_(SplitLines(source)), path_(std::move(path)) {}

  /// The next line that says something. Throws Fault when there is none; expected names what should come.
  std::string_view Next(const std::string& expected) {
    while (at_ < lines_.size()) {
      const std::string& line = lines_[at_++];
      if (!line.empty() && line.front() != ';') return line;
    }
    ++at_;
    Fail("The file ends before " + expected + ".");
  }

  /// The rest of the next line behind the key and a blank.
  std::string_view Value(const std::string& key) {
    std::string_view line = Next("\"" + key + "\"");
    if (!line.starts_with(key + " ")) Fail("Expected \"" + key + "\".");
    return line.substr(key.size() + 1);
  }

  /// The text between double quotes behind the key, in the code page.
  std::string Text(const std::string& key, CodePage page) {
    const std::string_view value = Value(key);
    if (value.size() < 2 || value.front() != '"' || value.back() != '"') {
      Fail("The text of \"" + key + "\" has to stand between double quotes.");
    }
    return Bytes(value.substr(1, value.size() - 2), page);
  }

  void End() {
    while (at_ < lines_.size()) {
      const std::string& line = lines_[at_++];
      if (!line.empty() && line.front() != ';') Fail("There is nothing to come behind the last row.");
    }
  }

  [[noreturn]] void Fail(const std::string& what) const { throw Fault(what, path_ + ":" + std::to_string(at_)); }

 private:
  std::string Bytes(std::string_view utf8, CodePage page) const {
    std::string bytes;
    for (const char32_t code : CodePoints(utf8)) {
      char byte = 0;
      if (!ByteOf(code, page, byte)) {
        std::string character;
        AppendUtf8(character, code);
        Fail("The code page of the language lacks the character \"" + character + "\".");
      }
      bytes += byte;
    }
    return bytes;
  }

  std::vector<std::string> lines_;
  std::string path_;
  std::size_t at_ = 0;
};

std::string RowKey(int row) {
  std::string digits = std::to_string(row);
  return std::string(3 - digits.size(), '0') + digits;
}

/// The row that a line of a source gives, if it gives one.
std::optional<int> RowOf(std::string_view line) {
  if (line.size() < 4 || line[3] != ' ') return {};
  int row = 0;
  for (const char c : line.substr(0, 3)) {
    if (c < '0' || c > '9') return {};
    row = row * 10 + (c - '0');
  }
  return row < kLangStrCount ? std::optional<int>(row) : std::nullopt;
}

std::string Note(const LanguageRow& row) {
  std::string note = std::string("; ") + row.use + "; at most " + std::to_string(row.longest);
  for (const std::string& holder : PlaceHoldersOf(row)) note += "; must hold \"" + holder + "\"";
  if ((row.shape & kPadded) != 0) note += "; between blanks";
  return note;
}

}  // namespace

std::string BytesOfSource(std::string_view source, const std::string& path) {
  Lines lines(source, path);
  const std::string number(lines.Value("number"));
  if (number != "1" && number != "2" && number != "3") lines.Fail("The language number has to be 1, 2 or 3.");
  const CodePage page = CodePageOf(std::stoi(number));
  std::string bytes = number;
  bytes += kLineEnd;
  bytes += lines.Text("name", page);
  bytes += kLineEnd;
  for (int row = 0; row < kLangStrCount; ++row) {
    bytes += lines.Text(RowKey(row), page);
    bytes += kLineEnd;
  }
  lines.End();
  return bytes;
}

std::string Annotated(std::string_view source) {
  std::string annotated;
  for (const std::string& line : SplitLines(source)) {
    if (line.starts_with("; ")) continue;
    if (const std::optional<int> row = RowOf(line)) {
      annotated += Note(kLanguageRows[static_cast<std::size_t>(*row)]) + "\n";
    }
    annotated += line + "\n";
  }
  return annotated;
}
