#include "Apps/Import/Model/Bridges.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace orivanta::importer {

namespace {

using package::cross;
using package::distance;

// Whether a point lies within the corner of a counterclockwise ring, on its left side.
bool withinCorner(Point before, Point corner, Point after, Point point) {
  const bool leftOfFirst = cross(corner - before, point - corner) > 0.0;
  const bool leftOfSecond = cross(after - corner, point - corner) > 0.0;
  return cross(corner - before, after - corner) >= 0.0 ? leftOfFirst && leftOfSecond
                                                       : leftOfFirst || leftOfSecond;
}

// Whether a ring crosses the way between two points or has a corner on it. Its ends may be corners.
bool blocks(const Outline& ring, Point from, Point to) {
  constexpr double close = 1e-6;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point a = ring[i];
    const Point b = ring[(i + 1) % ring.size()];
    if (cross(from, to, a, b)) return true;
    if (distance(a, from) > close && distance(a, to) > close &&
        package::distanceToSegment(from, to, a) < close)
      return true;
  }
  return false;
}

// The corner of the ring that is nearest to `start` among those in sight of it, or the ring's size.
std::size_t nearestInSight(const Outline& ring, Point start, const std::vector<Outline>& holes) {
  std::vector<std::pair<double, std::size_t>> order;
  for (std::size_t i = 0; i < ring.size(); ++i) order.emplace_back(distance(ring[i], start), i);
  constexpr std::size_t tried = 24;
  const auto last = order.begin() + static_cast<std::ptrdiff_t>(std::min(tried, order.size()));
  std::partial_sort(order.begin(), last, order.end());
  for (auto entry = order.begin(); entry != order.end(); ++entry) {
    if (entry == last) std::sort(last, order.end());
    const std::size_t i = entry->second;
    const Point before = ring[(i + ring.size() - 1) % ring.size()];
    const Point after = ring[(i + 1) % ring.size()];
    if (!withinCorner(before, ring[i], after, start) || blocks(ring, ring[i], start)) continue;
    if (std::none_of(holes.begin(), holes.end(),
                     [&](const Outline& hole) { return blocks(hole, ring[i], start); }))
      return i;
  }
  return ring.size();
}

std::size_t rightmost(const Outline& ring) {
  return static_cast<std::size_t>(
      std::max_element(ring.begin(), ring.end(),
                       [](Point a, Point b) { return std::pair(a.x, a.y) < std::pair(b.x, b.y); }) -
      ring.begin());
}

}  // namespace

Outline bridged(const Polygon& polygon) {
  Outline ring = polygon.outer;
  std::vector<Outline> holes;
  for (const Outline& hole : polygon.holes)
    if (hole.size() >= 3) holes.push_back(hole);
  // From right to left, so that the way to the right of a hole leads to what is already joined.
  std::stable_sort(holes.begin(), holes.end(), [](const Outline& a, const Outline& b) {
    return a[rightmost(a)].x > b[rightmost(b)].x;
  });
  for (const Outline& hole : holes) {
    const std::size_t start = rightmost(hole);
    const std::size_t join = nearestInSight(ring, hole[start], holes);
    if (join == ring.size()) continue;
    Outline inserted = {ring[join]};
    for (std::size_t i = 0; i <= hole.size(); ++i)
      inserted.push_back(hole[(start + i) % hole.size()]);
    ring.insert(ring.begin() + static_cast<std::ptrdiff_t>(join), inserted.begin(), inserted.end());
  }
  return ring;
}

}  // namespace orivanta::importer
