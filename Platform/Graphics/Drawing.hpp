// Vector drawings, rendered to images of any size.
// Public header.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

/// A path and how it is drawn.
struct DrawingPart {
  /// Commands, each a letter and numbers separated by blanks; a further group of numbers repeats
  /// the command. `M x y` begins a line, `L x y` continues it, `C x1 y1 x2 y2 x y` continues it
  /// with a Bézier curve, `Z` closes it, `O x y r` adds a circle, and `B left top right bottom r`
  /// adds a box whose corners have the radius r. The y axis points down.
  std::string_view path;
  Color color;               ///< of the fill or the stroke
  double strokeWidth = 0.0;  ///< with round ends and joins; 0 fills the path (even-odd rule)
};

/// Draws the parts in their order. The image shows a square around the origin with sides of
/// `units`; its sides measure `points` points, rounded up to whole pixels, with `scale` pixels per
/// point. Returns null if a path is not valid or if the image would exceed the limits of `Image`.
/// Any thread.
ORIVANTA_API std::shared_ptr<const Image> makeDrawingImage(std::span<const DrawingPart> parts,
                                                           double units, double points,
                                                           double scale);

}  // namespace orivanta::graphics
