// Ways outdoors round the corners of what is drawn on the ground.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// Whether a straight line between two points crosses no wall, apart from one meter at its ends.
bool isFreeOutdoors(const SegmentGrid& walls, Point from, Point to);

/// Keeps a reference to the walls. Finds nothing more after a great deal of work.
class OutdoorCorners {
 public:
  /// `ground` are all areas on the ground, and `walls` their borders.
  OutdoorCorners(const Shape& ground, const SegmentGrid& walls);

  struct Way {
    std::size_t from = 0;  ///< index of a start
    std::size_t to = 0;    ///< index of a goal
    std::vector<Point> bends;
    double length = 0.0;
  };

  /// The shortest way from one of the starts to one of the goals, of at most `longest` meters.
  std::optional<Way> shortest(const std::vector<Point>& starts, const std::vector<Point>& goals,
                              double longest);

 private:
  bool isFree(Point from, Point to);

  const SegmentGrid& walls_;
  std::vector<Point> corners_;
  std::size_t testsLeft_ = 300'000;
};

}  // namespace orivanta::importer
