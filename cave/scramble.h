#pragma once

#include <string>
#include <string_view>

// Kódování, the coding of the lines of set and record files.

/// Codes each character as three capital letters, at random among equivalent codings.
std::string Scramble(std::string_view text);

/// The inverse of Scramble. Never fails: whatever cannot be read leaves the last good value in its place. So a group of
/// letters whose value is no character repeats the character before it, and a group cut short by the end of the text
/// goes on with the missing numbers of the group before.
std::string Unscramble(std::string_view text);
