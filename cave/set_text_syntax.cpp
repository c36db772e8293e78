#include "cave/set_text_syntax.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "base/fault.h"
#include "base/files.h"
#include "base/utf8.h"
#include "cave/cave_text.h"
#include "cave/tiles.h"

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kEscapeNames = "\\nrt";
constexpr std::string_view kEscapeBytes = "\\\n\r\t";  // the bytes of these names

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string HexEscape(char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  const auto code = static_cast<unsigned char>(byte);
  return std::string("\\x") + digits[code / 16u] + digits[code % 16u];
}

/// True for what a reader of the text would not see: control characters, the blank that does not break, the soft
/// hyphen.
bool Invisible(char32_t code) { return code < 0x20 || (code >= 0x7F && code <= 0xA0) || code == 0xAD; }

std::string Shown(char32_t code) {
  std::string text = "\"";
  AppendUtf8(text, code);
  return text + "\"";
}

}  // namespace

std::string EscapeText(std::string_view bytes, CodePage page) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char byte = bytes[i];
    const char32_t code = CodePointOf(byte, page);
    const bool atAnEnd = i == 0 || i + 1 == bytes.size();
    if (const std::size_t name = kEscapeBytes.find(byte); name != std::string_view::npos) {
      text += std::string("\\") + kEscapeNames[name];
    } else if (Invisible(code) || (byte == ' ' && atAnEnd)) {
      text += HexEscape(byte);
    } else {
      AppendUtf8(text, code);
    }
  }
  return text;
}

std::string EscapeCell(char cell) { return LoadOfCharacter(cell).known ? std::string(1, cell) : HexEscape(cell); }

void SetSyntax::Fail(int line, const std::string& what) const { throw Fault(what, file_ + ":" + std::to_string(line)); }

std::vector<Entry> SetSyntax::Entries(std::string_view text) const {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);  // some editors start UTF-8 with a byte order mark
  std::vector<Entry> entries;
  int number = 0;
  for (const std::string& line : SplitLines(text)) {
    ++number;
    const std::string_view content = Trimmed(line);
    if (content.empty() || content.front() == '#') continue;
    if (content.front() == '|') {
      if (entries.empty() || !entries.back().hasValue) Fail(number, "there is no field that this line goes on with.");
      entries.back().more.push_back({number, line.substr(line.find('|') + 1)});
      continue;
    }
    const std::size_t colon = content.find(':');
    Entry entry{std::string(Trimmed(content.substr(0, colon))), colon != std::string_view::npos, {number, {}}, {}};
    if (entry.hasValue) entry.value.text = Trimmed(content.substr(colon + 1));
    entries.push_back(std::move(entry));
  }
  return entries;
}

char SetSyntax::Byte(char32_t code, int line) const {
  char byte = 0;
  if (ByteOf(code, page, byte)) return byte;
  if (code >= 0xDC80 && code <= 0xDCFF) Fail(line, "this line is not UTF-8.");
  Fail(line, Shown(code) + " is not in code page " + (page == CodePage::k1250 ? "1250." : "1251."));
}

/// Takes an escape, which starts with a backslash, from the front of a text.
char SetSyntax::TakeEscape(std::string_view& rest, int line) const {
  if (rest.size() >= 2 && kEscapeNames.find(rest[1]) != std::string_view::npos) {
    const char byte = kEscapeBytes[kEscapeNames.find(rest[1])];
    rest.remove_prefix(2);
    return byte;
  }
  if (rest.size() >= 4 && rest[1] == 'x') {
    unsigned value = 0;
    const char* digits = rest.data() + 2;
    if (std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2) {
      rest.remove_prefix(4);
      return static_cast<char>(value);
    }
  }
  Fail(line, R"(a backslash starts one of \\ \n \r \t \xHH.)");
}

std::string SetSyntax::Unescaped(std::string_view text, int line) const {
  std::string bytes;
  while (!text.empty()) {
    if (text.front() == '\\') {
      bytes += TakeEscape(text, line);
      continue;
    }
    const std::string_view plain = text.substr(0, text.find('\\'));
    for (const char32_t code : CodePoints(plain)) bytes += Byte(code, line);
    text.remove_prefix(plain.size());
  }
  return bytes;
}

std::string SetSyntax::Text(const Entry& entry) const {
  std::string bytes = Unescaped(entry.value.text, entry.line());
  for (const Piece& piece : entry.more) bytes += "\r\n" + Unescaped(Trimmed(piece.text), piece.line);
  return bytes;
}

std::string SetSyntax::ShortText(const Entry& entry) const {
  std::string text = Text(entry);
  if (text.size() > kLargestSmallNumber) {
    Fail(entry.line(), TooLong("\"" + entry.key + "\"", text.size()));
  }
  return text;
}

std::string SetSyntax::Row(const Piece& row) const {
  std::string cells;
  std::string_view rest = row.text;
  while (!rest.empty()) {
    const char c = rest.front();
    if (c == '\\') {
      cells += TakeEscape(rest, row.line);
      continue;
    }
    if (!LoadOfCharacter(c).known) {
      Fail(row.line, Shown(CodePoints(rest).front()) + " is no tile; its byte can be written as \\xHH if it is meant.");
    }
    cells += c;
    rest.remove_prefix(1);
  }
  return cells;
}

int SetSyntax::NumberIn(std::string_view text, int line, int smallest, int largest) const {
  text = Trimmed(text);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < smallest || value > largest) {
    Fail(line, "\"" + std::string(text) + "\" is no whole number from " + std::to_string(smallest) + " to " +
                   std::to_string(largest) + ".");
  }
  return value;
}

std::vector<int> SetSyntax::Numbers(const Entry& entry, int smallest, int largest) const {
  if (!entry.more.empty()) Fail(entry.more[0].line, "\"" + entry.key + "\" has one line only.");
  std::vector<int> numbers;
  std::string_view rest = Trimmed(entry.value.text);
  while (!rest.empty()) {
    const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
    numbers.push_back(NumberIn(word, entry.line(), smallest, largest));
    rest = Trimmed(rest.substr(word.size()));
  }
  return numbers;
}

int SetSyntax::Number(const Entry& entry, int smallest, int largest) const {
  const std::vector<int> numbers = Numbers(entry, smallest, largest);
  if (numbers.size() != 1) Fail(entry.line(), "\"" + entry.key + "\" is one number.");
  return numbers[0];
}
