#include "editor/cave_sums.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kLargestShare = 5.0 / 22;  // of the cave's area
constexpr double kSlowSecondsACell = 3.2;   // before the amoeba's time is over
constexpr double kFastSecondsACell = 0.4;   // and after that

int WholePart(double number) { return static_cast<int>(std::floor(number)); }

}  // namespace

int NumberOf(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  constexpr double kMost = std::numeric_limits<int>::max();
  double number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    number = std::min(10 * number + (c - '0'), kMost);
  }
  return static_cast<int>(negative ? -number : number);
}

std::string NumberText(int number) { return (number < 0 ? "" : " ") + std::to_string(number); }

int SlimeChances(int permeability) { return 1 << (kMostPermeable - permeability); }

Petrification EstimatePetrification(int width, int height, int amoeba, int amoebaTime) {
  const int toGrow = static_cast<int>(std::ceil(height * width * kLargestShare)) - amoeba;
  const int slowCells = WholePart(amoebaTime / kSlowSecondsACell);
  const double seconds =
      slowCells > toGrow ? kSlowSecondsACell * toGrow : amoebaTime + kFastSecondsACell * (toGrow - slowCells);
  return {toGrow, WholePart(seconds)};
}
