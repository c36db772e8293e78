#pragma once

// For the sources of this folder alone.

#include <array>
#include <cstddef>
#include <span>

#include "platform/samples.h"

namespace platform {

/// What sounds: one wave at a time. The rest of a wave that is cut fades within some milliseconds, for a sudden end
/// would click.
class Voice {
 public:
  /// Cuts what sounds and starts a wave, which has to stay where it is.
  void Start(const Samples& wave);
  /// Cuts what sounds.
  void Cut();
  /// A wave has not come to its end.
  bool sounding() const { return wave_ != nullptr; }
  /// Neither a wave nor the rest of one is left.
  bool silent() const { return !sounding() && rest_place_ == rest_.size(); }
  /// The next samples, both channels in turn.
  void Render(std::span<float> out);

 private:
  static constexpr std::size_t kFade = 256;  // frames, 6 ms

  float Next();

  const Samples* wave_ = nullptr;
  std::size_t place_ = 0;
  std::array<float, kFade * kChannels> rest_{};
  std::size_t rest_place_ = rest_.size();
};

}  // namespace platform
