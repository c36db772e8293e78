#pragma once

#include <string>
#include <string_view>

/// The number that a text begins with, after blanks and with its sign; 0 without one. Numbers out of the range of int
/// become its nearest.
int NumberOf(std::string_view text);

/// A number as texts show it: with a blank in the place of the sign when there is none.
std::string NumberText(int number);

/// The highest permeability of slime, which lets everything through.
inline constexpr int kMostPermeable = 8;

/// Of so many chances a resting object has one to pass slime of this permeability, 0 to kMostPermeable.
int SlimeChances(int permeability);

/// When amoeba turns to stone.
struct Petrification {
  int cells;    // that it still has to grow, below 0 when it has more than enough
  int seconds;  // until then
};

/// The estimate for amoeba that always has room: it grows a cell each 3.2 seconds until amoebaTime, in seconds, is
/// over, and then one each 0.4 seconds, up to 5/22 of the cave. amoeba: its cells now.
Petrification EstimatePetrification(int width, int height, int amoeba, int amoebaTime);
