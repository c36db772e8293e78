#include "platform/voice.h"

#include <algorithm>

namespace platform {

void Voice::Start(const Samples& wave) {
  Cut();
  if (wave.empty()) return;
  wave_ = &wave;
  place_ = 0;
}

// What would have sounded next, the fading rest of an earlier cut included, becomes the rest that fades.
void Voice::Cut() {
  if (silent()) return;
  std::array<float, kFade * kChannels> rest;
  Render(rest);
  for (std::size_t i = 0; i < rest.size(); ++i) {
    const std::size_t frame = i / kChannels;
    rest[i] *= 1 - static_cast<float>(frame + 1) / static_cast<float>(kFade);
  }
  rest_ = rest;
  rest_place_ = 0;
  wave_ = nullptr;
}

void Voice::Render(std::span<float> out) {
  for (float& sample : out) sample = std::clamp(Next(), -1.0F, 1.0F);
}

float Voice::Next() {
  float sample = 0;
  if (wave_ != nullptr) {
    sample = (*wave_)[place_++];
    if (place_ == wave_->size()) wave_ = nullptr;
  }
  if (rest_place_ < rest_.size()) sample += rest_[rest_place_++];
  return sample;
}

}  // namespace platform
