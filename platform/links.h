#pragma once

#include <functional>
#include <string>

namespace platform {

/// Hands a file path, a web link ("http:", "https:") or a mail link ("mailto:") to the desktop, which opens it in the
/// user's program for it. Everything without one of these schemes is a path, found regardless of case. The text is
/// UTF-8 and not coded: blanks and other characters that links may not hold are coded here, and all that follows
/// "?subject=" of a mail link is its subject, whatever it holds. Reports nothing, also when nothing opens.
void OpenLink(const std::string& text);

/// The link that is handed over for a text: coded, "file:" for a path. Empty when there is no such file.
std::string CodedLink(const std::string& text);

/// For tests: gets the texts in place of the desktop. An empty function brings the desktop back.
void SetLinkResponder(std::function<void(const std::string&)> responder);

}  // namespace platform
