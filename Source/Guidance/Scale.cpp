#include "Source/Guidance/Scale.hpp"

#include "Source/Venue.hpp"

namespace orivanta::guidance {

std::optional<double> unitsPerMeterOf(const Venue& venue) {
  const double scale = venue._data["unitsPerMetre"].doubleValue();
  if (!(scale >= 1e-6 && scale <= 1e9)) return std::nullopt;
  return scale;
}

}  // namespace orivanta::guidance
