#include "Apps/DemoVenue/WalkingLines.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orivanta::demo {

namespace {
constexpr double reach = 4.0;  // maximum distance from an open end to another line
constexpr double same = 0.01;  // points closer than this are the same point
constexpr double close = 0.8;  // an attachment this close to a cut uses it
constexpr double longestStretch = 5.0;
}  // namespace

WalkingLines::WalkingLines(const std::vector<WalkingLine>& lines) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::vector<Point> points = lines[i].points;
    if (!lines[i].closed) {
      points.front() = nearestOnOtherLines(i, points.front(), lines);
      points.back() = nearestOnOtherLines(i, points.back(), lines);
    }
    addSegments(i, points, lines[i].closed);
  }
  cutWhereCrossing();
}

std::size_t WalkingLines::pointAt(Point position) {
  for (std::size_t i = 0; i < points_.size(); ++i)
    if (distance(points_[i], position) < same) return i;
  points_.push_back(position);
  return points_.size() - 1;
}

void WalkingLines::cut(Segment& segment, double fraction, std::size_t point) {
  for (const Cut& other : segment.cuts)
    if (other.point == point) return;
  const auto place = std::find_if(segment.cuts.begin(), segment.cuts.end(),
                                  [&](const Cut& other) { return other.fraction > fraction; });
  segment.cuts.insert(place, {fraction, point});
}

Point WalkingLines::nearestOnOtherLines(std::size_t line, Point end,
                                        const std::vector<WalkingLine>& lines) const {
  Point nearest = end;
  double best = reach;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i == line) continue;
    const auto& points = lines[i].points;
    const std::size_t count = lines[i].closed ? points.size() : points.size() - 1;
    for (std::size_t k = 0; k < count; ++k) {
      const Point a = points[k];
      const Point b = points[(k + 1) % points.size()];
      Point candidate = a + (b - a) * nearestFraction(a, b, end);
      for (const Point corner : {a, b})
        if (distance(candidate, corner) < close) candidate = corner;
      if (distance(candidate, end) >= best) continue;
      best = distance(candidate, end);
      nearest = candidate;
    }
  }
  return nearest;
}

void WalkingLines::addSegments(std::size_t line, const std::vector<Point>& points, bool closed) {
  const std::size_t count = closed ? points.size() : points.size() - 1;
  for (std::size_t i = 0; i < count; ++i) {
    const Point from = points[i];
    const Point to = points[(i + 1) % points.size()];
    Segment segment = {from, to, line, {}};
    segment.cuts = {{0.0, pointAt(from)}, {1.0, pointAt(to)}};
    segments_.push_back(std::move(segment));
  }
}

void WalkingLines::cutWhereCrossing() {
  for (Segment& one : segments_)
    for (Segment& other : segments_) {
      if (one.line == other.line) continue;
      for (const std::size_t end : {other.cuts.front().point, other.cuts.back().point})
        if (distanceToSegment(one.from, one.to, points_[end]) < same)
          cut(one, nearestFraction(one.from, one.to, points_[end]), end);
      if (one.line > other.line || !cross(one.from, one.to, other.from, other.to)) continue;
      const Point way = one.to - one.from;
      const Point across = other.to - other.from;
      const double fraction = cross(other.from - one.from, across) / cross(way, across);
      const std::size_t point = pointAt(one.from + way * fraction);
      cut(one, fraction, point);
      cut(other, nearestFraction(other.from, other.to, points_[point]), point);
    }
}

std::size_t WalkingLines::attach(Point point) {
  if (segments_.empty()) throw std::logic_error("no walking lines to attach to");
  const auto nearest = std::min_element(segments_.begin(), segments_.end(),
                                        [&](const Segment& one, const Segment& other) {
                                          return distanceToSegment(one.from, one.to, point) <
                                                 distanceToSegment(other.from, other.to, point);
                                        });
  const double fraction = nearestFraction(nearest->from, nearest->to, point);
  const Point position = nearest->from + (nearest->to - nearest->from) * fraction;
  for (const Cut& other : nearest->cuts)
    if (distance(points_[other.point], position) < close) return other.point;
  const std::size_t added = pointAt(position);
  cut(*nearest, fraction, added);
  return added;
}

void WalkingLines::subdivide() {
  for (Segment& segment : segments_) {
    const std::vector<Cut> cuts = segment.cuts;
    const double whole = distance(segment.from, segment.to);
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
      const double part = cuts[i + 1].fraction - cuts[i].fraction;
      const int pieces = static_cast<int>(std::ceil(part * whole / longestStretch - 1e-6));
      for (int piece = 1; piece < pieces; ++piece) {
        const double fraction = cuts[i].fraction + part * piece / pieces;
        cut(segment, fraction, pointAt(segment.from + (segment.to - segment.from) * fraction));
      }
    }
  }
}

WalkingLines::Stretches WalkingLines::stretches() const {
  Stretches result = {points_, {}};
  for (const Segment& segment : segments_)
    for (std::size_t i = 0; i + 1 < segment.cuts.size(); ++i)
      result.joined.emplace_back(segment.cuts[i].point, segment.cuts[i + 1].point);
  return result;
}

}  // namespace orivanta::demo
