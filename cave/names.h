#pragma once

#include <string>
#include <string_view>

#include "base/code_page.h"

/// The text less the characters ? * \ / , ; : = tab and double quote: what is left can be part of a file name.
std::string CistyNazev(std::string_view text);

/// A name as that of a file, in its code page: cleaned, with the ending behind it. One that holds a zero character, or
/// is longer in UTF-8 than the name of a file can be, is cut, with a number behind it that tells such names apart.
std::string FileName(std::string_view name, std::string_view ending, CodePage page);

/// The name of a record's file, in code page 1250 whatever that of the names is.
std::string RecordName(std::string_view setName, std::string_view caveName);

/// True when "BONUS" occurs in the name of a cave, regardless of case: such a cave may be skipped and pays extra
/// points.
bool JeBonus(std::string_view name);
