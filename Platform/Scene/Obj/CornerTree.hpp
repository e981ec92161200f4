// The corners of a polygon that may lie in the way of an ear, to be found by triangle.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orivanta::scene::obj {

struct PlanePoint {
  double x;
  double y;

  friend bool operator==(const PlanePoint&, const PlanePoint&) = default;
};

/// Twice the area of the triangle, positive when it is counterclockwise. For coordinates that were
/// single precision and of similar size the sign is exact.
inline double turn(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

using PlaneTriangle = std::array<PlanePoint, 3>;  ///< counterclockwise

/// A balanced k-d tree over some of the points of a polygon, from which points are removed. A
/// search visits what the triangle's outline crosses; whatever its shape and however the points are
/// spread, that is about the square root of their number.
class CornerTree {
 public:
  /// `corners` are indices into the points, which have to outlive the tree's use.
  void build(std::span<const PlanePoint> points, std::span<const std::uint32_t> corners);

  /// Nothing happens to a corner that is not in it.
  void remove(std::uint32_t corner);

  /// Whether `matches` is true for any of the corners that lie in the triangle or on its outline.
  template <class Matches>
  bool anyWithin(const PlaneTriangle& triangle, const Matches& matches);

  /// Steps taken in searches since the tree was built.
  std::size_t steps() const { return steps_; }

 private:
  struct Node {
    PlanePoint least;
    PlanePoint most;
    std::uint32_t count;
  };
  // A node's corners in `order_`. Children of node n are 2n and 2n + 1, each with half of them.
  struct Place {
    std::size_t node;
    std::size_t begin;
    std::size_t end;
    unsigned level;
  };

  void build(const Place& place);
  static bool isApart(const Node& node, const PlaneTriangle& triangle);

  std::span<const PlanePoint> points_;
  std::vector<std::uint32_t> order_;
  std::vector<std::uint32_t> slots_;  // where in `order_` a corner stands
  std::vector<Node> nodes_;
  unsigned leafLevel_ = 0;
  std::size_t steps_ = 0;
};

template <class Matches>
bool CornerTree::anyWithin(const PlaneTriangle& triangle, const Matches& matches) {
  std::array<Place, 64> pending;
  std::size_t pendingCount = 0;
  if (!order_.empty()) pending[pendingCount++] = {1, 0, order_.size(), 0};
  while (pendingCount > 0) {
    const Place place = pending[--pendingCount];
    ++steps_;
    if (isApart(nodes_[place.node], triangle)) continue;
    if (place.level < leafLevel_) {
      const std::size_t middle = (place.begin + place.end) / 2;
      pending[pendingCount++] = {2 * place.node, place.begin, middle, place.level + 1};
      pending[pendingCount++] = {2 * place.node + 1, middle, place.end, place.level + 1};
      continue;
    }
    for (std::size_t slot = place.begin; slot < place.end; ++slot, ++steps_) {
      const std::uint32_t corner = order_[slot];
      if (slots_[corner] == slot && matches(corner)) return true;
    }
  }
  return false;
}

}  // namespace orivanta::scene::obj
