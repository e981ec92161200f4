#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Import/Geometry/OrientedBox.hpp"
#include "Apps/Import/Model/AreaModels.hpp"

namespace orivanta::importer {

namespace {

using package::cross;
using package::dot;
using package::Model;

constexpr double rise = 1.4;  // of a flight that leads up
constexpr double fall = 0.5;  // of one that leads down
constexpr double treadDepth = 0.4;
constexpr double shaftHeight = 1.6;

// Cuts off the part of an outline to the right of the line through a point (Sutherland and Hodgman,
// 1974).
Outline leftOf(const Outline& outline, Point through, Point direction) {
  Outline kept;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point a = outline[i];
    const Point b = outline[(i + 1) % outline.size()];
    const double sideA = cross(direction, a - through);
    const double sideB = cross(direction, b - through);
    if (sideA >= 0.0) kept.push_back(a);
    if ((sideA > 0.0 && sideB < 0.0) || (sideA < 0.0 && sideB > 0.0))
      kept.push_back(a + (b - a) * (sideA / (sideA - sideB)));
  }
  return kept;
}

// The way of a flight from the side of a point: a unit vector, and how far it reaches along it.
struct Flight {
  Point along;
  double start = 0.0;
  double end = 0.0;
};

Flight flightFrom(const Outline& outline, Point from) {
  const OrientedBox box = orientedBox(outline);
  const Point away = box.center - from;
  const double lengthwise = dot(away, box.along) / std::max(box.length, 1e-9);
  const double sideways = dot(away, box.across()) / std::max(box.width, 1e-9);
  Flight flight;
  flight.along = std::abs(lengthwise) >= std::abs(sideways)
                     ? box.along * (lengthwise < 0.0 ? -1.0 : 1.0)
                     : box.across() * (sideways < 0.0 ? -1.0 : 1.0);
  flight.start = 1e300;
  flight.end = -1e300;
  for (const Point point : outline) {
    flight.start = std::min(flight.start, dot(point, flight.along));
    flight.end = std::max(flight.end, dot(point, flight.along));
  }
  return flight;
}

}  // namespace

void addSteps(Model& model, const Polygon& polygon, Point from, bool down,
              const SurfaceHeights& heights) {
  const Flight flight = flightFrom(polygon.outer, from);
  const Point across = {-flight.along.y, flight.along.x};
  const double length = flight.end - flight.start;
  const int count = std::clamp(static_cast<int>(std::lround(length / treadDepth)), 4, 16);
  for (int i = 0; i < count; ++i) {
    const double begin = flight.start + length * i / count;
    const double end = flight.start + length * (i + 1) / count;
    const Outline step = leftOf(leftOf(polygon.outer, flight.along * begin, across * -1.0),
                                flight.along * end, across);
    if (step.size() < 3) continue;
    const double share = down ? static_cast<double>(count - i) : static_cast<double>(i + 1);
    model.prism(step, heights.slab, heights.above((down ? fall : rise) * share / count));
  }
}

void addEscalator(Model& model, const Polygon& polygon, Point from, bool down,
                  const SurfaceHeights& heights) {
  const Flight flight = flightFrom(polygon.outer, from);
  const double length = std::max(flight.end - flight.start, 1e-9);
  const auto height = [&](Point point, double extra) {
    const double share = (dot(point, flight.along) - flight.start) / length;
    return heights.above(down ? fall * (1.0 - share) + extra : rise * share + extra);
  };
  model.slope(polygon.outer, heights.slab, [&](Point point) { return height(point, 0.0); });
  const Outline inner = package::grown(polygon.outer, -0.18);
  for (std::size_t i = 0; i < polygon.outer.size(); ++i) {
    const std::size_t next = (i + 1) % polygon.outer.size();
    const Point side = polygon.outer[next] - polygon.outer[i];
    if (std::abs(dot(side, flight.along)) < 0.9 * package::length(side)) continue;
    model.slope({polygon.outer[i], polygon.outer[next], inner[next], inner[i]}, heights.slab,
                [&](Point point) { return height(point, 0.5); });
  }
}

void addShaft(Model& model, const Polygon& polygon, const SurfaceHeights& heights) {
  addPlate(model, polygon, heights.slab, heights.above(shaftHeight));
}

void addShaftDoors(Model& model, const Polygon& polygon, Point at, const SurfaceHeights& heights) {
  const Outline& ring = polygon.outer;
  std::size_t best = 0;
  double nearest = 1e300;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point b = ring[(i + 1) % ring.size()];
    const double away = package::distanceToSegment(ring[i], b, at) -
                        0.01 * package::distance(ring[i], b);  // of two sides, the longer
    if (away < nearest) {
      nearest = away;
      best = i;
    }
  }
  const Point a = ring[best];
  const Point b = ring[(best + 1) % ring.size()];
  const double length = package::distance(a, b);
  if (length < 0.3) return;
  const Point way = (b - a) * (1.0 / length);
  const Point outward = Point{way.y, -way.x} * 0.06;
  const double leaf = std::min(0.55, length * 0.4);
  const double middle = std::clamp(dot(at - a, way), leaf, length - leaf);
  for (const double start : {middle - leaf * 0.96, middle + leaf * 0.04}) {
    const Point left = a + way * start;
    const Point right = left + way * (leaf * 0.92);
    model.prism({left, left + outward, right + outward, right}, heights.room,
                heights.above(shaftHeight * 0.85));
  }
}

}  // namespace orivanta::importer
