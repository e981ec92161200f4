#include "Apps/Import/Geometry/OpenShape.hpp"

#include <algorithm>

#include "Apps/Import/Geometry/Overlap.hpp"

namespace orivanta::importer {

namespace {

constexpr double mostly = 0.5;

}  // namespace

bool isAround(const Area& larger, const Area& smaller) {
  const double inner = areaOf(smaller.shape);
  const double outer = areaOf(larger.shape);
  // Rooms of one size are one room drawn twice, and both are open.
  constexpr double sameSize = 0.95;
  if (smaller.kind == larger.kind && inner > sameSize * outer) return false;
  return inner < outer && overlapExceeds(larger.shape, smaller.shape, mostly * inner);
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
