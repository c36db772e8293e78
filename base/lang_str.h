#pragma once

#include <array>
#include <string>

/// The texts of the language in force, in its single-byte code page; empty until a language file has been read.
/// Filled by the language reader alone, read by everybody.
inline constexpr int kLangStrCount = 200;
extern std::array<std::string, kLangStrCount> LangStr;
