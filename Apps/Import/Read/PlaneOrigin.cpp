#include "Apps/Import/Read/PlaneOrigin.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta::importer {

namespace {

double roundedMedian(std::vector<double> values, double grid) {
  if (values.empty()) return 0.0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return std::round(*middle / grid) * grid;
}

}  // namespace

void PlaneOrigin::add(Point position) {
  xs_.push_back(position.x);
  ys_.push_back(position.y);
}

void PlaneOrigin::add(const GeoGeometry& geometry) {
  for (const Point point : geometry.points) add(point);
  for (const auto& line : geometry.lines)
    for (const Point point : line) add(point);
  for (const Polygon& polygon : geometry.polygons)
    for (const Point point : polygon.outer) add(point);
}

Point PlaneOrigin::rounded(double grid) const {
  return {roundedMedian(xs_, grid), roundedMedian(ys_, grid)};
}

Point middleOf(const std::vector<Point>& line) {
  if (line.empty()) return {};
  double left = lengthOf(line) / 2.0;
  for (std::size_t each = 1; each < line.size(); ++each) {
    const double length = package::distance(line[each - 1], line[each]);
    if (left <= length && length > 0.0)
      return line[each - 1] + (line[each] - line[each - 1]) * (left / length);
    left -= length;
  }
  return line.back();
}

double lengthOf(const std::vector<Point>& line) {
  double length = 0.0;
  for (std::size_t each = 1; each < line.size(); ++each)
    length += package::distance(line[each - 1], line[each]);
  return length;
}

}  // namespace orivanta::importer
