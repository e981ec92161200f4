// A grid of square cells that finds the segments near a point or along a line.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "Apps/Package/Geometry.hpp"

namespace orivanta::importer {

using package::Point;

struct Segment {
  Point a;
  Point b;
};

/// The distance of two segments, 0 if they cross.
double distanceOf(const Segment& first, const Segment& second);

/// Immutable. Takes memory proportional to the number of segments, and time proportional to the
/// number of segments near what is asked for.
class SegmentGrid {
 public:
  /// Queries along a line find all segments within `margin` of it.
  SegmentGrid(std::vector<Segment> segments, double margin);

  const std::vector<Segment>& segments() const { return segments_; }

  /// Calls `visit` with the index of every segment within the margin of a line, and of some others;
  /// with some repeatedly. Stops and returns true as soon as `visit` returns true.
  template <typename Visit>
  bool anyAlong(const Segment& line, Visit visit) const {
    return anyCell(line, 0.0, [&](std::size_t cell) {
      for (std::size_t i = starts_[cell]; i < starts_[cell + 1]; ++i)
        if (visit(static_cast<std::size_t>(entries_[i]))) return true;
      return false;
    });
  }

  /// Calls `visit` with the index of every segment within `radius` of a point, and of some others;
  /// with some repeatedly.
  template <typename Visit>
  void eachNear(Point point, double radius, Visit visit) const {
    anyCell({point, point}, radius, [&](std::size_t cell) {
      for (std::size_t i = starts_[cell]; i < starts_[cell + 1]; ++i)
        visit(static_cast<std::size_t>(entries_[i]));
      return false;
    });
  }

  /// The index of the segment that is nearest to a point among those within `radius`, or `none`.
  std::size_t nearest(Point point, double radius) const;

  /// Prepares `encloses` for segments that form closed rings.
  void findEnclosed();

  /// Whether a point lies in an odd number of rings. Examines the segments of one cell. Call
  /// `findEnclosed` first.
  bool encloses(Point point) const;

  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

 private:
  std::size_t column(double x) const { return index(x - low_.x, columns_); }
  std::size_t row(double y) const { return index(y - low_.y, rows_); }
  std::size_t index(double offset, std::size_t count) const {
    if (!(offset > 0.0)) return 0;
    return std::min(static_cast<std::size_t>(offset / cell_), count - 1);
  }
  Point center(std::size_t column, std::size_t row) const {
    return low_ + Point{static_cast<double>(column) + 0.5, static_cast<double>(row) + 0.5} * cell_;
  }
  void chooseCells(double margin);

  // Visits the cells within a distance of a line, row by row, until `visit` returns true.
  template <typename Visit>
  bool anyCell(const Segment& line, double margin, Visit visit) const {
    const double bottom = std::min(line.a.y, line.b.y) - margin;
    const double top = std::max(line.a.y, line.b.y) + margin;
    if (segments_.empty() || top < low_.y || bottom > low_.y + cell_ * static_cast<double>(rows_))
      return false;
    for (std::size_t y = row(bottom); y <= row(top); ++y) {
      const double rowBottom = low_.y + cell_ * static_cast<double>(y) - margin;
      const auto [left, right] = extentBetween(line, rowBottom, rowBottom + cell_ + 2.0 * margin);
      for (std::size_t x = column(left - margin); x <= column(right + margin); ++x)
        if (visit(y * columns_ + x)) return true;
    }
    return false;
  }
  struct Extent {
    double left;
    double right;
  };
  static Extent extentBetween(const Segment& line, double bottom, double top);

  std::vector<Segment> segments_;
  Point low_;
  double cell_ = 1.0;
  std::size_t columns_ = 1;
  std::size_t rows_ = 1;
  std::vector<std::size_t> starts_;
  std::vector<std::uint32_t> entries_;
  std::vector<bool> enclosed_;  // the centers of the cells
};

}  // namespace orivanta::importer
