// Splits the walking lines of a floor into segments of a few meters, with nodes at crossings and
// attachments.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

class WalkingLines {
 public:
  /// Extends open ends to other lines within reach, and splits the lines where they cross.
  explicit WalkingLines(const std::vector<WalkingLine>& lines);

  /// Splits the nearest line at the point nearest to `point`, or reuses a split nearby. Returns a
  /// key for `point`. Throws `std::logic_error` if there are no lines.
  std::size_t attach(Point point);

  /// Splits long segments so that nodes are at most five meters apart. Call `attach` first.
  void subdivide();

  struct Stretches {
    std::vector<Point> points;  ///< the points for `attach`'s keys come first
    std::vector<std::pair<std::size_t, std::size_t>> joined;  ///< indices of points
  };

  /// The points of all lines, and which of them are neighbors on a line.
  Stretches stretches() const;

 private:
  struct Cut {
    double fraction;
    std::size_t point;
  };
  struct Segment {
    Point from;
    Point to;
    std::size_t line;
    std::vector<Cut> cuts;  // sorted, including both ends
  };

  std::size_t pointAt(Point position);
  void cut(Segment& segment, double fraction, std::size_t point);
  Point nearestOnOtherLines(std::size_t line, Point end,
                            const std::vector<WalkingLine>& lines) const;
  void addSegments(std::size_t line, const std::vector<Point>& points, bool closed);
  void cutWhereCrossing();

  std::vector<Point> points_;
  std::vector<Segment> segments_;
};

}  // namespace orivanta::demo
