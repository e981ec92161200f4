#include "Apps/Import/Read/Osm/OsmTouching.hpp"

#include <cmath>
#include <numbers>

#include "Apps/Import/Read/Osm/OsmMeaning.hpp"

namespace orivanta::importer {

namespace {

// Whether a line turns by less than 30 degrees at the middle one of three positions.
bool isStraight(OsmPosition before, OsmPosition at, OsmPosition after) {
  const double narrowing = std::cos(at.latitude * 1e-7 * std::numbers::pi / 180.0);
  const auto toward = [&](OsmPosition from, OsmPosition to) {
    return Point{(static_cast<double>(to.longitude) - from.longitude) * narrowing,
                 static_cast<double>(to.latitude) - from.latitude};
  };
  const Point arriving = toward(before, at);
  const Point leaving = toward(at, after);
  constexpr double cosine = 0.866;
  return package::dot(arriving, leaving) >
         cosine * package::length(arriving) * package::length(leaving);
}

}  // namespace

OsmTouching::OsmTouching(const std::vector<OsmThing>& things) : things_(things) {
  for (std::uint32_t i = 0; i < things.size(); ++i) {
    if (isBuilding(*things[i].tags)) continue;
    for (const OsmPosition position : things[i].points) corners_.push_back({position, i, false});
    for (const OsmPolygon& polygon : things[i].polygons) {
      addRing(polygon.outer, i);
      for (const OsmRing& hole : polygon.holes) addRing(hole, i);
    }
  }
  std::sort(corners_.begin(), corners_.end());
  corners_.erase(std::unique(corners_.begin(), corners_.end()), corners_.end());
}

void OsmTouching::addRing(const OsmRing& ring, std::uint32_t thing) {
  // The first position is also the last.
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    const OsmPosition before = i == 0 ? ring[ring.size() - 2] : ring[i - 1];
    corners_.push_back({ring[i], thing, isStraight(before, ring[i], ring[i + 1])});
  }
}

std::set<double> OsmTouching::levelsAt(OsmPosition position) const {
  std::set<double> levels;
  forEachAt(position, [&](const OsmThing& thing, bool) {
    for (const std::vector<double>& list : thing.levels)
      if (list.size() == 1) levels.insert(list[0]);
  });
  return levels;
}

}  // namespace orivanta::importer
