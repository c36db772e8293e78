#pragma once

#include <array>

#include "base/lang_str.h"

/// What a row of the language file has to look like besides its length; bits of LanguageRow::shape.
enum LanguageRowShape : unsigned {
  kOneLine = 0,
  kLines = 1,      // may hold line breaks
  kPadded = 2,     // begins and ends with a blank; no other row does
  kContinued = 4,  // the program goes on behind it with a name, a number, a word or a full stop
  kInLink = 8,     // becomes part of a mail link
};

/// What a translator has to know of one row of LangStr.
struct LanguageRow {
  int index;                  // 0..199, the place in LangStr
  const char* use;            // who shows it, and how
  int longest;                // characters that fit, place-holders as written
  unsigned shape = kOneLine;  // bits of LanguageRowShape
  const char* holds = "";     // place-holders that it has to hold, "|" between them
};

/// Everything that a routine replaces in a row. A row that holds one without need would show it as it stands.
inline constexpr std::array<const char*, 5> kPlaceHolders{"?1?", "?2?", "$P", " 2-4", " 5-9"};

/// All rows; entry i is row i. This table is the one place that tells which routine uses which row.
extern const std::array<LanguageRow, kLangStrCount> kLanguageRows;
