#pragma once

#include <cstdint>

namespace platform {

/// A colour of the screen, 0 to 255 a channel.
struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend constexpr bool operator==(const Colour&, const Colour&) = default;
};

/// The colour of a number 0xRRGGBB.
constexpr Colour Rgb(std::uint32_t rrggbb) {
  return {static_cast<std::uint8_t>(rrggbb >> 16 & 0xFF), static_cast<std::uint8_t>(rrggbb >> 8 & 0xFF),
          static_cast<std::uint8_t>(rrggbb & 0xFF)};
}

}  // namespace platform
