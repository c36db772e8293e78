#pragma once

#include <string>
#include <string_view>

#include "base/language_file.h"

// The readable source of a language file, UTF-8:
//
//   ; comment
//   number 1
//   name "Čeština"
//   000 "Hrát"
//   ...
//   199 "text, # is a line break"
//
// A text is what stands between the first and the last double quote of its line, so that blanks at its ends are seen.
// Lines that begin with ";" and empty lines say nothing. Rows come in order, each once.

/// The bytes of the .zbl file that a source describes, lines ended by CR LF. Throws Fault, with "path:line" as its
/// file, for a line that is none of the above, a row out of order or missing, and a character that the code page lacks.
std::string BytesOfSource(std::string_view source, const std::string& path);

/// The source with a note above each row that tells its use, its room and its place-holders. Notes begin with "; ";
/// what stood there is replaced, while lines that begin with ";;" stay.
std::string Annotated(std::string_view source);
