#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The code points of a UTF-8 text. A byte b that is no part of well-formed UTF-8 gives 0xDC00 + b, a value that no
/// character has, so that different damaged texts stay different.
std::u32string CodePoints(std::string_view utf8);

/// Appends one code point to a UTF-8 text; the value 0xDC00 + b of a stray byte b (0x80..0xFF) gives that byte back.
void AppendUtf8(std::string& utf8, char32_t code);

/// The lower or upper case of a Latin (up to Latin Extended-A) or Cyrillic letter; any other code point is returned as
/// it is, and so is a letter whose other case is not one code point.
char32_t LowerCase(char32_t code);
char32_t UpperCase(char32_t code);

/// The plain letter of one of our languages' letters with an accent ("e" of "ě" and "ë"); any other code point is
/// returned as it is.
char32_t WithoutAccent(char32_t code);

/// What two UTF-8 texts have in common exactly when they differ in case alone.
std::u32string CaseKey(std::string_view utf8);

/// Puts UTF-8 names in the order of the alphabet, regardless of case; the one order of all lists. It is the Czech one
/// in every language, for places in lists are stored: č, ř, š and ž come behind their plain letters and ch behind h,
/// other accents count only where nothing else differs. Cyrillic letters follow the Latin ones.
void SortByAlphabet(std::vector<std::string>& names);
