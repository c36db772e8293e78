#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

inline constexpr int kLangStrCount = 200;

namespace text {

/// The rows of a language file by name, such as LangStr[text::kPlay]. Which screen shows which row: language_rows.inc.
enum Row : std::size_t {
#define ROW(number, name, ...) name = number,
#include "base/language_rows.inc"
#undef ROW
};

}  // namespace text

/// The texts of the language in force, in its single-byte code page; empty until a language file has been read.
/// Filled by the language reader alone, read by everybody.
extern std::array<std::string, kLangStrCount> LangStr;

/// The line break within texts: in messages, labels and text fields.
inline constexpr std::string_view kLineBreak = "\r\n";
