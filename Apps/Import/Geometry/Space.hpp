// A walkable area that answers quickly what lies in it and what can be seen in it.
#pragma once

#include <optional>
#include <vector>

#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// The point of a border that is nearest to something.
struct WallPoint {
  Point position;
  Point inward;  ///< the direction into the space at the border, of length 1
  double distance = 0.0;
};

/// Immutable.
class Space {
 public:
  /// The largest clearance that `isFree` can be asked for, in meters.
  static constexpr double greatestClearance = 0.3;

  /// The shape must be valid and directed as the results in Shapes.hpp are.
  explicit Space(const Shape& shape);

  bool empty() const { return walls_.segments().empty(); }
  bool contains(Point point) const { return walls_.encloses(point); }

  /// Whether no border is nearer than `clearance` to the line. With one end in the space and a
  /// clearance of 0, the line does not leave it.
  bool isFree(Point from, Point to, double clearance) const;

  /// The distance to the nearest border; `atMost` if there is none within that distance.
  double clearance(Point point, double atMost) const;

  /// The nearest border within a distance.
  std::optional<WallPoint> nearestWall(Point point, double within) const;

  /// A point of the space near `point`, at least `clearance` off all borders, that is reached from
  /// `point` across the nearest borders within `within`. Tries the nearest borders first.
  std::optional<Point> foot(Point point, double within, double clearance) const;

  const SegmentGrid& walls() const { return walls_; }

 private:
  WallPoint wallPoint(std::size_t wall, Point point) const;

  SegmentGrid walls_;
};

/// All borders of a shape.
std::vector<Segment> bordersOf(const Shape& shape);

}  // namespace orivanta::importer
