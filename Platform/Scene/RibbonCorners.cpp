#include "Platform/Scene/RibbonCorners.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <glm/geometric.hpp>
#include <span>
#include <utility>

namespace orivanta::scene {

using graphics::Vector3;

namespace {

constexpr float shortestEdge = 1e-4F;

bool isFinite(const Vector3& point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

float levelDistance(const Vector3& a, const Vector3& b) { return std::hypot(b.x - a.x, b.y - a.y); }

float distanceToSegment(const Vector3& point, const Vector3& a, const Vector3& b) {
  const Vector3 way = b - a;
  const float square = glm::dot(way, way);
  const float share = square > 0 ? std::clamp(glm::dot(point - a, way) / square, 0.0F, 1.0F) : 0.0F;
  return glm::length(point - (a + share * way));
}

// Collects corners that are away from the last one.
class Corners {
 public:
  Corners(float distance, float shortest) : distance_(distance), shortest_(shortest) {}

  void add(const Vector3& point, std::uint8_t color) {
    if (!isFinite(point)) return;
    if (!found.empty()) distance_ += glm::length(point - last_);
    last_ = point;
    if (!found.empty() && isNear(found.back().point, point))
      found.back().color = color;
    else
      found.push_back({point, distance_, color});
  }

  void close() {
    const RibbonCorner first = found.front();
    while (found.size() > 1 && isNear(found.back().point, first.point)) found.pop_back();
    if (found.size() > 1) add(first.point, first.color);
  }

  std::vector<RibbonCorner> found;

 private:
  bool isNear(const Vector3& a, const Vector3& b) const { return levelDistance(a, b) <= shortest_; }

  Vector3 last_{0.0F};
  float distance_;
  float shortest_;
};

std::vector<RibbonCorner> cornersOf(const Ribbons::Line& line, float shortest) {
  Corners corners(line.distance, shortest);
  for (std::size_t i = 0; i < line.points.size(); ++i)
    corners.add(line.points[i], i < line.colors.size() ? line.colors[i] : 0);
  if (line.isClosed && !corners.found.empty()) corners.close();
  return std::move(corners.found);
}

// Marks the corners between two marked ones that are not within a distance of the line through the
// marked ones (Douglas and Peucker).
void markBetween(std::span<const RibbonCorner> corners, float within, std::vector<bool>& isMarked,
                 std::pair<std::size_t, std::size_t> ends) {
  std::vector<std::pair<std::size_t, std::size_t>> pending{ends};
  while (!pending.empty()) {
    const auto [begin, end] = pending.back();
    pending.pop_back();
    float farthest = within;
    std::size_t marked = begin;
    for (std::size_t i = begin + 1; i < end; ++i) {
      const float away =
          distanceToSegment(corners[i].point, corners[begin].point, corners[end].point);
      if (away <= farthest) continue;
      farthest = away;
      marked = i;
    }
    if (marked == begin) continue;
    isMarked[marked] = true;
    pending.insert(pending.end(), {{begin, marked}, {marked, end}});
  }
}

}  // namespace

std::vector<RibbonCorner> ribbonCorners(const Ribbons::Line& line, float mergeWithin) {
  std::vector<RibbonCorner> corners = cornersOf(line, std::max(shortestEdge, mergeWithin));
  if (corners.size() < 3) return corners;
  std::vector<bool> isMarked(corners.size());
  std::size_t first = 0;
  for (std::size_t i = 1; i < corners.size(); ++i) {
    if (i + 1 < corners.size() && corners[i].color == corners[i - 1].color) continue;
    isMarked[first] = isMarked[i] = true;
    markBetween(corners, mergeWithin, isMarked, {first, i});
    first = i;
  }
  std::size_t i = 0;
  std::erase_if(corners, [&](const RibbonCorner&) { return !isMarked[i++]; });
  return corners;
}

}  // namespace orivanta::scene
