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

namespace {

bool isHigher(Point point, double y) { return point.y > y; }
bool isFarther(Point point, double x) { return point.x > x; }

// Where the line through a segment that passes the height is at that height.
double meetingAt(const Segment& segment, double y) {
  const auto& [a, b] = segment;
  const auto [least, most] = std::minmax(a.x, b.x);
  return std::clamp(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y), least, most);
}

// Whether the way from a point to a center, first along x and then along y, crosses a segment. A
// segment that passes the corner of the way is judged by one computation on both parts of it.
bool crossesWay(const Segment& segment, Point point, Point center) {
  const Point a = segment.a;
  const Point b = segment.b;
  const bool spansColumn = isFarther(a, center.x) != isFarther(b, center.x);
  const bool rises = (b.y > a.y) == (b.x > a.x);
  bool crosses = false;
  // Whether the segment is above the way's column at a height.
  const auto isAbove = [&](double y, bool passesFarther) {
    const bool spansRow = isHigher(a, y) != isHigher(b, y);
    return spansRow ? passesFarther != rises : isHigher(a, y);
  };
  const auto passesFarther = [&](double y, double x) {
    return isHigher(a, y) != isHigher(b, y) && meetingAt(segment, y) > x;
  };
  const bool atCorner = passesFarther(point.y, center.x);
  crosses = passesFarther(point.y, point.x) != atCorner;
  if (spansColumn &&
      isAbove(point.y, atCorner) != isAbove(center.y, passesFarther(center.y, center.x)))
    crosses = !crosses;
  return crosses;
}

}  // namespace

// A segment that passes the height of a row's centers changes the parity of all centers to the left
// of it.
void SegmentGrid::findEnclosed() {
  if (segments_.empty()) return;
  enclosed_.assign(columns_ * rows_, false);
  for (const Segment& segment : segments_)
    for (std::size_t y = row(std::min(segment.a.y, segment.b.y));
         y <= row(std::max(segment.a.y, segment.b.y)); ++y) {
      const double height = center(0, y).y;
      if (isHigher(segment.a, height) == isHigher(segment.b, height)) continue;
      const double meeting = meetingAt(segment, height);
      std::size_t count = column(meeting);
      if (meeting > center(count, y).x) ++count;
      if (count > 0) enclosed_[y * columns_ + count - 1].flip();
    }
  for (std::size_t y = 0; y < rows_; ++y)
    for (std::size_t x = columns_ - 1; x > 0; --x)
      if (enclosed_[y * columns_ + x]) enclosed_[y * columns_ + x - 1].flip();
}

bool SegmentGrid::encloses(Point point) const {
  const Point high =
      low_ + Point{static_cast<double>(columns_), static_cast<double>(rows_)} * cell_;
  if (segments_.empty() ||
      !(point.x >= low_.x && point.x <= high.x && point.y >= low_.y && point.y <= high.y))
    return false;
  const std::size_t x = column(point.x);
  const std::size_t y = row(point.y);
  const std::size_t cell = y * columns_ + x;
  const Point middle = center(x, y);
  bool inside = enclosed_[cell];
  for (std::size_t i = starts_[cell]; i < starts_[cell + 1]; ++i)
    if (crossesWay(segments_[entries_[i]], point, middle)) inside = !inside;
  return inside;
}

}  // namespace orivanta::importer
