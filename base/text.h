#pragma once

#include <string>
#include <string_view>

/// The text with every occurrence of one part replaced; from is not empty.
std::string Replaced(std::string text, std::string_view from, std::string_view to);

/// A number with zeros before it, as many digits wide as asked for, or wider where it needs more.
std::string Digits(int number, int width);
