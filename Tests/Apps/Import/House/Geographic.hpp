// Where the house's meters are on the globe.
#pragma once

#include "Apps/Import/Projection.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer::house {

/// Longitude and latitude in degrees.
inline Point toDegrees(Point meters) {
  const Point perDegree = Projection(origin).toPlane(origin.longitude + 1, origin.latitude + 1);
  return {origin.longitude + meters.x / perDegree.x, origin.latitude + meters.y / perDegree.y};
}

/// The ends of an opening one meter wide in the wall of the area that the door is on.
inline std::vector<Point> openingOf(const Building& building, const Door& door) {
  for (const Area& area : building.areas) {
    if (area.level != door.level || (!door.areas.empty() && area.id != door.areas.front()))
      continue;
    const auto along = [&](const Outline& outline) -> std::vector<Point> {
      for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point from = outline[i];
        const Point to = outline[(i + 1) % outline.size()];
        if (package::distanceToSegment(from, to, door.position) > 1e-6) continue;
        const Point half = (to - from) * (0.5 / package::distance(from, to));
        return {door.position - half, door.position + half};
      }
      return {};
    };
    if (auto ends = along(area.shape.front().outer); !ends.empty()) return ends;
    for (const Outline& hole : area.shape.front().holes)
      if (auto ends = along(hole); !ends.empty()) return ends;
  }
  return {};
}

}  // namespace orivanta::importer::house
