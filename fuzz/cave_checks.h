#pragma once

#include <string>
#include <string_view>
#include <vector>

// What must hold for every input, however damaged. Each check throws std::logic_error when it does not hold; a Fault is
// an answer that the input may get. Run by the fuzz targets on any bytes and by the tests on chosen ones.

/// Cave text, and the same bytes as a coded line: what is decoded can be encoded and decoded again to the same.
void CheckCaveText(std::string_view bytes);

/// A set of the lines between the separators: all readers, saving what the editor read, the readable form and back.
void CheckSet(std::string_view bytes);

/// The byte between two lines of a set given to CheckSet.
inline constexpr char kLineSeparator = '\x1E';

/// A text in readable form: when it is accepted, the lines it means have a readable form that means the same.
void CheckSetText(std::string_view text);

/// The texts of another language for a small set: when they are accepted, the set is one, with the same caves.
void CheckTexts(std::string_view texts);
