#pragma once

#include <cstdint>

#include "platform/colour.h"

/// The colours of a tint, and how shades are made of them.
inline namespace Colors {

/// The base colour of a tint, 0..14. The last tint has no colour of its own and is black.
platform::Colour TintColour(int tint);

/// Each channel times the factor, at most 255.
platform::Colour ScaledColour(platform::Colour colour, double factor);

/// The four shades that pictures and panels of a tint are painted in.
struct TintShades {
  platform::Colour base;
  platform::Colour light;   // base x 1.25
  platform::Colour dark;    // base x 0.75
  platform::Colour bright;  // base x 2
};
TintShades ShadesOf(int tint);

/// The colour of a number 0xBBGGRR, as the rules give it.
platform::Colour ScreenColour(std::uint32_t bbggrr);

}  // namespace Colors
