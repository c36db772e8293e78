#include "base/random.h"

#include <chrono>

double Rnd() {
  static Random random(static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()));
  return random.Next();
}
