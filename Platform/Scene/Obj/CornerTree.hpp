// A spatial index of the corners of a polygon, to find those inside a triangle.
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

/// Twice the area of the triangle; positive if it is counterclockwise. The sign is exact for
/// coordinates that were converted from single precision and are of similar size.
inline double turn(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

using PlaneTriangle = std::array<PlanePoint, 3>;  ///< counterclockwise

/// A balanced k-d tree over some of the points of a polygon. Points can be removed. A search visits
/// the nodes that the triangle's outline crosses: about the square root of the number of points,
/// regardless of the triangle's shape and the distribution of the points.
class CornerTree {
 public:
  /// `corners` are indices into `points`, which must outlive the use of the tree.
  void build(std::span<const PlanePoint> points, std::span<const std::uint32_t> corners);

  /// Does nothing if the corner is not in the tree.
  void remove(std::uint32_t corner);

  /// Whether `matches` returns true for any corner in the triangle or on its outline.
  template <class Matches>
  bool anyWithin(const PlaneTriangle& triangle, const Matches& matches);

  /// Number of steps in searches since the tree was built.
  std::size_t steps() const { return steps_; }

 private:
  struct Node {
    PlanePoint least;
    PlanePoint most;
    std::uint32_t count;
  };
  // The range of a node's corners in `order_`. The children of node n are 2n and 2n + 1, each with
  // half of the corners.
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
  std::vector<std::uint32_t> slots_;  // index in `order_` of each corner
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
