#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/utf8.h"

namespace {

// The upper halves of the pages, sixteen bytes a row from 0x80 on, as glibc's iconv has them.
constexpr std::u16string_view kUpper1250 =
    u"€\x81‚\x83„…†‡\x88‰Š‹ŚŤŽŹ"
    u"\x90‘’“”•–—\x98™š›śťžź"
    u"\u00A0ˇ˘Ł¤Ą¦§¨©Ş«¬\u00AD®Ż"
    u"°±˛ł´µ¶·¸ąş»Ľ˝ľż"
    u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎ"
    u"ĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢß"
    u"ŕáâăäĺćçčéęëěíîď"
    u"đńňóôőö÷řůúűüýţ˙";
constexpr std::u16string_view kUpper1251 =
    u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏ"
    u"ђ‘’“”•–—\x98™љ›њќћџ"
    u"\u00A0ЎўЈ¤Ґ¦§Ё©Є«¬\u00AD®Ї"
    u"°±Ііґµ¶·ё№є»јЅѕї"
    u"АБВГДЕЖЗИЙКЛМНОП"
    u"РСТУФХЦЧШЩЪЫЬЭЮЯ"
    u"абвгдежзийклмноп"
    u"рстуфхцчшщъыьэюя";
static_assert(kUpper1250.size() == 128 && kUpper1251.size() == 128);

std::u16string_view Upper(CodePage page) { return page == CodePage::k1250 ? kUpper1250 : kUpper1251; }

using ByteTable = std::array<char, 256>;

ByteTable MakeCaseTable(CodePage page, char32_t (*change)(char32_t)) {
  ByteTable table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    const char byte = static_cast<char>(i);
    if (!ByteOf(change(CodePointOf(byte, page)), page, table[i])) table[i] = byte;
  }
  return table;
}

std::string Map(std::string_view bytes, const ByteTable& table) {
  std::string result(bytes);
  for (char& c : result) c = table[static_cast<unsigned char>(c)];
  return result;
}

}  // namespace

char32_t CodePointOf(char byte, CodePage page) {
  const auto code = static_cast<unsigned char>(byte);
  return code < 0x80 ? code : Upper(page)[code - 0x80u];
}

bool ByteOf(char32_t code, CodePage page, char& byte) {
  if (code < 0x80) {
    byte = static_cast<char>(code);
    return true;
  }
  if (code > 0xFFFF) return false;
  const std::size_t place = Upper(page).find(static_cast<char16_t>(code));
  if (place == std::u16string_view::npos) return false;
  byte = static_cast<char>(0x80 + place);
  return true;
}

std::string ToUtf8(std::string_view bytes, CodePage page) {
  std::string utf8;
  for (const char byte : bytes) AppendUtf8(utf8, CodePointOf(byte, page));
  return utf8;
}

std::string FromUtf8(std::string_view utf8, CodePage page) {
  std::string bytes;
  for (const char32_t code : CodePoints(utf8)) {
    char byte = '?';
    if (!ByteOf(code, page, byte)) byte = '?';
    bytes += byte;
  }
  return bytes;
}

std::string ReadableFromUtf8(std::string_view utf8, CodePage page) {
  std::string readable;
  for (const char32_t code : CodePoints(utf8)) {
    char byte = '?';
    AppendUtf8(readable, ByteOf(code, page, byte) ? code : WithoutAccent(code));
  }
  return FromUtf8(readable, page);
}

std::string Cp1250(std::string_view utf8) { return FromUtf8(utf8, CodePage::k1250); }

std::string ToLower(std::string_view bytes, CodePage page) {
  static const ByteTable tables[] = {MakeCaseTable(CodePage::k1250, LowerCase),
                                     MakeCaseTable(CodePage::k1251, LowerCase)};
  return Map(bytes, tables[static_cast<std::size_t>(page)]);
}

std::string ToUpper(std::string_view bytes, CodePage page) {
  static const ByteTable tables[] = {MakeCaseTable(CodePage::k1250, UpperCase),
                                     MakeCaseTable(CodePage::k1251, UpperCase)};
  return Map(bytes, tables[static_cast<std::size_t>(page)]);
}
