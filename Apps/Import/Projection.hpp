// Converts between geographic coordinates and meters on a plane.
#pragma once

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// A plane that touches the WGS 84 ellipsoid at its origin, with x pointing east and y north, both
/// in meters. Meters per degree come from the radii of curvature at the origin (Snyder, "Map
/// Projections: A Working Manual", 1987, p. 24): within 10 km of the origin, lengths are right to
/// one part in a thousand.
class Projection {
 public:
  explicit Projection(Georeference origin);

  /// From longitude and latitude in degrees.
  Point toPlane(double longitude, double latitude) const;
  Georeference origin() const { return origin_; }

 private:
  Georeference origin_;
  double metersPerDegreeEast_;
  double metersPerDegreeNorth_;
};

}  // namespace orivanta::importer
