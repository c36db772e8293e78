#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"

// The readable form of a cave set: UTF-8, made to be edited by hand and kept under version control.
//
//   zorbik set
//   code page: 1250
//
//   set: The name of the set
//   start: 1 4
//   author: Who made it
//   description: A text. A line that starts with a bar
//   | goes on with it behind a line break.
//   mail: someone@example.org
//
//   cave 1
//   name: First steps
//   description: Dig.
//   time: 150
//   need: 5
//   points: 5 20
//   magic: 20
//   amoeba: 50
//   colour: 2
//   slime: 4
//   size: 3 x 2
//   rows:
//   |W;T
//   |W1D
//
//   congratulation: You have $P points.
//
// Blank lines and lines that start with "#" are skipped. `start` is cave 1 when it is missing and nothing when it is
// empty; description, mail and size may be missing; "cave" without a number goes on counting; "points" are those before
// and after the exit opens.
//
// In texts, "\\" is a backslash, "\n" "\r" "\t" are single control characters and "\xHH" is the byte of that value; so
// a blank at the end of a line is "\x20". In rows every character that stands for no tile is written as "\xHH". What
// the fields cannot express byte for byte is given as it stands in the file: "line 1:", "line 2:", "line 3:" for the
// first lines, "raw:" for any line behind them, "mark:" for an unusual format mark, and "no congratulation" at the end
// of a set whose last line is a cave. A set of fewer than four lines consists of "raw:" alone.

/// The readable form of decoded lines, see SetLines. Gives back these very lines when read by SetFromText.
std::string SetToText(const std::vector<std::string>& lines, CodePage page);

/// The lines of a set in readable form; page, if given, receives its code page. Throws Fault when the text has a
/// mistake: its file() is then "FILE:LINE" with the given name of the file.
std::vector<std::string> SetFromText(std::string_view text, const std::string& file, CodePage* page = nullptr);

/// A set in readable form with its texts taken, in their order, from another file: the code page, the names and
/// descriptions of the set and of its caves, the author and the congratulation. So the caves have one home, whatever
/// the languages. That file starts with the line "zorbik texts" and holds these fields alone. Throws Fault, which names
/// the file and the line, where it does not follow the set or does not fit its code page.
std::string WithTexts(std::string_view text, const std::string& file, std::string_view texts,
                      const std::string& textsFile);
