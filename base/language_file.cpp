#include "base/language_file.h"

#include <algorithm>
#include <vector>

#include "base/fault.h"
#include "base/files.h"

namespace {

constexpr std::size_t kHeaderLines = 2;
constexpr std::size_t kHeaderBytes = 4096;  // many times the longest header
constexpr std::size_t kMostDigits = 9;

int LanguageNumber(std::string_view line) {
  while (line.starts_with(' ')) line.remove_prefix(1);
  while (line.ends_with(' ')) line.remove_suffix(1);
  const bool digits = std::all_of(line.begin(), line.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (line.empty() || line.size() > kMostDigits || !digits) return 0;
  return std::stoi(std::string(line));
}

std::string WithLineBreaks(std::string_view line) {
  std::string text;
  for (const char c : line) {
    if (c == '#') {
      text += kLineBreak;
    } else {
      text += c;
    }
  }
  return text;
}

LanguageHeader HeaderOf(const std::vector<std::string>& lines) { return {LanguageNumber(lines[0]), lines[1]}; }

/// The lines of a file that has to have at least so many.
std::vector<std::string> Lines(std::string_view bytes, std::size_t atLeast, const std::string& path) {
  std::vector<std::string> lines = SplitLines(bytes);
  if (lines.size() < atLeast) {
    throw Fault("The language file has only " + std::to_string(lines.size()) + " of " +
                    std::to_string(kLanguageFileLines) + " lines.",
                path);
  }
  return lines;
}

}  // namespace

CodePage CodePageOf(int languageNumber) { return languageNumber == 3 ? CodePage::k1251 : CodePage::k1250; }

LanguageFile ParseLanguageFile(std::string_view bytes, const std::string& path) {
  const std::vector<std::string> lines = Lines(bytes, kLanguageFileLines, path);
  LanguageFile file;
  file.header = HeaderOf(lines);
  for (std::size_t i = 0; i < file.strings.size(); ++i) file.strings[i] = WithLineBreaks(lines[kHeaderLines + i]);
  return file;
}

LanguageHeader ParseLanguageHeader(std::string_view bytes, const std::string& path) {
  return HeaderOf(Lines(bytes, kHeaderLines, path));
}

LanguageFile ReadLanguageFile(const std::string& path) { return ParseLanguageFile(ReadFile(path), path); }

LanguageHeader ReadLanguageHeader(const std::string& path) {
  return ParseLanguageHeader(ReadStart(path, kHeaderBytes), path);
}
