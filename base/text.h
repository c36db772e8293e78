#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "base/fault.h"

/// The text with every occurrence of one part replaced; from is not empty.
std::string Replaced(std::string text, std::string_view from, std::string_view to);

/// A number with zeros before it, as many digits wide as asked for, or wider where it needs more.
std::string Digits(int number, int width);

/// Letters of a text out of a file that a box, title or tool tip shows at most.
inline constexpr std::size_t kLongestShown = 200;

/// Single-byte text of either code page, cut to kLongestShown letters with "…" for what is left out.
std::string Shortened(std::string_view text);

/// What a box says of a fault, in the code page: the file and what is wrong with it, each of them shortened.
std::string ShownFault(const Fault& fault, CodePage page);
