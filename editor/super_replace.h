#pragma once

#include <string>
#include <string_view>

#include "base/code_page.h"

/// What an author wrote with the game's own words spelt right, less the blanks around it and with a capital first
/// letter. The words are Czech and English ones in code page 1250, whichever language is in force. page: that of the
/// text, for its capital.
std::string SuperReplace(std::string_view text, CodePage page = CodePage::k1250);

/// So many characters from the start-th on, the first being 1, when the text has all of them; otherwise nothing.
/// Nobody asks. start: from 1 on, length: from 0 on.
std::string EMid(std::string_view text, int start, int length);
