#include "Apps/Import/Read/IndoorGml/GmlFootprint.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orivanta::importer {

namespace {

Outline fromAbove(const std::vector<GmlPosition>& ring) {
  Outline outline;
  outline.reserve(ring.size());
  for (const GmlPosition& position : ring) outline.push_back({position.x, position.y});
  return outline;
}

Polygon fromAbove(const GmlFace& face) {
  Polygon polygon{fromAbove(face.outer), {}};
  for (const auto& hole : face.holes) polygon.holes.push_back(fromAbove(hole));
  return polygon;
}

GmlExtent extentOf(const GmlFace& face) {
  GmlExtent extent{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
  for (const GmlPosition& position : face.outer) {
    extent.lowest = std::min(extent.lowest, position.z);
    extent.highest = std::max(extent.highest, position.z);
  }
  return extent;
}

// Whether the face is seen as a line from above.
bool isUpright(const Polygon& polygon) {
  double border = 0.0;
  for (std::size_t each = 1; each < polygon.outer.size(); ++each)
    border += package::distance(polygon.outer[each - 1], polygon.outer[each]);
  return std::abs(package::signedArea(polygon.outer)) <= 1e-4 * border * border;
}

Outline convexHull(std::vector<Point> points) {
  std::sort(points.begin(), points.end(), [](Point first, Point second) {
    return first.x != second.x ? first.x < second.x : first.y < second.y;
  });
  Outline hull;
  const auto add = [&](Point point, std::size_t fixed) {
    while (hull.size() >= fixed + 2 &&
           package::cross(hull.back() - hull[hull.size() - 2], point - hull.back()) <= 0.0)
      hull.pop_back();
    hull.push_back(point);
  };
  for (const Point point : points) add(point, 0);
  const std::size_t lower = hull.empty() ? 0 : hull.size() - 1;
  for (auto point = points.rbegin(); point != points.rend(); ++point) add(*point, lower);
  return hull;
}

std::vector<Point> pointsOf(const std::vector<GmlFace>& faces) {
  std::vector<Point> points;
  for (const GmlFace& face : faces)
    for (const GmlPosition& position : face.outer) points.push_back({position.x, position.y});
  return points;
}

}  // namespace

GmlExtent extentOf(const std::vector<GmlFace>& faces) {
  if (faces.empty()) return {};
  GmlExtent extent = extentOf(faces.front());
  for (const GmlFace& face : faces) {
    const GmlExtent own = extentOf(face);
    extent = {std::min(extent.lowest, own.lowest), std::max(extent.highest, own.highest)};
  }
  return extent;
}

std::vector<Polygon> footprintOf(const std::vector<GmlFace>& faces) {
  const GmlExtent whole = extentOf(faces);
  const double height = whole.highest - whole.lowest;
  // Floors may have steps of a few centimeters.
  const double flat = 0.01 * height;
  const double low = whole.lowest + 0.15 * height;
  std::vector<Polygon> lowest;
  std::vector<Polygon> all;
  for (const GmlFace& face : faces) {
    Polygon polygon = fromAbove(face);
    if (isUpright(polygon)) continue;
    const GmlExtent own = extentOf(face);
    if (own.highest - own.lowest <= flat && own.highest <= low) lowest.push_back(polygon);
    all.push_back(std::move(polygon));
  }
  if (!lowest.empty()) return lowest;
  if (!all.empty()) return all;
  Outline hull = convexHull(pointsOf(faces));
  if (hull.size() < 4) return {};
  return {{std::move(hull), {}}};
}

std::vector<Point> baseLineOf(const std::vector<GmlFace>& faces) {
  // The two ends are corners of the hull. Doors have few corners.
  const Outline hull = convexHull(pointsOf(faces));
  constexpr std::size_t mostCorners = 256;
  std::vector<Point> line;
  const std::size_t count = std::min(hull.size(), mostCorners);
  for (std::size_t first = 0; first < count; ++first)
    for (std::size_t second = first + 1; second < count; ++second)
      if (line.empty() ||
          package::distance(hull[first], hull[second]) > package::distance(line[0], line[1]))
        line = {hull[first], hull[second]};
  return line;
}

}  // namespace orivanta::importer
