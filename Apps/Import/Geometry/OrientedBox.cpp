#include "Apps/Import/Geometry/OrientedBox.hpp"

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

OrientedBox orientedBox(const Outline& outline) {
  OrientedBox box;
  box.center = outline.front();
  const Outline corners = narrowestRectangle(outline);
  if (corners.size() != 4) return box;
  Point longSide = corners[1] - corners[0];
  Point shortSide = corners[2] - corners[1];
  if (package::length(longSide) < package::length(shortSide)) std::swap(longSide, shortSide);
  box.center = (corners[0] + corners[2]) * 0.5;
  box.length = package::length(longSide);
  box.width = package::length(shortSide);
  // The direction does not depend on the order of the corners.
  const bool backward = longSide.x < 0.0 || (longSide.x == 0.0 && longSide.y < 0.0);
  box.along = longSide * ((backward ? -1.0 : 1.0) / box.length);
  return box;
}

}  // namespace orivanta::importer
