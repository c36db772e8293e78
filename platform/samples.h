#pragma once

// For the sources of this folder alone.

#include <cstddef>
#include <string>
#include <vector>

namespace platform {

inline constexpr int kSampleRate = 44100;
inline constexpr int kChannels = 2;

/// A sound as it is played: levels from -1 to 1, left and right in turn.
using Samples = std::vector<float>;

/// The sound in a wave file, found regardless of case; empty when the file is missing, no wave file, or larger or
/// longer than a sound of a game can be. Throws Fault when the file is there and cannot be read.
Samples LoadWave(const std::string& path);

}  // namespace platform
