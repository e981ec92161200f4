// The colors of the demo venue.
#pragma once

#include <string_view>

#include "Apps/DemoVenue/Plan.hpp"
#include "Apps/Package/Color.hpp"

namespace orivanta::demo {

using package::color;
using package::Color;
using package::mixed;

namespace palette {
inline constexpr Color paving = color(0xD9D6CE);
inline constexpr Color plate = color(0xE4E1DA);
inline constexpr Color lawn = color(0x9DBB86);
inline constexpr Color leaves = color(0x6E9A62);
inline constexpr Color soil = color(0xB79F84);
inline constexpr Color brass = color(0xC79A3E);
inline constexpr Color night = color(0x1D2B4A);
inline constexpr Color atrium = color(0x93A9B6);
inline constexpr Color skylight = color(0xB9D3DE);
inline constexpr Color railing = color(0xF4F3EF);
inline constexpr Color shaft = color(0x5F7386);
inline constexpr Color stone = color(0xC3C0BA);
inline constexpr Color elevatorDoors = color(0xE8C468);
inline constexpr Color glass = color(0xDCE9EE);
inline constexpr Color opening = color(0x4A525C);
}  // namespace palette

/// The color of a category, or of the nearest ancestor with a color.
Color categoryColor(const Plan& plan, std::string_view category);

/// The color of a place: the color of its category, varied slightly by place.
Color placeColor(const Plan& plan, const Place& place);

}  // namespace orivanta::demo
