#include "synth.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>

namespace synth {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kHearing = 16000;

std::size_t Count(double seconds) { return static_cast<std::size_t>(std::lround(seconds * kRate)); }

double Time(std::size_t sample) { return static_cast<double>(sample) / kRate; }

/// Even random numbers; the engine's own output is the same everywhere, unlike the library's distributions.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}
  double ZeroToOne() { return engine_() / 4294967296.0; }
  double Level() { return 2 * ZeroToOne() - 1; }

 private:
  std::mt19937 engine_;
};

}  // namespace

double Curve::At(double time) const {
  if (time <= points_.front().time) return points_.front().value;
  for (std::size_t i = 1; i < points_.size(); ++i) {
    const Point& from = points_[i - 1];
    const Point& to = points_[i];
    if (time < to.time) return from.value + (to.value - from.value) * (time - from.time) / (to.time - from.time);
  }
  return points_.back().value;
}

Sound Silence(double seconds) { return Sound(Count(seconds), 0.0); }

Sound Tone(double seconds, const Curve& pitch, const std::vector<double>& harmonics) {
  Sound sound = Silence(seconds);
  double turns = 0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double hertz = pitch.At(Time(i));
    for (std::size_t k = 0; k < harmonics.size(); ++k) {
      const auto order = static_cast<double>(k + 1);
      if (order * hertz < kHearing) sound[i] += harmonics[k] * std::sin(kTurn * order * turns);
    }
    turns += hertz / kRate;
    turns -= std::floor(turns);
  }
  return sound;
}

Sound Noise(double seconds, std::uint32_t seed) {
  Dice dice(seed);
  Sound sound = Silence(seconds);
  for (double& sample : sound) sample = dice.Level();
  return sound;
}

Sound Grains(double seconds, double perSecond, std::uint32_t seed) {
  Dice dice(seed);
  Sound sound = Silence(seconds);
  for (double& sample : sound) {
    if (dice.ZeroToOne() < perSecond / kRate) sample = dice.Level();
  }
  return sound;
}

Sound Struck(double seconds, double pitch, const std::vector<Mode>& modes) {
  Sound sound = Silence(seconds);
  for (const Mode& mode : modes) {
    const double step = kTurn * pitch * mode.ratio / kRate;
    for (std::size_t i = 0; i < sound.size(); ++i) {
      sound[i] += mode.level * std::exp2(-Time(i) / mode.half) * std::sin(step * static_cast<double>(i));
    }
  }
  return sound;
}

// The state-variable filter with trapezoidal integrators (Zavalishin, "The Art of VA Filter Design", chapter 4): stable
// at every pace of the frequency.
Sound Filtered(const Sound& sound, Pass pass, const Curve& frequency, double quality) {
  Sound result;
  result.reserve(sound.size());
  const double damping = 1 / quality;
  double first = 0;
  double second = 0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double g = std::tan(std::numbers::pi * frequency.At(Time(i)) / kRate);
    const double high = (sound[i] - (damping + g) * first - second) / (1 + g * (damping + g));
    const double band = g * high + first;
    const double low = g * band + second;
    first = g * high + band;
    second = g * band + low;
    result.push_back(pass == Pass::kLow ? low : pass == Pass::kBand ? damping * band : high);
  }
  return result;
}

Sound Shaped(Sound sound, const Curve& level) {
  for (std::size_t i = 0; i < sound.size(); ++i) sound[i] *= level.At(Time(i));
  return sound;
}

Sound Plucked(Sound sound, double attack, double half) {
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double time = Time(i);
    sound[i] *= time < attack ? time / attack : std::exp2(-(time - attack) / half);
  }
  return sound;
}

Sound Warmed(Sound sound, double drive) {
  if (drive <= 0) return sound;
  for (double& sample : sound) sample = std::tanh(drive * sample) / std::tanh(drive);
  return sound;
}

double Peak(const Sound& sound) {
  double peak = 0;
  for (const double sample : sound) peak = std::max(peak, std::abs(sample));
  return peak;
}

void Add(Sound& sound, double time, double level, const Sound& part) {
  const double peak = Peak(part);
  if (peak <= 0) return;
  const std::size_t start = std::min(Count(time), sound.size());
  const std::size_t count = std::min(part.size(), sound.size() - start);
  for (std::size_t i = 0; i < count; ++i) sound[start + i] += level / peak * part[i];
}

}  // namespace synth
