#include "Apps/Import/Geometry/Shapes.hpp"

#include <memory>
#include <utility>

#include "Apps/Import/Geometry/Geos.hpp"
#include "Apps/Import/Geometry/TouchingGroups.hpp"

namespace orivanta::importer {

namespace {

using geos::collectionOf;
using geos::Destroy;
using geos::Geometry;
using geos::geometryOf;
using geos::handle;
using geos::lineOf;
using geos::shapeOf;
using geos::shapeOr;

std::vector<package::Box> boxesOf(const Shape& shape) {
  std::vector<package::Box> boxes(shape.size());
  for (std::size_t i = 0; i < shape.size(); ++i) boxes[i].add(shape[i].outer);
  return boxes;
}

using Operation = GEOSGeometry* (*)(GEOSContextHandle_t, const GEOSGeometry*, const GEOSGeometry*);
using RoundedOperation = GEOSGeometry* (*)(GEOSContextHandle_t, const GEOSGeometry*,
                                           const GEOSGeometry*, double);

constexpr double coarse =
    0.001;  // meters; rounded to this, an operation succeeds that failed before

// Some input that is valid only by a hair makes an operation fail; repaired and rounded it does
// not.
Shape combined(const Shape& first, const Shape& second, Operation operation,
               RoundedOperation rounded) {
  if (GEOSGeometry* result = operation(handle(), geometryOf(first).get(), geometryOf(second).get()))
    return shapeOf(Geometry(result));
  return shapeOr(rounded(handle(), geometryOf(repaired(first)).get(),
                         geometryOf(repaired(second)).get(), coarse),
                 first);
}

}  // namespace

Shape repaired(const Shape& shape) {
  const std::unique_ptr<GEOSMakeValidParams, Destroy> params(
      GEOSMakeValidParams_create_r(handle()));
  GEOSMakeValidParams_setMethod_r(handle(), params.get(), GEOS_MAKE_VALID_STRUCTURE);
  GEOSMakeValidParams_setKeepCollapsed_r(handle(), params.get(), 0);
  const Geometry drawn = geometryOf(shape);
  return shapeOr(GEOSMakeValidWithParams_r(handle(), drawn.get(), params.get()), {});
}

bool isValid(const Shape& shape) { return GEOSisValid_r(handle(), geometryOf(shape).get()) == 1; }

namespace {

// Polygons that may touch each other. A margin of zero unites them at once, a union step by step,
// which takes several times as long for few polygons and less for very many.
Shape unitedGroup(const Shape& shape) {
  std::vector<Geometry> parts;
  parts.reserve(shape.size());
  for (const Polygon& polygon : shape) parts.push_back(geometryOf(polygon));
  const Geometry all = collectionOf(GEOS_GEOMETRYCOLLECTION, std::move(parts));
  constexpr std::size_t few = 1'000;
  if (GEOSGeometry* result = shape.size() <= few ? GEOSBuffer_r(handle(), all.get(), 0.0, 1)
                                                 : GEOSUnaryUnion_r(handle(), all.get()))
    return shapeOf(Geometry(result));
  return shapeOr(GEOSUnaryUnionPrec_r(handle(), all.get(), coarse), shape);
}

}  // namespace

// GEOS examines all borders several times. Most polygons have only few neighbors.
Shape united(const Shape& shape) {
  Shape result;
  for (const std::vector<std::size_t>& group : touchingGroups(boxesOf(shape))) {
    Shape parts;
    parts.reserve(group.size());
    for (const std::size_t i : group)
      if (shape[i].outer.size() >= 3) parts.push_back(shape[i]);
    const bool isUnited = parts.size() == 1 && package::signedArea(parts.front().outer) > 0.0;
    if (!parts.empty()) result = joined(std::move(result), isUnited ? parts : unitedGroup(parts));
  }
  return result;
}

Shape without(const Shape& shape, const Shape& removed) {
  if (shape.empty() || removed.empty()) return shape;
  std::vector<package::Box> boxes = boxesOf(shape);
  for (const package::Box& box : boxesOf(removed)) boxes.push_back(box);
  Shape result;
  for (const std::vector<std::size_t>& group : touchingGroups(boxes)) {
    Shape kept;
    Shape taken;
    for (const std::size_t i : group)
      if (i < shape.size())
        kept.push_back(shape[i]);
      else
        taken.push_back(removed[i - shape.size()]);
    if (!kept.empty() && !taken.empty())
      kept = combined(kept, taken, GEOSDifference_r, GEOSDifferencePrec_r);
    result = joined(std::move(result), kept);
  }
  return result;
}

Shape common(const Shape& first, const Shape& second) {
  if (first.empty() || second.empty()) return {};
  return combined(first, second, GEOSIntersection_r, GEOSIntersectionPrec_r);
}

// Clipping is not robust, and the result then has too large a part of the rectangle, or too little.
Shape clipped(const Polygon& polygon, const package::Box& box) {
  const Shape frame{{package::rectangle(box.least.x, box.least.y, box.most.x, box.most.y), {}}};
  GEOSGeometry* result = GEOSClipByRect_r(handle(), geometryOf(polygon).get(), box.least.x,
                                          box.least.y, box.most.x, box.most.y);
  return result != nullptr ? shapeOf(Geometry(result)) : common({polygon}, frame);
}

Shape withMargin(const Shape& shape, double margin) {
  if (shape.empty()) return {};
  constexpr int segments = 2;
  constexpr double miterLimit = 4.0;
  GEOSGeometry* grown = GEOSBufferWithStyle_r(handle(), geometryOf(shape).get(), margin, segments,
                                              GEOSBUF_CAP_FLAT, GEOSBUF_JOIN_MITRE, miterLimit);
  if (grown != nullptr) return shapeOf(Geometry(grown));
  return shapeOr(GEOSBuffer_r(handle(), geometryOf(repaired(shape)).get(), margin, segments),
                 shape);
}

Shape strip(const std::vector<Point>& line, double distance) {
  if (line.size() < 2) return {};
  const Geometry drawn = lineOf(line);
  constexpr int segments = 2;
  constexpr double miterLimit = 2.0;
  return shapeOr(GEOSBufferWithStyle_r(handle(), drawn.get(), distance, segments, GEOSBUF_CAP_FLAT,
                                       GEOSBUF_JOIN_MITRE, miterLimit),
                 {});
}

Shape snapped(const Shape& shape, double grid) {
  if (shape.empty()) return {};
  const Geometry drawn = geometryOf(shape);
  if (GEOSGeometry* result = GEOSGeom_setPrecision_r(handle(), drawn.get(), grid, 0))
    return shapeOf(Geometry(result));
  return shapeOr(GEOSGeom_setPrecision_r(handle(), geometryOf(repaired(shape)).get(), grid, 0), {});
}

Shape joined(Shape first, const Shape& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace orivanta::importer
