#include "base/utf8.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace {

constexpr char32_t kStrayByte = 0xDC00;

// Letters with an accent, and the same ones without.
constexpr std::u32string_view kAccented =
    U"áâăäąćčçďđéęëěíîĺľłńňóôőöŕřśšşťţúůűüýźžżёÁÂĂÄĄĆČÇĎĐÉĘËĚÍÎĹĽŁŃŇÓÔŐÖŔŘŚŠŞŤŢÚŮŰÜÝŹŽŻЁ";
constexpr std::u32string_view kPlain =
    U"aaaaacccddeeeeiilllnnoooorrsssttuuuuyzzzеAAAAACCCDDEEEEIILLLNNOOOORRSSSTTUUUUYZZZЕ";
static_assert(kAccented.size() == kPlain.size());

bool Within(char32_t code, char32_t first, char32_t last) { return code >= first && code <= last; }

/// The code point at the front of a non-empty text and its length in bytes; length 0 when the text starts with a byte
/// that is no part of well-formed UTF-8.
struct Decoded {
  char32_t code;
  std::size_t length;
};

Decoded DecodeFront(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (!Within(lead, 0xC2, 0xF4) || text.size() < length) return {0, 0};
  char32_t code = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if (!Within(next, 0x80, 0xBF)) return {0, 0};
    code = code << 6 | (next & 0x3Fu);
  }
  constexpr char32_t shortest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (code < shortest[length] || code > 0x10FFFF || Within(code, 0xD800, 0xDFFF)) return {0, 0};
  return {code, length};
}

/// What decides about the order: the letters of the alphabet, then accents, then the name itself.
using SortKey = std::tuple<std::u32string, std::u32string, std::string>;

SortKey SortKeyOf(std::string name) {
  const std::u32string codes = CaseKey(name);
  std::u32string letters;
  char32_t before = 0;
  for (const char32_t code : codes) {
    const bool ch = before == 'c' && code == 'h';
    if (ch) letters.pop_back();
    const bool own_letter = ch || std::u32string_view(U"čřšž").find(code) != std::u32string_view::npos;
    // Leaves room for a letter behind each one.
    letters += static_cast<char32_t>(WithoutAccent(code) * 2 + (own_letter ? 1 : 0));
    before = code;
  }
  return {letters, codes, std::move(name)};
}

}  // namespace

std::u32string CodePoints(std::string_view utf8) {
  std::u32string codes;
  while (!utf8.empty()) {
    const Decoded front = DecodeFront(utf8);
    codes += front.length > 0 ? front.code : kStrayByte + static_cast<unsigned char>(utf8.front());
    utf8.remove_prefix(std::max<std::size_t>(front.length, 1));
  }
  return codes;
}

void AppendUtf8(std::string& utf8, char32_t code) {
  const auto tail = [&utf8, code](int shift) { utf8 += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    utf8 += static_cast<char>(code);
  } else if (Within(code, kStrayByte + 0x80, kStrayByte + 0xFF)) {
    utf8 += static_cast<char>(code - kStrayByte);
  } else if (code < 0x800) {
    utf8 += static_cast<char>(0xC0 | code >> 6);
    tail(0);
  } else if (code < 0x10000) {
    utf8 += static_cast<char>(0xE0 | code >> 12);
    tail(6);
    tail(0);
  } else {
    utf8 += static_cast<char>(0xF0 | code >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

char32_t LowerCase(char32_t code) {
  const bool even = code % 2 == 0;
  if (Within(code, 'A', 'Z') || (Within(code, 0xC0, 0xDE) && code != 0xD7) || Within(code, 0x410, 0x42F)) {
    return code + 32;
  }
  if (code == 0x130) return code;  // dotted capital I: its small letter is the plain one
  if (Within(code, 0x100, 0x137) || Within(code, 0x14A, 0x177) || Within(code, 0x460, 0x481) ||
      Within(code, 0x48A, 0x4BF)) {
    return even ? code + 1 : code;
  }
  if (Within(code, 0x139, 0x148) || Within(code, 0x179, 0x17E)) return even ? code : code + 1;
  if (Within(code, 0x400, 0x40F)) return code + 80;
  return code;
}

char32_t UpperCase(char32_t code) {
  for (const char32_t distance : {1, 32, 80}) {
    if (code >= distance && LowerCase(code - distance) == code) return code - distance;
  }
  return code;
}

std::u32string CaseKey(std::string_view utf8) {
  std::u32string key = CodePoints(utf8);
  std::transform(key.begin(), key.end(), key.begin(), LowerCase);
  return key;
}

char32_t WithoutAccent(char32_t code) {
  const std::size_t place = kAccented.find(code);
  return place == std::u32string_view::npos ? code : kPlain[place];
}

void SortByAlphabet(std::vector<std::string>& names) {
  std::vector<SortKey> keys;
  keys.reserve(names.size());
  for (std::string& name : names) keys.push_back(SortKeyOf(std::move(name)));
  std::sort(keys.begin(), keys.end());
  std::transform(keys.begin(), keys.end(), names.begin(), [](SortKey& key) { return std::get<2>(std::move(key)); });
}
