#pragma once

#include <string>

/// Hands a file, a web link or a mail link (UTF-8) to the desktop, which opens it with its own program. Reports
/// nothing.
void OtevriOdkaz(const std::string& text);

/// The beginning of a mail link, UTF-8: the address alone. What a mail program would take for further wishes (a
/// subject, more receivers) is coded.
std::string MailTo(const std::string& address);

void OpenAuthorPage();
/// Opens a mail to the author of the game, with the hero's name as its subject.
void WriteToAuthor();
