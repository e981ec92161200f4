// The paths of drawings, read from text, and the sizes of their images.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace orivanta::graphics {

/// A step of a path, with the meaning that the same function has in Cairo and in a browser's
/// canvas.
struct DrawingStep {
  /// What the step does, and how many numbers it has. The values are passed to other languages.
  enum class Kind {
    moveTo = 0,   ///< begins a line at x, y
    lineTo = 1,   ///< x, y
    curveTo = 2,  ///< x1, y1, x2, y2, x, y of a Bézier curve
    arc = 3,      ///< center x, y, radius, first and last angle; clockwise, joined by a line
    begin = 4,    ///< begins a line that an arc starts
    close = 5     ///< joins the end of the line with its beginning
  };
  Kind kind = Kind::begin;          ///< what it does
  std::array<double, 6> numbers{};  ///< units, and angles in radians; the rest is unspecified
};

/// Reads a path in the syntax of `DrawingPart::path`. Returns nothing if it is not valid. Any
/// thread.
std::optional<std::vector<DrawingStep>> readDrawingPath(std::string_view path);

/// Returns the width and the height in pixels of the image that `makeDrawingImage` makes with these
/// arguments. Returns nothing if there can be no such image.
std::optional<std::uint32_t> drawingSide(double units, double points, double scale);

}  // namespace orivanta::graphics
