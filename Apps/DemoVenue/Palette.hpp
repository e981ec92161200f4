// The colors of the demo venue.
#pragma once

#include <string_view>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

/// Red, green and blue from 0 to 1.
struct Colour {
  double red;
  double green;
  double blue;
};

/// A color from 0xRRGGBB.
constexpr Colour colour(unsigned hex) {
  return {((hex >> 16U) & 0xFFU) / 255.0, ((hex >> 8U) & 0xFFU) / 255.0, (hex & 0xFFU) / 255.0};
}

Colour mixed(Colour first, Colour second, double share);

namespace palette {
inline constexpr Colour paving = colour(0xD9D6CE);
inline constexpr Colour plate = colour(0xE4E1DA);
inline constexpr Colour lawn = colour(0x9DBB86);
inline constexpr Colour leaves = colour(0x6E9A62);
inline constexpr Colour soil = colour(0xB79F84);
inline constexpr Colour brass = colour(0xC79A3E);
inline constexpr Colour night = colour(0x1D2B4A);
inline constexpr Colour atrium = colour(0x93A9B6);
inline constexpr Colour skylight = colour(0xB9D3DE);
inline constexpr Colour railing = colour(0xF4F3EF);
inline constexpr Colour shaft = colour(0x5F7386);
inline constexpr Colour stone = colour(0xC3C0BA);
inline constexpr Colour liftDoors = colour(0xE8C468);
inline constexpr Colour glass = colour(0xDCE9EE);
inline constexpr Colour opening = colour(0x4A525C);
}  // namespace palette

/// The color of a category, or of the nearest ancestor with a color.
Colour categoryColour(const Plan& plan, std::string_view category);

/// The color of a place: the color of its category, varied slightly by place.
Colour placeColour(const Plan& plan, const Place& place);

}  // namespace orivanta::demo
