#pragma once

#include "synth.h"

namespace synth {

/// How loud a short sound is, in LUFS: the frequency weighting of ITU-R BS.1770, over the loudest fifth of a second,
/// which is about the time over which the ear adds up. A sound that is shorter counts as softer, as it is heard.
/// Silence gives kUnheard.
double Loudness(const Sound& sound);
inline constexpr double kUnheard = -200;

/// A level in decibels of full scale.
double Decibels(double level);

/// Makes a sound fit to be kept: no offset, silence at both ends, the given loudness (LUFS), and no peak above
/// kCeiling: what would pass it is rounded off softly.
Sound Mastered(Sound sound, double loudness);
inline constexpr double kCeiling = 0.88;  // 1.1 dB below full scale

}  // namespace synth
