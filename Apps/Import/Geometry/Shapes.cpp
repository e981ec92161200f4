#include "Apps/Import/Geometry/Shapes.hpp"

#include <geos_c.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>

#include "Apps/Import/Geometry/TouchingGroups.hpp"

namespace orivanta::importer {

namespace {

// The handle of a thread: GEOS is reentrant with one handle per thread.
GEOSContextHandle_t handle() {
  struct Handle {
    GEOSContextHandle_t value = GEOS_init_r();
    Handle() = default;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { GEOS_finish_r(value); }
  };
  thread_local const Handle mine;
  return mine.value;
}

struct Destroy {
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(handle(), geometry); }
  void operator()(GEOSMakeValidParams* params) const {
    GEOSMakeValidParams_destroy_r(handle(), params);
  }
};

using Geometry = std::unique_ptr<GEOSGeometry, Destroy>;

Geometry owned(GEOSGeometry* geometry) {
  if (geometry == nullptr) throw std::runtime_error("a geometric operation failed");
  return Geometry(geometry);
}

GEOSCoordSequence* sequenceOf(const std::vector<Point>& points, bool closed) {
  const std::size_t count = points.size() + (closed ? 1 : 0);
  GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(handle(), static_cast<unsigned>(count), 2);
  if (sequence == nullptr) throw std::bad_alloc();
  for (std::size_t i = 0; i < count; ++i) {
    const Point point = points[i % points.size()];
    GEOSCoordSeq_setXY_r(handle(), sequence, static_cast<unsigned>(i), point.x, point.y);
  }
  return sequence;
}

Geometry ringOf(const Outline& outline) {
  return owned(GEOSGeom_createLinearRing_r(handle(), sequenceOf(outline, true)));
}

Geometry collectionOf(int type, std::vector<Geometry> parts) {
  std::vector<GEOSGeometry*> released;
  released.reserve(parts.size());
  for (Geometry& part : parts) released.push_back(part.release());
  return owned(GEOSGeom_createCollection_r(handle(), type, released.data(),
                                           static_cast<unsigned>(released.size())));
}

Geometry geometryOf(const Polygon& polygon) {
  Geometry outer = ringOf(polygon.outer);
  std::vector<GEOSGeometry*> holes;
  for (const Outline& hole : polygon.holes)
    if (hole.size() >= 3) holes.push_back(ringOf(hole).release());
  return owned(GEOSGeom_createPolygon_r(handle(), outer.release(), holes.data(),
                                        static_cast<unsigned>(holes.size())));
}

Geometry geometryOf(const Shape& shape) {
  std::vector<Geometry> parts;
  for (const Polygon& polygon : shape)
    if (polygon.outer.size() >= 3) parts.push_back(geometryOf(polygon));
  return collectionOf(GEOS_MULTIPOLYGON, std::move(parts));
}

Outline outlineOf(const GEOSGeometry* ring, bool counterclockwise) {
  const GEOSCoordSequence* sequence = GEOSGeom_getCoordSeq_r(handle(), ring);
  unsigned count = 0;
  GEOSCoordSeq_getSize_r(handle(), sequence, &count);
  Outline outline;
  outline.reserve(count);
  for (unsigned i = 0; i + 1 < count; ++i) {
    Point point;
    GEOSCoordSeq_getXY_r(handle(), sequence, i, &point.x, &point.y);
    if (outline.empty() || package::distance(outline.back(), point) > 0.0) outline.push_back(point);
  }
  if ((package::signedArea(outline) > 0.0) != counterclockwise)
    std::reverse(outline.begin(), outline.end());
  return outline;
}

void appendPolygons(const GEOSGeometry* geometry, Shape& shape) {
  const int type = GEOSGeomTypeId_r(handle(), geometry);
  if (type == GEOS_POLYGON) {
    if (GEOSisEmpty_r(handle(), geometry) != 0) return;
    Polygon polygon{outlineOf(GEOSGetExteriorRing_r(handle(), geometry), true), {}};
    const int holes = GEOSGetNumInteriorRings_r(handle(), geometry);
    for (int i = 0; i < holes; ++i)
      polygon.holes.push_back(outlineOf(GEOSGetInteriorRingN_r(handle(), geometry, i), false));
    if (polygon.outer.size() >= 3) shape.push_back(std::move(polygon));
    return;
  }
  if (type < GEOS_MULTIPOINT) return;
  const int parts = GEOSGetNumGeometries_r(handle(), geometry);
  for (int i = 0; i < parts; ++i) appendPolygons(GEOSGetGeometryN_r(handle(), geometry, i), shape);
}

Shape shapeOf(const Geometry& geometry) {
  Shape shape;
  appendPolygons(geometry.get(), shape);
  return shape;
}

std::vector<package::Box> boxesOf(const Shape& shape) {
  std::vector<package::Box> boxes(shape.size());
  for (std::size_t i = 0; i < shape.size(); ++i) boxes[i].add(shape[i].outer);
  return boxes;
}

double distanceToBorders(const Polygon& polygon, Point point) {
  double nearest = package::distanceToBorder(polygon.outer, point);
  for (const Outline& hole : polygon.holes)
    nearest = std::min(nearest, package::distanceToBorder(hole, point));
  return nearest;
}

// The result of an operation, or what it was applied to if it failed.
Shape shapeOr(GEOSGeometry* result, const Shape& otherwise) {
  return result == nullptr ? otherwise : shapeOf(Geometry(result));
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
  const Geometry drawn = owned(GEOSGeom_createLineString_r(handle(), sequenceOf(line, false)));
  constexpr int segments = 2;
  constexpr double miterLimit = 2.0;
  return shapeOr(GEOSBufferWithStyle_r(handle(), drawn.get(), distance, segments, GEOSBUF_CAP_FLAT,
                                       GEOSBUF_JOIN_MITRE, miterLimit),
                 {});
}

namespace {

std::optional<Point> centroidOf(const GEOSGeometry* polygon) {
  const Geometry middle = owned(GEOSGetCentroid_r(handle(), polygon));
  Point centroid;
  if (GEOSGeomGetX_r(handle(), middle.get(), &centroid.x) != 1 ||
      GEOSGeomGetY_r(handle(), middle.get(), &centroid.y) != 1)
    return std::nullopt;
  return centroid;
}

// No circle in the outline is larger: half the least extent across one of its sides.
double mostRadius(const Outline& outline) {
  double most = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point side = outline[(i + 1) % outline.size()] - outline[i];
    double left = 0.0;
    double right = 0.0;
    for (const Point point : outline) {
      const double away = package::cross(side, point - outline[i]);
      left = std::max(left, away);
      right = std::min(right, away);
    }
    if (const double length = package::length(side); length > 0.0)
      most = std::min(most, (left - right) / length / 2.0);
  }
  return most;
}

}  // namespace

std::optional<Point> centerOfLargestCircle(const Polygon& polygon, double precision) {
  const Geometry drawn = geometryOf(polygon);
  const std::optional<Point> centroid = centroidOf(drawn.get());
  const double clearance =
      centroid && contains({polygon}, *centroid) ? distanceToBorders(polygon, *centroid) : -1.0;
  constexpr std::size_t fewCorners = 32;
  if (clearance > 0.0 && polygon.outer.size() <= fewCorners &&
      clearance >= mostRadius(polygon.outer) - precision)
    return centroid;  // of most rooms; the general search takes much longer
  GEOSGeometry* radius = GEOSMaximumInscribedCircle_r(handle(), drawn.get(), precision);
  if (radius == nullptr) return std::nullopt;
  const Geometry line(radius);
  Point ends[2];
  const GEOSCoordSequence* sequence = GEOSGeom_getCoordSeq_r(handle(), line.get());
  for (unsigned i = 0; i < 2; ++i)
    if (sequence == nullptr ||
        GEOSCoordSeq_getXY_r(handle(), sequence, i, &ends[i].x, &ends[i].y) == 0)
      return std::nullopt;
  const bool isCentroid =
      clearance >= 0.0 && clearance >= package::distance(ends[0], ends[1]) - precision;
  return isCentroid ? *centroid : ends[0];
}

Outline narrowestRectangle(const std::vector<Point>& points) {
  if (points.size() < 2) return {};
  const Geometry line = owned(GEOSGeom_createLineString_r(handle(), sequenceOf(points, false)));
  GEOSGeometry* rectangle = GEOSMinimumRotatedRectangle_r(handle(), line.get());
  if (rectangle == nullptr) return {};
  const Shape shape = shapeOf(Geometry(rectangle));
  return shape.empty() ? Outline() : shape.front().outer;
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

package::Box boxOf(const Shape& shape) {
  package::Box box;
  for (const Polygon& polygon : shape) box.add(polygon.outer);
  return box;
}

double areaOf(const Polygon& polygon) {
  double area = std::abs(package::signedArea(polygon.outer));
  for (const Outline& hole : polygon.holes) area -= std::abs(package::signedArea(hole));
  return area;
}

double areaOf(const Shape& shape) {
  double area = 0.0;
  for (const Polygon& polygon : shape) area += areaOf(polygon);
  return area;
}

bool contains(const Shape& shape, Point point) {
  return std::any_of(shape.begin(), shape.end(), [&](const Polygon& polygon) {
    return package::contains(polygon.outer, point) &&
           std::none_of(polygon.holes.begin(), polygon.holes.end(),
                        [&](const Outline& hole) { return package::contains(hole, point); });
  });
}

double distanceTo(const Shape& shape, Point point) {
  if (contains(shape, point)) return 0.0;
  double nearest = std::numeric_limits<double>::infinity();
  for (const Polygon& polygon : shape)
    nearest = std::min(nearest, distanceToBorders(polygon, point));
  return nearest;
}

}  // namespace orivanta::importer
