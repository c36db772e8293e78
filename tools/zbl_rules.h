#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/language_rows.h"

/// The place-holders that a row has to hold, with the blanks that belong to them.
std::vector<std::string> PlaceHoldersOf(const LanguageRow& row);

/// What is wrong with the bytes of a language file, a message each, UTF-8; empty when it may be shipped. Looks for
/// missing and surplus lines, an unknown number, characters outside the code page, lost and surplus place-holders,
/// blanks and line breaks that do not belong, texts that are empty or too long, and a full stop where the program goes
/// on.
std::vector<std::string> CheckLanguageFile(std::string_view bytes);
