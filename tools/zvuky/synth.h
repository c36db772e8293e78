#pragma once

#include <cstdint>
#include <vector>

/// Building blocks of sounds. Times are seconds, pitches hertz, levels from -1 to 1. Everything is computed in one
/// fixed order from fixed seeds, so that the same recipe always makes the same samples.
namespace synth {

inline constexpr int kRate = 44100;  // samples a second

using Sound = std::vector<double>;

struct Point {
  double time;
  double value;
};

/// A value that changes over time: straight lines between points, the first and the last value held outside them.
class Curve {
 public:
  Curve(double value) : points_{{0, value}} {}  // a plain number is a flat curve
  Curve(std::initializer_list<Point> points) : points_(points) {}
  double At(double time) const;

 private:
  std::vector<Point> points_;
};

/// Silence of a length.
Sound Silence(double seconds);

/// A tone of the given harmonics (amplitudes of the first, second, ... one), those above hearing left out.
Sound Tone(double seconds, const Curve& pitch, const std::vector<double>& harmonics = {1});

/// White noise.
Sound Noise(double seconds, std::uint32_t seed);

/// Single clicks of random height at random times, so many a second: grit, crumbs, splinters.
Sound Grains(double seconds, double perSecond, std::uint32_t seed);

/// One resonance of a struck body.
struct Mode {
  double ratio;  // of its frequency to the body's pitch
  double level;
  double half;  // time in which it loses half of its level
};

/// A struck body: its resonances, each dying away by itself.
Sound Struck(double seconds, double pitch, const std::vector<Mode>& modes);

enum class Pass { kLow, kBand, kHigh };

/// Two-pole filter. quality: 0.5 soft, 0.7 flat, above it rings at the frequency, which may move. The band has level 1
/// at its middle.
Sound Filtered(const Sound& sound, Pass pass, const Curve& frequency, double quality = 0.7);

/// The sound times a curve.
Sound Shaped(Sound sound, const Curve& level);

/// Rises within attack and then loses half of its level in each half.
Sound Plucked(Sound sound, double attack, double half);

/// Soft overdrive: adds warm harmonics and rounds peaks. drive from 0 (nothing) up.
Sound Warmed(Sound sound, double drive);

/// The largest absolute sample.
double Peak(const Sound& sound);

/// Adds a part at a time, scaled so that its peak is at the level; what reaches over the end is cut off.
void Add(Sound& sound, double time, double level, const Sound& part);

}  // namespace synth
