#include "view/colours.h"

#include <algorithm>
#include <array>
#include <cstdint>

inline namespace Colors {

platform::Colour TintColour(int tint) {
  static constexpr std::array<platform::Colour, 14> kColours = {{{95, 0, 0},
                                                                 {95, 0, 95},
                                                                 {0, 63, 95},
                                                                 {127, 63, 31},
                                                                 {63, 63, 63},
                                                                 {0, 0, 127},
                                                                 {0, 63, 31},
                                                                 {0, 95, 0},
                                                                 {223, 0, 0},
                                                                 {95, 63, 31},
                                                                 {63, 63, 255},
                                                                 {191, 127, 0},
                                                                 {0, 127, 0},
                                                                 {127, 63, 127}}};
  const bool known = tint >= 0 && tint < static_cast<int>(kColours.size());
  return known ? kColours[static_cast<std::size_t>(tint)] : platform::Colour{};
}

platform::Colour ScaledColour(platform::Colour colour, double factor) {
  const auto scaled = [factor](std::uint8_t channel) {
    return static_cast<std::uint8_t>(std::min(channel * factor, 255.0));
  };
  return {scaled(colour.red), scaled(colour.green), scaled(colour.blue)};
}

TintShades ShadesOf(int tint) {
  const platform::Colour base = TintColour(tint);
  return {base, ScaledColour(base, 1.25), ScaledColour(base, 0.75), ScaledColour(base, 2)};
}

platform::Colour ScreenColour(std::uint32_t bbggrr) {
  return {static_cast<std::uint8_t>(bbggrr & 0xFF), static_cast<std::uint8_t>(bbggrr >> 8 & 0xFF),
          static_cast<std::uint8_t>(bbggrr >> 16 & 0xFF)};
}

}  // namespace Colors
