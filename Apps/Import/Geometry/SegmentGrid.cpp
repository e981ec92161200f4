#include "Apps/Import/Geometry/SegmentGrid.hpp"

#include <utility>

namespace orivanta::importer {

double distanceOf(const Segment& first, const Segment& second) {
  if (package::cross(first.a, first.b, second.a, second.b)) return 0.0;
  return std::min({package::distanceToSegment(first.a, first.b, second.a),
                   package::distanceToSegment(first.a, first.b, second.b),
                   package::distanceToSegment(second.a, second.b, first.a),
                   package::distanceToSegment(second.a, second.b, first.b)});
}

SegmentGrid::SegmentGrid(std::vector<Segment> segments, double margin)
    : segments_(std::move(segments)) {
  if (segments_.empty()) return;
  chooseCells(margin);
  starts_.assign(columns_ * rows_ + 1, 0);
  for (const Segment& segment : segments_)
    anyCell(segment, margin, [&](std::size_t cell) { return ++starts_[cell + 1], false; });
  for (std::size_t i = 1; i < starts_.size(); ++i) starts_[i] += starts_[i - 1];
  entries_.resize(starts_.back());
  std::vector<std::size_t> next(starts_.begin(), starts_.end() - 1);
  for (std::size_t i = 0; i < segments_.size(); ++i)
    anyCell(segments_[i], margin, [&](std::size_t cell) {
      entries_[next[cell]++] = static_cast<std::uint32_t>(i);
      return false;
    });
}

// About two cells per segment, unless long segments would then lie in too many cells.
void SegmentGrid::chooseCells(double margin) {
  Point high = low_ = segments_.front().a;
  double sum = 0.0;
  for (const Segment& segment : segments_) {
    for (const Point point : {segment.a, segment.b}) {
      low_ = {std::min(low_.x, point.x), std::min(low_.y, point.y)};
      high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    sum += package::distance(segment.a, segment.b);
  }
  low_ = low_ - Point{margin, margin};
  const Point size = high - low_ + Point{margin, margin};
  const auto count = static_cast<double>(segments_.size());
  const double cells = 2.0 * count + 16.0;
  cell_ = std::max({1.0, std::sqrt(size.x * size.y / cells), std::max(size.x, size.y) / cells,
                    sum / (8.0 * count)});
  columns_ = static_cast<std::size_t>(size.x / cell_) + 1;
  rows_ = static_cast<std::size_t>(size.y / cell_) + 1;
}

SegmentGrid::Extent SegmentGrid::extentBetween(const Segment& line, double bottom, double top) {
  const Point low = line.a.y <= line.b.y ? line.a : line.b;
  const Point high = line.a.y <= line.b.y ? line.b : line.a;
  const double rise = high.y - low.y;
  const auto at = [&](double y) {
    if (!(rise > 1e-9)) return y <= low.y ? low.x : high.x;
    return low.x + (high.x - low.x) * std::clamp((y - low.y) / rise, 0.0, 1.0);
  };
  double first = at(bottom);
  double last = at(top);
  if (!(rise > 1e-9)) {
    first = low.x;
    last = high.x;
  }
  return {std::min(first, last), std::max(first, last)};
}

std::size_t SegmentGrid::nearest(Point point, double radius) const {
  std::size_t found = none;
  double best = radius;
  // Small circles first: most points have a segment nearby.
  for (double reach = std::min(radius, 2.0 * cell_);; reach = std::min(radius, 4.0 * reach)) {
    eachNear(point, reach, [&](std::size_t i) {
      const double far = package::distanceToSegment(segments_[i].a, segments_[i].b, point);
      if (far < best || (far == best && i < found)) {
        best = far;
        found = i;
      }
    });
    if ((found != none && best <= reach) || reach >= radius) return found;
  }
}

std::size_t SegmentGrid::crossingsToTheRight(Point point) const {
  if (segments_.empty()) return 0;
  if (point.y < low_.y || point.y > low_.y + cell_ * static_cast<double>(rows_)) return 0;
  std::size_t count = 0;
  const std::size_t y = row(point.y);
  for (std::size_t x = column(point.x); x < columns_; ++x)
    for (std::size_t i = starts_[y * columns_ + x]; i < starts_[y * columns_ + x + 1]; ++i) {
      const auto& [a, b] = segments_[entries_[i]];
      if ((a.y > point.y) == (b.y > point.y)) continue;
      const double meets = a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y);
      // A segment lies in several cells: it counts in the one where it meets the ray.
      if (meets > point.x && column(meets) == x) ++count;
    }
  return count;
}

}  // namespace orivanta::importer
