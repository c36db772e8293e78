#pragma once

#include <string>
#include <string_view>

/// The text less the characters ? * \ / , ; : = tab and double quote: what is left can be part of a file name.
std::string CistyNazev(std::string_view text);

/// True when "BONUS" occurs in the name of a cave, regardless of case: such a cave may be skipped and pays extra
/// points.
bool JeBonus(std::string_view name);
