#include "Apps/Import/Model/AreaModels.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Import/Model/Faces.hpp"

namespace orivanta::importer {

namespace {

using package::Model;

constexpr double wallThickness = 0.14;
constexpr double wallHeight = 0.8;
constexpr double gapReach = 0.6;        // from a door to the wall that it opens
constexpr double shortestPiece = 0.05;  // of a wall between two gaps

using Interval = std::pair<double, double>;  // fractions of a side

double perimeter(const Outline& ring) {
  double sum = 0.0;
  for (std::size_t i = 0; i < ring.size(); ++i)
    sum += package::distance(ring[i], ring[(i + 1) % ring.size()]);
  return sum;
}

// What remains of the side from a to b between the gaps.
std::vector<Interval> piecesOf(Point a, Point b, const std::vector<Gap>& gaps) {
  const double length = package::distance(a, b);
  std::vector<Interval> pieces = {{0.0, 1.0}};
  for (const Gap& gap : gaps) {
    if (package::distanceToSegment(a, b, gap.middle) > gapReach) continue;
    const double middle = package::dot(gap.middle - a, b - a) / (length * length);
    const double half = gap.width / 2.0 / length;
    std::vector<Interval> left;
    for (const auto& [from, to] : pieces) {
      if (middle - half > from) left.emplace_back(from, std::min(to, middle - half));
      if (middle + half < to) left.emplace_back(std::max(from, middle + half), to);
    }
    pieces = std::move(left);
  }
  std::erase_if(pieces, [&](const Interval& piece) {
    return (piece.second - piece.first) * length < shortestPiece;
  });
  return pieces;
}

void addBlock(Model& model, const std::array<Point, 4>& quad, const Interval& piece, double from,
              double to) {
  const auto [a, b, innerB, innerA] = quad;
  model.side(a, b, from, to);
  model.side(innerB, innerA, from, to);
  if (piece.first > 0.0) model.side(innerA, a, from, to);
  if (piece.second < 1.0) model.side(b, innerB, from, to);
  model.top({a, b, innerB, innerA}, to);
}

// The walls along a ring with the room on its left.
void addWalls(Model& model, const Outline& ring, const std::vector<Gap>& gaps, double from,
              double to) {
  const Outline inner = package::grown(ring, -wallThickness);
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const std::size_t next = (i + 1) % ring.size();
    const Point way = ring[next] - ring[i];
    const double length = package::length(way);
    if (length < 1e-3) continue;
    const Point inward = Point{-way.y, way.x} * (wallThickness / length);
    for (const Interval& piece : piecesOf(ring[i], ring[next], gaps)) {
      const Point a = ring[i] + way * piece.first;
      const Point b = ring[i] + way * piece.second;
      const Point innerA = piece.first > 0.0 ? a + inward : inner[i];
      const Point innerB = piece.second < 1.0 ? b + inward : inner[next];
      addBlock(model, {a, b, innerB, innerA}, piece, from, to);
    }
  }
}

// A ring without sides that are shorter than a millimeter.
Outline withoutShortSides(const Outline& ring) {
  Outline kept;
  for (const Point point : ring)
    if (kept.empty() || package::distance(kept.back(), point) > 1e-3) kept.push_back(point);
  while (kept.size() > 1 && package::distance(kept.back(), kept.front()) <= 1e-3) kept.pop_back();
  return kept;
}

}  // namespace

void addPlate(Model& model, const Polygon& polygon, double from, double to) {
  model.walls(polygon.outer, from, to);
  for (const Outline& hole : polygon.holes) model.walls(hole, from, to);
  for (const Outline& face : facesOf(polygon)) model.top(face, to);
}

void addRoom(Model& model, const Polygon& polygon, const std::vector<Gap>& gaps,
             const SurfaceHeights& heights) {
  const double top = heights.above(wallHeight);
  const double breadth =
      2.0 * package::signedArea(polygon.outer) / std::max(perimeter(polygon.outer), 1e-9);
  if (breadth < 5.0 * wallThickness) {
    addPlate(model, polygon, heights.slab, top);
    return;
  }
  for (const Outline& face : facesOf(polygon)) model.top(face, heights.room);
  const auto addRing = [&](const Outline& ring) {
    const Outline clean = withoutShortSides(ring);
    if (clean.size() < 3) return;
    model.walls(clean, heights.slab, heights.room);
    addWalls(model, clean, gaps, heights.room, top);
  };
  addRing(polygon.outer);
  for (const Outline& hole : polygon.holes) addRing(hole);
}

}  // namespace orivanta::importer
