#include "Apps/Import/Geometry/InnerPoint.hpp"

#include <algorithm>
#include <cmath>
#include <queue>

namespace orivanta::importer {

namespace {

// A square that may contain a better point.
struct Square {
  Point middle;
  double half = 0.0;
  double distance = 0.0;  // of the middle to the border; negative outside
  double bound() const { return distance + half * std::sqrt(2.0); }
  bool operator<(const Square& other) const { return bound() < other.bound(); }
};

double insideDistance(const Polygon& polygon, Point point) {
  double distance = package::distanceToBorder(polygon.outer, point);
  for (const Outline& hole : polygon.holes)
    distance = std::min(distance, package::distanceToBorder(hole, point));
  return contains({polygon}, point) ? distance : -distance;
}

Point centroid(const Outline& outline) {
  Point sum;
  double weight = 0.0;
  const Point base = outline.front();
  for (std::size_t i = 1; i + 1 < outline.size(); ++i) {
    const double twice = package::cross(outline[i] - base, outline[i + 1] - base);
    sum = sum + (outline[i] - base + outline[i + 1] - base) * (twice / 3.0);
    weight += twice;
  }
  return weight == 0.0 ? base : base + sum * (1.0 / weight);
}

}  // namespace

// Divides squares, the most promising first, until none can be much better than the best point.
Point innerPoint(const Shape& shape) {
  const Polygon& polygon =
      *std::max_element(shape.begin(), shape.end(),
                        [](const Polygon& a, const Polygon& b) { return areaOf(a) < areaOf(b); });
  Point low = polygon.outer.front();
  Point high = low;
  for (const Point point : polygon.outer) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y)};
  }
  const auto squareAt = [&](Point middle, double half) {
    return Square{middle, half, insideDistance(polygon, middle)};
  };
  const double side = std::max(std::min(high.x - low.x, high.y - low.y), 1e-3);
  const double precision = std::max(0.02, side * 0.02);
  // Middles of simple rooms win against points that are hardly better.
  Square best = squareAt(centroid(polygon.outer), 0.0);
  best.distance += precision;
  std::priority_queue<Square> open;
  const double longSide = std::max(high.x - low.x, high.y - low.y);
  const double step = std::max(side, longSide / 64.0);
  for (double x = low.x; x < high.x; x += step)
    for (double y = low.y; y < high.y; y += step)
      open.push(squareAt({x + step / 2.0, y + step / 2.0}, step / 2.0));
  constexpr std::size_t mostSquares = 1000;
  for (std::size_t tried = 0; !open.empty() && tried < mostSquares; ++tried) {
    const Square square = open.top();
    open.pop();
    if (square.distance > best.distance) best = square;
    if (square.bound() - best.distance <= precision) break;
    const double half = square.half / 2.0;
    for (const double x : {-half, half})
      for (const double y : {-half, half}) open.push(squareAt(square.middle + Point{x, y}, half));
  }
  return best.middle;
}

}  // namespace orivanta::importer
