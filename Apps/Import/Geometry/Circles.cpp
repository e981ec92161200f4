#include <algorithm>
#include <limits>

#include "Apps/Import/Geometry/Geos.hpp"

namespace orivanta::importer {

namespace {

using geos::Geometry;
using geos::geometryOf;
using geos::handle;
using geos::lineOf;
using geos::owned;
using geos::shapeOf;

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
  const Geometry line = lineOf(points);
  GEOSGeometry* rectangle = GEOSMinimumRotatedRectangle_r(handle(), line.get());
  if (rectangle == nullptr) return {};
  const Shape shape = shapeOf(Geometry(rectangle));
  return shape.empty() ? Outline() : shape.front().outer;
}

}  // namespace orivanta::importer
