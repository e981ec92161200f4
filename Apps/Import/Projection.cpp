#include "Apps/Import/Projection.hpp"

#include <cmath>
#include <numbers>

namespace orivanta::importer {

Projection::Projection(Georeference origin) : origin_(origin) {
  constexpr double semiMajorAxis = 6378137.0;
  constexpr double flattening = 1.0 / 298.257223563;
  constexpr double eccentricitySquared = flattening * (2.0 - flattening);
  constexpr double degree = std::numbers::pi / 180.0;
  const double latitude = origin.latitude * degree;
  const double root =
      std::sqrt(1.0 - eccentricitySquared * std::sin(latitude) * std::sin(latitude));
  const double primeVertical = semiMajorAxis / root;
  const double meridional = semiMajorAxis * (1.0 - eccentricitySquared) / (root * root * root);
  metersPerDegreeEast_ = primeVertical * std::cos(latitude) * degree;
  metersPerDegreeNorth_ = meridional * degree;
}

Point Projection::toPlane(double longitude, double latitude) const {
  double east = longitude - origin_.longitude;
  // Across the 180th meridian, the shorter way.
  if (east > 180.0) east -= 360.0;
  if (east < -180.0) east += 360.0;
  return {east * metersPerDegreeEast_, (latitude - origin_.latitude) * metersPerDegreeNorth_};
}

}  // namespace orivanta::importer
