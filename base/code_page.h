#pragma once

#include <string>
#include <string_view>

/// The single-byte code pages of game text: Central European and Cyrillic.
enum class CodePage { k1250, k1251 };

/// UTF-8 of single-byte text. Every byte has a code point of its own: a byte that the page leaves undefined stands for
/// the control character of the same number.
std::string ToUtf8(std::string_view bytes, CodePage page);

/// Single-byte text of UTF-8; the inverse of ToUtf8. A character that the page lacks and a byte that is no UTF-8 become
/// "?" each.
std::string FromUtf8(std::string_view utf8, CodePage page);

/// The same for a text that is only read, such as a path in a message: an accent that the page lacks is left out and
/// the letter stays ("Hráči" is "Hraci" in 1251).
std::string ReadableFromUtf8(std::string_view utf8, CodePage page);

/// The code point of one byte of the page.
char32_t CodePointOf(char byte, CodePage page);

/// True, and the byte of the code point, when the page has it.
bool ByteOf(char32_t code, CodePage page, char& byte);

/// A literal of the source in code page 1250: Cp1250("Zorbík").
std::string Cp1250(std::string_view utf8);

/// Single-byte text in lower or upper case. A letter whose other case is not in the page stays as it is.
std::string ToLower(std::string_view bytes, CodePage page);
std::string ToUpper(std::string_view bytes, CodePage page);
