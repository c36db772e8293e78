#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"

// The notation of set_text.h below the level of a set: lines, fields, escapes and numbers.

/// Text as one line of UTF-8: control characters, invisible ones and blanks at the ends are escaped.
std::string EscapeText(std::string_view bytes, CodePage page);

/// A cell as it stands in a row: the character of a tile, or the escape of any other.
std::string EscapeCell(char cell);

/// Part of a line, with the number of the line for messages.
struct Piece {
  int line = 0;
  std::string text;
};

/// A line "key: value" or a line without a colon, and the lines with bars that go on with it.
struct Entry {
  std::string key;
  bool hasValue = false;  // there is a colon
  Piece value;
  std::vector<Piece> more;  // what stands behind the bars

  int line() const { return value.line; }
};

/// Reads the notation. Every mistake is a Fault with "FILE:LINE" for its file.
class SetSyntax {
 public:
  explicit SetSyntax(std::string file) : file_(std::move(file)) {}

  [[noreturn]] void Fail(int line, const std::string& what) const;

  /// The entries of a text; comments and blank lines are left out.
  std::vector<Entry> Entries(std::string_view text) const;

  /// The bytes of a text field, a line break before each line with a bar.
  std::string Text(const Entry& entry) const;

  /// The same for a text whose length is stored as one character.
  std::string ShortText(const Entry& entry) const;

  /// The cells of a row.
  std::string Row(const Piece& row) const;

  /// Whole numbers within limits: one, as many as there are, and the number in part of a line.
  int Number(const Entry& entry, int smallest, int largest) const;
  std::vector<int> Numbers(const Entry& entry, int smallest, int largest) const;
  int NumberIn(std::string_view text, int line, int smallest, int largest) const;

  /// The code page of texts.
  CodePage page = CodePage::k1250;

 private:
  char Byte(char32_t code, int line) const;
  char TakeEscape(std::string_view& rest, int line) const;
  std::string Unescaped(std::string_view text, int line) const;

  std::string file_;
};
