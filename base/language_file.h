#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "base/lang_str.h"

/// A language file (.zbl): the language number, the language's own name and the texts, a line each. All texts stay in
/// the file's single-byte code page.
inline constexpr int kLanguageFileLines = 2 + kLangStrCount;

/// The first two lines.
struct LanguageHeader {
  int number = 0;    // 1 Czech, 2 English, 3 Russian; 0 when the line is no number of at most nine digits
  std::string name;  // the language's name in that language
};

/// The code page of a language's file, its own name included: 1251 for Russian, otherwise 1250.
CodePage CodePageOf(int languageNumber);

/// A whole file. Every "#" of a text has become a line break.
struct LanguageFile {
  LanguageHeader header;
  std::array<std::string, kLangStrCount> strings;
};

/// Reads the bytes of a language file; lines end in LF or CR LF, and what follows the 202nd is ignored. Throws Fault
/// when lines are missing. path: the file's name for the message.
LanguageFile ParseLanguageFile(std::string_view bytes, const std::string& path = {});

/// Reads the first two lines alone. Throws Fault when one is missing.
LanguageHeader ParseLanguageHeader(std::string_view bytes, const std::string& path = {});

/// The same for the file of the path; of one that is asked for its header only the first 4096 bytes are read. Throw
/// Fault also when the file cannot be read.
LanguageFile ReadLanguageFile(const std::string& path);
LanguageHeader ReadLanguageHeader(const std::string& path);
