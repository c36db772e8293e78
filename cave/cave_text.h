#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cave/cave_record.h"

/// A small number n, up to the largest, is written as the one character of code n + kSmallNumberBase.
inline constexpr int kSmallNumberBase = 65;
inline constexpr int kLargestSmallNumber = 190;

/// A text behind its length as one character. Throws Fault when it is longer than kLargestSmallNumber. what: which
/// text, as in TooLong.
std::string WithLength(std::string_view text, const std::string& what);

/// "WHAT has SIZE characters; 190 are possible."
std::string TooLong(const std::string& what, std::size_t size);

/// "81 by 51", the size of the largest cave for messages.
std::string LargestCave();

/// Decodes a cave text. What follows the cells is ignored, so a tail fills cells that are missing; the rest of them
/// become blanks. An empty text gives an empty record. Throws Fault when the header is cut short, holds a character
/// below "A" in place of a number, or asks for more than 81 columns or 51 rows.
CaveRecord ParseCaveText(std::string_view text);

/// Encodes a record; the inverse of ParseCaveText for texts without a tail. A cell never written becomes ".".
/// Throws Fault when a text or a number does not fit its one character (at most 190).
std::string BuildCaveText(const CaveRecord& record);

/// The two caves that a new one starts from: 19 x 11 and 30 x 20 cells.
enum class NewCave { kSmall, kBig };

/// The text of such a cave. Its name and description come from the language in force; what is too long for a cave text
/// is cut off.
std::string CaveTemplate(NewCave size);

/// What a set file puts behind a cave text: "---" and the number of the cave, 0..99, as two digits.
std::string CaveTail(int number);
inline constexpr std::size_t kCaveTailLength = 5;

/// "*1" and "*2" give the templates. Any other name is a set file; its cave with the given number in the tail of its
/// line is returned with the tail, or an empty string when no line has that number. Throws Fault when the file cannot
/// be read.
std::string LoadCaveText(const std::string& fileName, int caveNumber);
