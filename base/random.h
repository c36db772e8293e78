#pragma once

#include <cstdint>

/// A small source of uniform numbers (SplitMix64, Steele, Lea and Flood 2014). A plain value: a copy goes on with the
/// same numbers. Not for secrets.
class Random {
 public:
  explicit Random(std::uint64_t seed = 1) : state_(seed) {}

  /// A real number from 0 up to but not including 1.
  double Next() { return static_cast<double>(Bits() >> 11) * 0x1.0p-53; }

  /// 64 random bits.
  std::uint64_t Bits() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }

 private:
  std::uint64_t state_;
};

/// The program's general random number, from 0 up to but not including 1, seeded from the clock at the first call.
/// Nothing that a recording has to reproduce may use it.
double Rnd();
