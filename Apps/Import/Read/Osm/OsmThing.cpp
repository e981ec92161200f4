#include "Apps/Import/Read/Osm/OsmThing.hpp"

#include <algorithm>

namespace orivanta::importer {

namespace {

bool contains(const OsmRing& ring, OsmPosition position) {
  bool isInside = false;
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    const OsmPosition from = ring[i];
    const OsmPosition to = ring[i + 1];
    if ((from.latitude > position.latitude) == (to.latitude > position.latitude)) continue;
    const double share = (static_cast<double>(position.latitude) - from.latitude) /
                         (static_cast<double>(to.latitude) - from.latitude);
    const double crossing =
        from.longitude + share * (static_cast<double>(to.longitude) - from.longitude);
    if (crossing > position.longitude) isInside = !isInside;
  }
  return isInside;
}

}  // namespace

void OsmBox::add(OsmPosition position) {
  low = {std::min(low.longitude, position.longitude), std::min(low.latitude, position.latitude)};
  high = {std::max(high.longitude, position.longitude), std::max(high.latitude, position.latitude)};
}

bool OsmBox::contains(OsmPosition position) const {
  return low.longitude <= position.longitude && position.longitude <= high.longitude &&
         low.latitude <= position.latitude && position.latitude <= high.latitude;
}

bool OsmBox::meets(const OsmBox& other) const {
  return low.longitude <= other.high.longitude && other.low.longitude <= high.longitude &&
         low.latitude <= other.high.latitude && other.low.latitude <= high.latitude;
}

OsmPosition OsmBox::middle() const {
  return {static_cast<std::int32_t>((std::int64_t{low.longitude} + high.longitude) / 2),
          static_cast<std::int32_t>((std::int64_t{low.latitude} + high.latitude) / 2)};
}

bool contains(const OsmThing& area, OsmPosition position) {
  if (!area.box.contains(position)) return false;
  return std::any_of(area.polygons.begin(), area.polygons.end(), [&](const OsmPolygon& polygon) {
    return contains(polygon.outer, position) &&
           std::none_of(polygon.holes.begin(), polygon.holes.end(),
                        [&](const OsmRing& hole) { return contains(hole, position); });
  });
}

}  // namespace orivanta::importer
