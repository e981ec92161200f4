#include "Platform/Scene/Obj/CornerTree.hpp"

#include <algorithm>

namespace orivanta::scene::obj {

namespace {

constexpr std::size_t mostInLeaf = 8;
constexpr std::uint32_t notThere = 0xFFFFFFFF;

}  // namespace

void CornerTree::build(std::span<const PlanePoint> points, std::span<const std::uint32_t> corners) {
  points_ = points;
  order_.assign(corners.begin(), corners.end());
  slots_.assign(points.size(), notThere);
  steps_ = 0;
  leafLevel_ = 0;
  while ((order_.size() >> leafLevel_) > mostInLeaf) ++leafLevel_;
  nodes_.resize(std::size_t{2} << leafLevel_);
  if (!order_.empty()) build({1, 0, order_.size(), 0});
  for (std::size_t slot = 0; slot < order_.size(); ++slot)
    slots_[order_[slot]] = static_cast<std::uint32_t>(slot);
}

void CornerTree::build(const Place& place) {
  Node& node = nodes_[place.node];
  node.count = static_cast<std::uint32_t>(place.end - place.begin);
  node.least = node.most = points_[order_[place.begin]];
  for (std::size_t slot = place.begin; slot < place.end; ++slot) {
    const PlanePoint& point = points_[order_[slot]];
    node.least = {std::min(node.least.x, point.x), std::min(node.least.y, point.y)};
    node.most = {std::max(node.most.x, point.x), std::max(node.most.y, point.y)};
  }
  if (place.level == leafLevel_) return;
  const bool isWide = node.most.x - node.least.x > node.most.y - node.least.y;
  const std::size_t middle = (place.begin + place.end) / 2;
  const auto at = [&](std::size_t slot) {
    return order_.begin() + static_cast<std::ptrdiff_t>(slot);
  };
  std::nth_element(at(place.begin), at(middle), at(place.end), [&](auto left, auto right) {
    return isWide ? points_[left].x < points_[right].x : points_[left].y < points_[right].y;
  });
  build({2 * place.node, place.begin, middle, place.level + 1});
  build({2 * place.node + 1, middle, place.end, place.level + 1});
}

void CornerTree::remove(std::uint32_t corner) {
  const std::uint32_t slot = slots_[corner];
  if (slot == notThere) return;
  slots_[corner] = notThere;
  Place place{1, 0, order_.size(), 0};
  for (;;) {
    --nodes_[place.node].count;
    if (place.level == leafLevel_) return;
    const std::size_t middle = (place.begin + place.end) / 2;
    const bool isFirst = slot < middle;
    (isFirst ? place.end : place.begin) = middle;
    place.node = 2 * place.node + (isFirst ? 0 : 1);
    ++place.level;
  }
}

// Whether the box of the node is completely outside the triangle.
bool CornerTree::isApart(const Node& node, const PlaneTriangle& triangle) {
  if (node.count == 0) return true;
  for (std::size_t side = 0; side < 3; ++side) {
    const PlanePoint& from = triangle[side];
    const PlanePoint& to = triangle[(side + 1) % 3];
    // The corner of the box that is farthest to the left of the side.
    const PlanePoint farthest{to.y > from.y ? node.least.x : node.most.x,
                              to.x > from.x ? node.most.y : node.least.y};
    if (turn(from, to, farthest) < 0.0) return true;
  }
  const auto [leastX, mostX] = std::minmax({triangle[0].x, triangle[1].x, triangle[2].x});
  const auto [leastY, mostY] = std::minmax({triangle[0].y, triangle[1].y, triangle[2].y});
  return node.least.x > mostX || node.most.x < leastX || node.least.y > mostY ||
         node.most.y < leastY;
}

}  // namespace orivanta::scene::obj
