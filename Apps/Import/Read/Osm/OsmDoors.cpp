#include <algorithm>
#include <set>
#include <utility>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

bool isOn(const OsmThing& thing, double level) {
  return std::any_of(thing.levels.begin(), thing.levels.end(),
                     [&](const std::vector<double>& levels) {
                       return std::find(levels.begin(), levels.end(), level) != levels.end();
                     });
}

// The areas on the level on whose outlines the position is.
std::vector<std::string> areasAt(const OsmConversion& conversion, OsmPosition position,
                                 double level) {
  std::vector<std::string> areas;
  conversion.touching.forEachAt(position, [&](const OsmThing& thing, bool) {
    if (thing.isArea() && areaKind(*thing.tags) && isOn(thing, level))
      areas.push_back(idOn(thing, level));
  });
  return areas;
}

DoorKind kindOf(const OsmTags& tags, std::size_t areas, bool isOnBuilding) {
  if (tags.is("entrance", "emergency") || tags.is("exit", "emergency") ||
      tags.is("emergency", "exit"))
    return DoorKind::emergency;
  if (tags.has("barrier") || tags.is("railway", "ticket_gate")) return DoorKind::gate;
  const bool isEntrance = tags.has("entrance") && !tags.is("entrance", "no");
  if (isEntrance && (areas < 2 || isOnBuilding)) return DoorKind::entrance;
  return tags.is("door", "no") ? DoorKind::passage : DoorKind::door;
}

std::set<OsmPosition> cornersOfBuildings(const OsmConversion& conversion) {
  std::set<OsmPosition> corners;
  for (const std::size_t building : conversion.buildings)
    for (const OsmPolygon& polygon : conversion.things[building].polygons)
      corners.insert(polygon.outer.begin(), polygon.outer.end());
  return corners;
}

}  // namespace

void addDoors(OsmConversion& conversion) {
  const std::set<OsmPosition> corners = cornersOfBuildings(conversion);
  for (const OsmThing& thing : conversion.things) {
    if (!thing.isNode() || !isDoor(*thing.tags)) continue;
    const OsmTags& tags = *thing.tags;
    std::set<double> levels;
    for (const std::vector<double>& list : thing.levels) levels.insert(list.begin(), list.end());
    for (const double level : levels) {
      conversion.count(1, tags);
      Door door;
      door.id = idOn(thing, level);
      door.source = thing.id;
      door.level = level;
      door.position = conversion.plane(thing.points[0]);
      door.areas = areasAt(conversion, thing.points[0], level);
      door.kind = kindOf(tags, door.areas.size(), corners.contains(thing.points[0]));
      door.width = widthOf(tags);
      door.names = namesOf(tags);
      door.access = accessOf(tags);
      door.wheelchair = wheelchairOf(tags);
      conversion.building.doors.push_back(std::move(door));
    }
  }
}

}  // namespace orivanta::importer
