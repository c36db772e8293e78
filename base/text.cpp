#include "base/text.h"

#include <cstdio>

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
