#include "Source/UI/Labels/SharedEdges.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"

namespace orivanta {

namespace {

constexpr double mostTolerance = 0.015;  // of corners on edges, scene units
constexpr double mostShare = 0.005;      // the same, of the longer side
constexpr std::size_t mostVisits = 8'000'000;

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

bool isEnd(const LabelEdge& edge, graphics::Point point) {
  return edge.from == point || edge.to == point;
}

LabelEdge ordered(const LabelEdge& edge) {
  return isBefore(edge.to, edge.from) ? LabelEdge{edge.to, edge.from} : edge;
}

// Removes pairs of equal edges.
std::vector<LabelEdge> withoutPairs(std::vector<LabelEdge> edges) {
  foundation::sort(edges.begin(), edges.end(), isEdgeBefore);
  std::vector<LabelEdge> kept;
  for (const LabelEdge& edge : edges) {
    if (!kept.empty() && areSame(kept.back(), edge))
      kept.pop_back();
    else
      kept.push_back(edge);
  }
  return kept;
}

std::vector<graphics::Point> cornersOf(const std::vector<LabelEdge>& edges) {
  std::vector<graphics::Point> corners;
  for (const auto& [from, to] : edges) corners.insert(corners.end(), {from, to});
  foundation::sort(corners.begin(), corners.end(), isBefore);
  corners.erase(std::unique(corners.begin(), corners.end()), corners.end());
  return corners;
}

// Returns how far along an edge a point lies that is on it, 0 to 1, or nothing.
std::optional<double> shareAlong(const LabelEdge& edge, graphics::Point point, double tolerance) {
  const graphics::Point way{edge.to.x - edge.from.x, edge.to.y - edge.from.y};
  const graphics::Point offset{point.x - edge.from.x, point.y - edge.from.y};
  const double length = std::hypot(way.x, way.y);
  const double along = (offset.x * way.x + offset.y * way.y) / length;
  const double across = (offset.x * way.y - offset.y * way.x) / length;
  if (!(std::abs(across) < tolerance && along > 0 && along < length)) return std::nullopt;
  return along / length;
}

// Returns the tolerance for coordinates with two decimals, or less for small shapes.
double toleranceOf(const std::vector<graphics::Point>& corners) {
  const auto [low, high] =
      std::minmax_element(corners.begin(), corners.end(),
                          [](const auto& left, const auto& right) { return left.y < right.y; });
  const double longerSide =
      corners.empty() ? 0.0 : std::max(corners.back().x - corners.front().x, high->y - low->y);
  return std::min(mostTolerance, mostShare * longerSide);
}

// Divides edges at the corners that lie on them. Where a triangle meets several others along one
// edge, they have equal edges then. The work is limited;
// edges may remain undivided.
std::vector<LabelEdge> dividedAtCorners(const std::vector<LabelEdge>& edges) {
  const std::vector<graphics::Point> corners = cornersOf(edges);
  const double tolerance = toleranceOf(corners);
  std::vector<LabelEdge> divided;
  std::size_t visits = 0;
  for (const LabelEdge& edge : edges) {
    std::vector<std::pair<double, graphics::Point>> found{{0.0, edge.from}, {1.0, edge.to}};
    const double limit = edge.to.x + tolerance;
    for (auto corner =
             std::lower_bound(corners.begin(), corners.end(),
                              graphics::Point{edge.from.x - tolerance, edge.from.y}, isBefore);
         corner != corners.end() && corner->x <= limit && visits < mostVisits; ++corner, ++visits)
      if (const auto share = shareAlong(edge, *corner, tolerance); share && !isEnd(edge, *corner))
        found.emplace_back(*share, *corner);
    foundation::sort(found.begin(), found.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (std::size_t i = 0; i + 1 < found.size(); ++i)
      divided.push_back(ordered({found[i].second, found[i + 1].second}));
  }
  return divided;
}

}  // namespace

std::vector<LabelEdge> withoutShared(std::vector<LabelEdge> edges) {
  for (LabelEdge& edge : edges) edge = ordered(edge);
  return withoutPairs(dividedAtCorners(withoutPairs(std::move(edges))));
}

}  // namespace orivanta
