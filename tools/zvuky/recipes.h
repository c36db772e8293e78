#pragma once

#include <functional>
#include <string>
#include <vector>

#include "synth.h"

/// A sound of the game and how it is made.
struct Recipe {
  std::string name;                    // of its file, without ".wav"
  std::function<synth::Sound()> make;  // ready to be kept
};

/// All sounds of the game: the ten of the cave, then the last ten seconds and the end of the time, O10 to O0.
const std::vector<Recipe>& Recipes();
