// Chooses the origin of a building's plane.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/GeoJson.hpp"

namespace orivanta::importer {

/// Collects positions. Their median, rounded to a grid, is a good origin: a position far away does
/// not move it, and a small change of the building does not either.
class PlaneOrigin {
 public:
  void add(const GeoGeometry& geometry);
  void add(Point position);

  /// The origin if there is no position.
  Point rounded(double grid) const;

 private:
  std::vector<double> xs_;
  std::vector<double> ys_;
};

/// Calls `use` with all positions of a geometry.
template <class Use>
void forPositions(const GeoGeometry& geometry, const Use& use) {
  for (const Point point : geometry.points) use(point);
  for (const auto& line : geometry.lines)
    for (const Point point : line) use(point);
  for (const Polygon& polygon : geometry.polygons) {
    for (const Point point : polygon.outer) use(point);
    for (const Outline& hole : polygon.holes)
      for (const Point point : hole) use(point);
  }
}

/// Replaces all positions of a geometry.
template <class Change>
void changePositions(GeoGeometry& geometry, const Change& change) {
  for (Point& point : geometry.points) point = change(point);
  for (auto& line : geometry.lines)
    for (Point& point : line) point = change(point);
  for (Polygon& polygon : geometry.polygons) {
    for (Point& point : polygon.outer) point = change(point);
    for (Outline& hole : polygon.holes)
      for (Point& point : hole) point = change(point);
  }
}

/// The point half way along a line; the origin for an empty one.
Point middleOf(const std::vector<Point>& line);

double lengthOf(const std::vector<Point>& line);

}  // namespace orivanta::importer
