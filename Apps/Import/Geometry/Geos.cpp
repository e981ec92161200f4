#include "Apps/Import/Geometry/Geos.hpp"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <utility>

namespace orivanta::importer::geos {

namespace {

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

}  // namespace

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

Geometry owned(GEOSGeometry* geometry) {
  if (geometry == nullptr) throw std::runtime_error("a geometric operation failed");
  return Geometry(geometry);
}

Geometry lineOf(const std::vector<Point>& points) {
  return owned(GEOSGeom_createLineString_r(handle(), sequenceOf(points, false)));
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

Shape shapeOf(const Geometry& geometry) {
  Shape shape;
  appendPolygons(geometry.get(), shape);
  return shape;
}

Shape shapeOr(GEOSGeometry* result, const Shape& otherwise) {
  return result == nullptr ? otherwise : shapeOf(Geometry(result));
}

}  // namespace orivanta::importer::geos
