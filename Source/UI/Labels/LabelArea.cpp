#include "Source/UI/Labels/LabelArea.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace orivanta {

namespace {

constexpr float levelTolerance = 1e-3F;  // scene units

bool isFinite(graphics::Point point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool isFinite(const LabelTriangle& triangle) {
  return std::all_of(triangle.begin(), triangle.end(), [](const graphics::Vector3& corner) {
    return std::isfinite(corner.x) && std::isfinite(corner.y) && std::isfinite(corner.z);
  });
}

bool isBefore(graphics::Point left, graphics::Point right) {
  return std::tie(left.x, left.y) < std::tie(right.x, right.y);
}

bool isEdgeBefore(const LabelEdge& left, const LabelEdge& right) {
  return std::tie(left.from.x, left.from.y, left.to.x, left.to.y) <
         std::tie(right.from.x, right.from.y, right.to.x, right.to.y);
}

bool areSame(const LabelEdge& left, const LabelEdge& right) {
  return left.from == right.from && left.to == right.to;
}

// Twice the area of the triangle from above, positive if it faces up.
double doubledArea(const LabelTriangle& triangle) {
  const auto& [a, b, c] = triangle;
  return (double{b.x} - a.x) * (double{c.y} - a.y) - (double{c.x} - a.x) * (double{b.y} - a.y);
}

void addEdges(const LabelTriangle& triangle, std::vector<LabelEdge>& edges) {
  for (std::size_t i = 0; i < 3; ++i) {
    const graphics::Vector3& first = triangle[i];
    const graphics::Vector3& second = triangle[(i + 1) % 3];
    LabelEdge edge{{first.x, first.y}, {second.x, second.y}};
    if (isBefore(edge.to, edge.from)) std::swap(edge.from, edge.to);
    edges.push_back(edge);
  }
}

// Keeps the edges that occur once.
std::vector<LabelEdge> singleEdges(std::vector<LabelEdge> edges) {
  std::sort(edges.begin(), edges.end(), isEdgeBefore);
  std::vector<LabelEdge> single;
  for (std::size_t i = 0; i < edges.size();) {
    std::size_t end = i + 1;
    while (end < edges.size() && areSame(edges[i], edges[end])) ++end;
    if (end == i + 1) single.push_back(edges[i]);
    i = end;
  }
  return single;
}

}  // namespace

void LabelArea::addRing(std::span<const graphics::Point> corners, bool isHole) {
  if (corners.size() < 3) return;
  if (!std::all_of(corners.begin(), corners.end(), [](auto corner) { return isFinite(corner); }))
    return;
  double doubled = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const graphics::Point from = corners[i];
    const graphics::Point to = corners[(i + 1) % corners.size()];
    edges.push_back({from, to});
    doubled += from.x * to.y - to.x * from.y;
  }
  size += (isHole ? -1 : 1) * std::abs(doubled) / 2;
}

bool LabelArea::contains(graphics::Point point) const {
  bool isInside = false;
  for (const auto& [from, to] : edges)
    if ((from.y > point.y) != (to.y > point.y) &&
        point.x < from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x))
      isInside = !isInside;
  return isInside;
}

graphics::Rect LabelArea::bounds() const {
  if (edges.empty()) return {};
  graphics::Point least = edges.front().from;
  graphics::Point most = least;
  for (const auto& [from, to] : edges) {
    least = {std::min({least.x, from.x, to.x}), std::min({least.y, from.y, to.y})};
    most = {std::max({most.x, from.x, to.x}), std::max({most.y, from.y, to.y})};
  }
  return {least, {most.x - least.x, most.y - least.y}};
}

LabelArea levelTop(std::span<const LabelTriangle> triangles) {
  float top = std::numeric_limits<float>::lowest();
  for (const LabelTriangle& triangle : triangles)
    if (isFinite(triangle) && doubledArea(triangle) > 0)
      top = std::max(top, std::min({triangle[0].z, triangle[1].z, triangle[2].z}));
  LabelArea area;
  std::vector<LabelEdge> edges;
  for (const LabelTriangle& triangle : triangles) {
    const double doubled = isFinite(triangle) ? doubledArea(triangle) : 0;
    const auto [low, high] = std::minmax({triangle[0].z, triangle[1].z, triangle[2].z});
    if (doubled <= 0 || low < top - levelTolerance || high - low > levelTolerance) continue;
    area.size += doubled / 2;
    addEdges(triangle, edges);
  }
  area.edges = singleEdges(std::move(edges));
  return area;
}

}  // namespace orivanta
