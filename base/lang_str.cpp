#include "base/lang_str.h"

std::array<std::string, kLangStrCount> LangStr;
