#include "Apps/Import/Geometry/Extent.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace orivanta::importer {

namespace {

double median(std::vector<double>& values) {
  if (values.empty()) return 0.0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

template <typename Visit>
void eachPoint(const std::vector<Polygon>& shape, Visit visit) {
  for (const Polygon& polygon : shape) {
    for (const Point point : polygon.outer) visit(point);
    for (const Outline& hole : polygon.holes)
      for (const Point point : hole) visit(point);
  }
}

template <typename Visit>
void eachPoint(const Building& building, Visit visit) {
  for (const Area& area : building.areas) eachPoint(area.shape, visit);
  for (const Line& line : building.lines)
    for (const Point point : line.points) visit(point);
  for (const Door& door : building.doors) visit(door.position);
  for (const SourceNode& node : building.sourceNodes) visit(node.spot.position);
  for (const Place& place : building.places)
    for (const Spot& spot : place.spots) visit(spot.position);
}

}  // namespace

Extent::Extent(const Building& building, double radius) : radius_(radius) {
  std::vector<double> x;
  std::vector<double> y;
  eachPoint(building, [&](Point point) {
    ++points_;
    if (std::isfinite(point.x)) x.push_back(point.x);
    if (std::isfinite(point.y)) y.push_back(point.y);
  });
  middle_ = {median(x), median(y)};
}

bool Extent::holds(Point point) const {
  return std::isfinite(point.x) && std::isfinite(point.y) &&
         std::abs(point.x - middle_.x) <= radius_ && std::abs(point.y - middle_.y) <= radius_;
}

}  // namespace orivanta::importer
