#include "Apps/Import/Geometry/OpenShape.hpp"

#include <algorithm>

namespace orivanta::importer {

namespace {

constexpr double mostly = 0.5;

struct Box {
  Point low{1e300, 1e300};
  Point high{-1e300, -1e300};
};

Box boxOf(const Shape& shape) {
  Box box;
  for (const Polygon& polygon : shape)
    for (const Point point : polygon.outer) {
      box.low = {std::min(box.low.x, point.x), std::min(box.low.y, point.y)};
      box.high = {std::max(box.high.x, point.x), std::max(box.high.y, point.y)};
    }
  return box;
}

// The common area of the boxes: no less than that of the shapes.
double overlapOfBoxes(const Shape& first, const Shape& second) {
  const Box a = boxOf(first);
  const Box b = boxOf(second);
  return std::max(0.0, std::min(a.high.x, b.high.x) - std::max(a.low.x, b.low.x)) *
         std::max(0.0, std::min(a.high.y, b.high.y) - std::max(a.low.y, b.low.y));
}

}  // namespace

bool isAround(const Area& larger, const Area& smaller) {
  const double inner = areaOf(smaller.shape);
  const double outer = areaOf(larger.shape);
  // Rooms of one size are one room drawn twice, and both are open.
  constexpr double sameSize = 0.95;
  if (smaller.kind == larger.kind && inner > sameSize * outer) return false;
  return inner < outer && overlapOfBoxes(larger.shape, smaller.shape) > mostly * inner &&
         areaOf(common(larger.shape, smaller.shape)) > mostly * inner;
}

Shape openShape(const Area& room, const AreaIndex& contents) {
  Shape inner;
  for (const Area* other : contents.near(room.shape, 0.0))
    if (other != &room && isAround(room, *other)) inner = joined(std::move(inner), other->shape);
  if (inner.empty()) return room.shape;
  Shape shape = without(room.shape, united(inner));
  constexpr double sliver = 0.1;
  std::erase_if(shape, [](const Polygon& polygon) { return areaOf(polygon) < sliver; });
  return shape.empty() ? room.shape : shape;
}

}  // namespace orivanta::importer
