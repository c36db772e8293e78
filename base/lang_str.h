#pragma once

#include <array>
#include <string>
#include <string_view>

/// The texts of the language in force, in its single-byte code page; empty until a language file has been read.
/// Filled by the language reader alone, read by everybody. Which screen shows which row: base/language_rows.cpp.
inline constexpr int kLangStrCount = 200;
extern std::array<std::string, kLangStrCount> LangStr;

/// The line break within texts: in messages, labels and text fields.
inline constexpr std::string_view kLineBreak = "\r\n";
