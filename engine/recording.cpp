#include "engine/recording.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "base/fault.h"
#include "base/files.h"
#include "cave/scramble.h"

namespace {

constexpr char kScoreMark = 13;  // stands between the set's name and the score
constexpr std::size_t kScoreDigits = 5;

/// Splits line 1. Without the mark in its place all of it is the set's name.
void ReadTitle(std::string title, Recording& recording) {
  const std::size_t tail = kScoreDigits + 1;
  if (title.size() >= tail && title[title.size() - tail] == kScoreMark) {
    const std::string digits = title.substr(title.size() - kScoreDigits);
    const bool number = std::all_of(digits.begin(), digits.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
    recording.score = number ? std::stoi(digits) : 0;
    title.resize(title.size() - tail);
  }
  recording.setName = std::move(title);
}

}  // namespace

std::string RecordText(std::string_view setName, int score, std::string_view player, std::string_view recordBuffer) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%05d", score);
  std::string text = Scramble(std::string(setName) + kScoreMark + digits) + "\r\n";
  text += Scramble(player) + "\r\n";
  return text.append(recordBuffer);
}

Recording ReadRecording(std::string_view contents) {
  std::vector<std::string> lines = SplitLines(contents);
  if (lines.size() < 3) {
    throw Fault("This is no record of a game: line " + std::to_string(lines.size() + 1) + " is missing.");
  }
  Recording recording;
  ReadTitle(Unscramble(lines[0]), recording);
  recording.player = Unscramble(lines[1]);
  recording.caveText = Unscramble(lines[2]);
  recording.ticks.assign(std::make_move_iterator(lines.begin() + kFirstTickLine - 1),
                         std::make_move_iterator(lines.end()));
  return recording;
}
