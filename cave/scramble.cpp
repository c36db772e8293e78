#include "cave/scramble.h"

#include <cstddef>

#include "base/random.h"

namespace {

constexpr int kLetterBase = 65;  // "A" stands for 0

int DivideDown(int value, int divisor) {
  const int quotient = value / divisor;
  return value % divisor < 0 ? quotient - 1 : quotient;
}

}  // namespace

std::string Scramble(std::string_view text) {
  std::string coded;
  coded.reserve(text.size() * 3);
  for (const char c : text) {
    const int code = static_cast<unsigned char>(c);
    const int k = static_cast<int>(Rnd() * 5) + 10;
    const int q = code / k;
    const int r = code - k * q;
    const int t = (k - 10) * 4 + static_cast<int>(Rnd() * 3);
    coded += static_cast<char>(q + kLetterBase);
    coded += static_cast<char>(r + kLetterBase);
    coded += static_cast<char>(t + kLetterBase);
  }
  return coded;
}

std::string Unscramble(std::string_view text) {
  std::string plain;
  plain.reserve(text.size() / 3 + 1);
  int group[3] = {0, 0, 0};  // q, r, t; kept from group to group, see the header
  bool anyCharacter = false;
  char character = 0;
  for (std::size_t start = 0; start < text.size(); start += 3) {
    for (std::size_t part = 0; part < 3 && start + part < text.size(); ++part) {
      group[part] = static_cast<unsigned char>(text[start + part]) - kLetterBase;
    }
    const int k = 10 + DivideDown(group[2], 4);
    const int code = group[1] + k * group[0];
    if (code >= 0 && code <= 255) {
      character = static_cast<char>(code);
      anyCharacter = true;
    }
    if (anyCharacter) plain += character;
  }
  return plain;
}
