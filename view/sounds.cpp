#include "view/sounds.h"

#include <array>
#include <cstddef>

namespace {

constexpr std::array<const char*, 10> kNames = {
    "Hlina",        // 0: earth is dug
    "DrahokamBum",  // 1: a gem lands
    "DrahokamHam",  // 2: a gem is taken
    "KamenBum",     // 3: a rock or anything else lands
    "KamenSun",     // 4: a rock is pushed
    "Exploze",      // 5
    "BednaSun",     // 6: a crate is pushed
    "ZorbikPrep",   // 7: another hero is chosen
    "CilOtvr",      // 8: the exit opens; no rule asks for it
    "KouzZed",      // 9: something falls through a magic wall
};

std::string WaveFile(const std::string& name) { return "Zvuk/" + name + ".wav"; }

}  // namespace

std::string SoundFile(int sound) {
  if (sound < 0 || sound >= static_cast<int>(kNames.size())) return {};
  return WaveFile(kNames[static_cast<std::size_t>(sound)]);
}

std::string CountdownFile(int seconds) { return WaveFile("O" + std::to_string(seconds)); }
