#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A recorded game, as a record file holds it. Texts are in the code page of the one who played.
struct Recording {
  std::string setName;
  std::string player;
  std::string caveText;            // as it was played, so the recording needs no set
  int score = 0;                   // with the points of a bonus cave; 0 when line 1 tells none
  std::vector<std::string> ticks;  // plain lines; an empty one or the end of the list ends the replay
};

/// Line of the file in which the first tick stands, counted from 1.
inline constexpr int kFirstTickLine = 4;

/// Points that a won bonus cave adds to the score of its record.
inline constexpr int kBonusPoints = 500;

/// The contents of a record file: set name and score, player, then the buffer that Hra has filled since the cave was
/// set up (the coded cave text and a line a tick). score: 0 to 99999.
std::string RecordText(std::string_view setName, int score, std::string_view player, std::string_view recordBuffer);

/// Takes a record file apart. Throws Fault when one of its first three lines is missing.
Recording ReadRecording(std::string_view contents);
