// Where the building lies, so that points far away from it can be told from it.
#pragma once

#include <cstddef>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// The middle of a building and a distance from it.
class Extent {
 public:
  /// Takes the median of all coordinates as the middle, so that single wild points do not move it.
  Extent(const Building& building, double radius);

  /// Whether a point is finite and within the radius in both coordinates.
  bool holds(Point point) const;

  /// How many points the building has.
  std::size_t points() const { return points_; }

 private:
  Point middle_;
  double radius_;
  std::size_t points_ = 0;
};

}  // namespace orivanta::importer
