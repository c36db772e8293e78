#include "base/text.h"

#include <cstdio>

namespace {

constexpr char kEllipsis = '\x85';         // in both code pages
constexpr std::size_t kLongestPath = 300;  // letters: the longest name of a file, and something of its folder

}  // namespace

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

std::string Digits(int number, int width) {
  char text[32];
  std::snprintf(text, sizeof text, "%0*d", width, number);
  return text;
}

std::string Shortened(std::string_view text) {
  std::string shown(text.substr(0, kLongestShown));
  if (shown.size() < text.size()) shown.back() = kEllipsis;
  return shown;
}

std::string ShownFault(const Fault& fault, CodePage page) {
  const std::string what = Shortened(ReadableFromUtf8(fault.what(), page));
  if (fault.file().empty()) return what;
  // Of a path its end tells which file it is.
  std::string file = ReadableFromUtf8(fault.file(), page);
  if (file.size() > kLongestPath) file.replace(0, file.size() - kLongestPath + 1, 1, kEllipsis);
  return file + ": " + what;
}
