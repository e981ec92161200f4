#include "Source/UI/Labels/LabelRoom.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orivanta {

namespace {

constexpr std::size_t mostEdges = 256;

graphics::Point relative(graphics::Point point, graphics::Point origin) {
  return {point.x - origin.x, point.y - origin.y};
}

double squaredDistanceFromOrigin(const LabelEdge& edge) {
  const double x = edge.to.x - edge.from.x;
  const double y = edge.to.y - edge.from.y;
  const double squared = x * x + y * y;
  const double along = -(edge.from.x * x + edge.from.y * y);
  const double share = squared > 0 ? std::clamp(along / squared, 0.0, 1.0) : 0.0;
  return std::pow(edge.from.x + share * x, 2) + std::pow(edge.from.y + share * y, 2);
}

// Returns the distance from the y axis of the part of an edge that lies in the band.
double reachInBand(graphics::Point from, graphics::Point to, double half) {
  if (from.y > to.y) std::swap(from, to);
  if (to.y <= -half || from.y >= half) return std::numeric_limits<double>::max();
  const double slope = to.y > from.y ? (to.x - from.x) / (to.y - from.y) : 0.0;
  const double low = from.y < -half ? from.x + (-half - from.y) * slope : from.x;
  const double high = to.y > half ? from.x + (half - from.y) * slope : to.x;
  return (low < 0) != (high < 0) ? 0.0 : std::min(std::abs(low), std::abs(high));
}

}  // namespace

LabelRoom::LabelRoom(const LabelArea& area, std::span<const LabelArea> areasOnIt,
                     const LabelAnchor& anchor) {
  const auto add = [&](const LabelArea& other) {
    for (const LabelEdge& edge : other.edges)
      edges_.push_back({relative(edge.from, anchor.point), relative(edge.to, anchor.point)});
  };
  add(area);
  for (const LabelArea& other : areasOnIt)
    if (other.bounds().intersects(area.bounds()) && !other.contains(anchor.point)) add(other);
  if (edges_.size() > mostEdges) {
    std::vector<std::pair<double, std::size_t>> order;
    for (std::size_t i = 0; i < edges_.size(); ++i)
      order.emplace_back(squaredDistanceFromOrigin(edges_[i]), i);
    std::nth_element(order.begin(), order.begin() + mostEdges, order.end());
    std::vector<LabelEdge> nearest;
    for (std::size_t i = 0; i < mostEdges; ++i) nearest.push_back(edges_[order[i].second]);
    edges_ = std::move(nearest);
  }
  edges_.shrink_to_fit();
}

double LabelRoom::freeWidth(double height, graphics::Point direction) const {
  const auto turned = [&](graphics::Point point) {
    return graphics::Point{point.x * direction.x + point.y * direction.y,
                           point.y * direction.x - point.x * direction.y};
  };
  double nearest = std::numeric_limits<double>::max();
  for (const auto& [from, to] : edges_)
    nearest = std::min(nearest, reachInBand(turned(from), turned(to), height / 2));
  return edges_.empty() ? 0.0 : std::min(2 * nearest, std::numeric_limits<double>::max());
}

}  // namespace orivanta
