#include "loudness.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace synth {

namespace {

constexpr double kWindow = 0.2;    // seconds
constexpr double kFadeIn = 0.001;  // too short to soften a blow, long enough not to click
constexpr double kFadeOut = 0.030;
constexpr double kOffsetBelow = 30;  // hertz: nothing of this is heard

/// A digital filter of two poles and two zeros.
struct Biquad {
  double b0, b1, b2, a1, a2;

  void Run(Sound& sound) const {
    double s1 = 0;
    double s2 = 0;
    for (double& sample : sound) {
      const double in = sample;
      sample = b0 * in + s1;
      s1 = b1 * in - a1 * sample + s2;
      s2 = b2 * in - a2 * sample;
    }
  }
};

// The two stages of the weighting of ITU-R BS.1770-4, annex 1. It gives coefficients for 48 kHz alone; these analogue
// values, put through the bilinear transform, yield the same ones there and serve at any rate.
Biquad HeadShelf() {
  const double k = std::tan(std::numbers::pi * 1681.974450955533 / kRate);
  const double q = 0.7071752369554196;
  const double high = std::pow(10, 3.999843853973347 / 20);
  const double middle = std::pow(high, 0.4996667741545416);
  const double a0 = 1 + k / q + k * k;
  return {(high + middle * k / q + k * k) / a0, 2 * (k * k - high) / a0, (high - middle * k / q + k * k) / a0,
          2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0};
}

Biquad LowCut() {
  const double k = std::tan(std::numbers::pi * 38.13547087602444 / kRate);
  const double q = 0.5003270373238773;
  const double a0 = 1 + k / q + k * k;
  return {1, -2, 1, 2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0};
}

/// From 0 to 1, level at both ends.
double Ramp(double part) { return 0.5 - 0.5 * std::cos(std::numbers::pi * part); }

void FadeEnds(Sound& sound) {
  const auto fade = [&sound](double seconds, auto at) {
    const std::size_t count = std::min(static_cast<std::size_t>(std::lround(seconds * kRate)), sound.size());
    for (std::size_t i = 0; i < count; ++i) at(i) *= Ramp(static_cast<double>(i) / static_cast<double>(count));
  };
  fade(kFadeIn, [&sound](std::size_t i) -> double& { return sound[i]; });
  fade(kFadeOut, [&sound](std::size_t i) -> double& { return sound[sound.size() - 1 - i]; });
}

/// Straight up to the knee, then bent so that it never passes the ceiling.
double Rounded(double sample) {
  constexpr double kKnee = 0.6 * kCeiling;
  const double size = std::abs(sample);
  if (size <= kKnee) return sample;
  const double room = kCeiling - kKnee;
  return std::copysign(kKnee + room * std::tanh((size - kKnee) / room), sample);
}

}  // namespace

double Decibels(double level) { return level > 0 ? 20 * std::log10(level) : kUnheard; }

double Loudness(const Sound& sound) {
  Sound weighted = sound;
  HeadShelf().Run(weighted);
  LowCut().Run(weighted);
  const auto window = static_cast<std::size_t>(kWindow * kRate);
  double sum = 0;
  double loudest = 0;
  for (std::size_t i = 0; i < weighted.size(); ++i) {
    sum += weighted[i] * weighted[i];
    if (i >= window) sum -= weighted[i - window] * weighted[i - window];
    loudest = std::max(loudest, sum);
  }
  if (loudest <= 0) return kUnheard;
  return -0.691 + 10 * std::log10(loudest / static_cast<double>(window));
}

Sound Mastered(Sound sound, double loudness) {
  sound = Filtered(sound, Pass::kHigh, kOffsetBelow);
  FadeEnds(sound);
  // Rounding off peaks takes some loudness away again: a few rounds bring it back.
  double gain = 1;
  Sound result = sound;
  for (int round = 0; round < 12; ++round) {
    gain *= std::pow(10, (loudness - Loudness(result)) / 20);
    std::transform(sound.begin(), sound.end(), result.begin(), [gain](double s) { return Rounded(gain * s); });
  }
  return result;
}

}  // namespace synth
