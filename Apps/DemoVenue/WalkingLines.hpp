// A floor's walking lines cut into stretches of a few meters, with nodes where lines cross and
// where something is attached.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

class WalkingLines {
 public:
  /// Leads open ends within reach of another line onto it and cuts the lines where they cross.
  explicit WalkingLines(const std::vector<WalkingLine>& lines);

  /// Cuts the nearest line at its nearest point, or at a cut that is already close to it. Returns a
  /// key for `point`. Throws `std::logic_error` when there are no lines.
  std::size_t attach(Point point);

  /// Cuts long stretches so that nodes are at most five meters apart. Attach first.
  void subdivide();

  struct Stretches {
    std::vector<Point> points;                                ///< first those of `attach`'s keys
    std::vector<std::pair<std::size_t, std::size_t>> joined;  ///< indices of points
  };

  /// The points of all lines and which of them are neighbors on a line.
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
    std::vector<Cut> cuts;  // sorted, the ends among them
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
