#pragma once

#include <cstdint>

/// What the player can set; held by the settings form, read by all.
struct Settings {
  std::uint8_t AnimovatAaB = 1;  // 1: amoeba and slime are animated
  std::uint8_t Rychlost = 8;     // speed of play, 1 (fastest) to 10
  std::uint8_t RychlostZ = 1;    // speed of a replay, the same scale
  std::uint8_t DatPauzu = 1;     // 1: pause after 30 seconds without movement
  std::uint8_t Zvuk = 1;         // 1: sound on
  std::uint8_t Joystick = 0;     // 1: the joystick steers
};
