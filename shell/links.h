#pragma once

#include <string>

/// Hands a file, a web link or a mail link (UTF-8) to the desktop, which opens it with its own program. Reports
/// nothing.
void OtevriOdkaz(const std::string& text);
