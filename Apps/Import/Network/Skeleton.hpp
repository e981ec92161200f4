// The points of a walkable area that are equally far from two of its borders.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// A graph of points at most half a meter apart along the middle of an area. Every point of the
/// area that is wide enough is near it, and it is connected wherever the area is wide enough.
struct Skeleton {
  std::vector<Point> points;
  std::vector<double> clearances;  ///< of each point: the distance to the nearest border
  std::vector<std::pair<std::uint32_t, std::uint32_t>> edges;

  /// The neighbors of each point.
  std::vector<std::vector<std::uint32_t>> neighbors() const;
};

/// Makes the skeleton of a valid shape, without the points that are nearer than `leastClearance` to
/// a border. Takes n log n time. The borders are rounded to millimeters after all corners were left
/// out that are at most `tolerance` meters from the straight line past them: an arc consists of
/// many short borders, which take most of the time.
Skeleton makeSkeleton(const Shape& shape, double leastClearance, double tolerance = 0.015);

}  // namespace orivanta::importer
