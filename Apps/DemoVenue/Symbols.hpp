// What stands for the kinds of places in pictures, drawn from a few simple marks.
#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Geometry.hpp"

namespace orivanta::demo {

enum class Tone {
  dark,  ///< of the symbol
  pale   ///< of what lies behind it
};

/// A shape of one tone. Coordinates here are the symbol's own: x to the right, y downwards, the
/// middle at the origin; a symbol reaches about 0.55 from there.
struct Mark {
  std::function<double(Point)> distance;  ///< from the border, negative inside
  Point least;                            ///< of the rectangle around it
  Point most;
  Tone tone = Tone::dark;
};

/// The marks of a category, those that lie behind first; none for one without a symbol.
std::span<const Mark> symbolOf(std::string_view category);

}  // namespace orivanta::demo
