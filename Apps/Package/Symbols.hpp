// Symbols for the categories, made of a few simple marks.
#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Shapes.hpp"

namespace orivanta::package {

enum class Tone {
  dark,  ///< the symbol
  pale   ///< the background
};

/// A shape with one tone. Coordinates are those of the symbol: x points right, y down, the origin
/// is the center, and a symbol extends about 0.55 from it.
struct Mark {
  std::function<double(Point)> distance;  ///< distance to the border, negative inside
  Point least;                            ///< corner of the bounding rectangle
  Point most;
  Tone tone = Tone::dark;
};

/// The marks of a category from back to front; empty for a category without a symbol.
std::span<const Mark> symbolOf(std::string_view category);

}  // namespace orivanta::package
