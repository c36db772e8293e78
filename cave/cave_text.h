#pragma once

#include <string>
#include <string_view>

#include "cave/cave_record.h"

/// A small number n, up to the largest, is written as the one character of code n + kSmallNumberBase.
inline constexpr int kSmallNumberBase = 65;
inline constexpr int kLargestSmallNumber = 190;

/// Decodes a cave text; a tail behind the cells is ignored and missing cells become blanks.
/// An empty text gives an empty record. Throws Fault when the header is cut short, holds a character below "A" in place
/// of a number, or asks for more than 81 columns or 51 rows.
CaveRecord ParseCaveText(std::string_view text);

/// Encodes a record; the inverse of ParseCaveText for texts without a tail. A cell never written becomes ".".
/// Throws Fault when a text or a number does not fit its one character (at most 190).
std::string BuildCaveText(const CaveRecord& record);

/// The two caves that a new one starts from: number 1 is the small one (19 x 11), 2 the big one (30 x 20).
/// Their texts come from the language in force.
std::string CaveTemplate(int number);

/// What a set file puts behind a cave text: "---" and the number of the cave, 0..99, as two digits.
std::string CaveTail(int number);

/// "*1" and "*2" give the templates. Any other name is a set file; its cave with the given number in the tail of its
/// line is returned with the tail, or an empty string when no line has that number. Throws Fault when the file cannot
/// be read.
std::string LoadCaveText(const std::string& fileName, int caveNumber);
