// Set operations on areas: repair, union, difference, margins.
//
// A thin layer over GEOS, which nothing outside this folder includes. All functions take and return
// plain polygons in meters and may be called from any thread. An operation that fails is repeated
// with rounded input. If that fails, too, the first argument is returned as it is; a repair and
// `snapped` then return nothing.
#pragma once

#include <optional>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Package/Box.hpp"

namespace orivanta::importer {

/// A set of polygons. Results are valid: their interiors do not overlap, outer rings are
/// counterclockwise, holes clockwise, and no point is repeated.
using Shape = std::vector<Polygon>;

/// Makes any finite input valid. Crossed outlines keep the area that they enclose.
Shape repaired(const Shape& shape);

/// Whether the shape is valid apart from the direction of its rings.
bool isValid(const Shape& shape);

/// The union of valid polygons that may overlap each other.
Shape united(const Shape& shape);

/// The first shape without the second. Both must be valid.
Shape without(const Shape& shape, const Shape& removed);

/// What two valid shapes have in common.
Shape common(const Shape& first, const Shape& second);

/// The parts of a valid polygon in a rectangle. Much faster than `common`.
Shape clipped(const Polygon& polygon, const package::Box& box);

/// Moves all borders outward (inward if `margin` is negative). Corners stay sharp.
Shape withMargin(const Shape& shape, double margin);

/// The area within a distance of a line, with flat ends.
Shape strip(const std::vector<Point>& line, double distance);

/// The center of the largest circle in a polygon, to within `precision` meters; the centroid if it
/// is one. Nothing if the operation fails.
std::optional<Point> centerOfLargestCircle(const Polygon& polygon, double precision);

/// The narrowest rectangle around points, in any direction: its corners in order. Empty if the
/// points lie on one line.
Outline narrowestRectangle(const std::vector<Point>& points);

/// Rounds all coordinates to multiples of `grid`, without letting borders cross.
Shape snapped(const Shape& shape, double grid);

/// The polygons of both shapes, not united.
Shape joined(Shape first, const Shape& second);

/// The bounds of the outer rings; empty without any.
package::Box boxOf(const Shape& shape);

/// Square meters; polygons that overlap count twice.
double areaOf(const Polygon& polygon);
double areaOf(const Shape& shape);

/// Whether the point lies in the shape. Linear in the number of points; the result is unspecified
/// for points on the border.
bool contains(const Shape& shape, Point point);

/// The distance to the nearest border of a polygon.
double distanceToBorders(const Polygon& polygon, Point point);

/// The distance to the shape, 0 within it. Linear in the number of points.
double distanceTo(const Shape& shape, Point point);

}  // namespace orivanta::importer
