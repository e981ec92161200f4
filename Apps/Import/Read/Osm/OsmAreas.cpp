#include <fmt/core.h>

#include <algorithm>
#include <set>
#include <utility>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmPlaces.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

// Corridors and footways have the names of streets; nobody searches for them.
bool isPlace(const OsmTags& tags, AreaKind kind) {
  if (isConnector(kind) || kind == AreaKind::opening || kind == AreaKind::wall) return false;
  const bool isKnown = isNamed(tags) || tags.has("ref");
  if (kind == AreaKind::room) return isKnown || isDestination(tags);
  if (tags.is("amenity", "parking")) return true;
  return isKnown && !tags.is("indoor", "corridor") && !tags.is("room", "corridor") &&
         !tags.is("buildingpart", "corridor") &&
         (!tags.has("highway") || tags.is("highway", "platform"));
}

Area areaOf(const OsmThing& thing, AreaKind kind) {
  const OsmTags& tags = *thing.tags;
  Area area;
  area.source = thing.id;
  area.kind = kind;
  area.category = categoryOf(tags);
  area.access = accessOf(tags);
  area.wheelchair = wheelchairOf(tags);
  if (!isConnector(kind)) return area;
  area.names = namesOf(tags);
  area.direction = directionOfArea(tags);
  const bool joins = thing.levels.size() > 1 || thing.levels.front().size() > 1;
  if (joins) area.connector = thing.id;
  return area;
}

void addArea(const OsmThing& thing, AreaKind kind, OsmConversion& conversion) {
  const Area pattern = areaOf(thing, kind);
  const std::vector<Polygon> shape = conversion.plane(thing.polygons);
  std::size_t corners = 0;
  for (const Polygon& polygon : shape) {
    corners += polygon.outer.size();
    for (const Outline& hole : polygon.holes) corners += hole.size();
  }
  std::set<double> seen;
  for (const std::vector<double>& levels : thing.levels) {
    Place place;
    const bool isFirst = &levels == &thing.levels.front();
    const std::string id = isFirst ? thing.id : thing.id + "@" + levelText(levels.front());
    for (const double level : levels) {
      if (!seen.insert(level).second) continue;
      conversion.count(corners, *thing.tags);
      Area area = pattern;
      area.id = idOn(thing, level);
      area.level = level;
      area.shape = shape;
      if (isPlace(*thing.tags, kind)) area.place = id;
      place.areas.push_back(area.id);
      conversion.building.areas.push_back(std::move(area));
    }
    if (place.areas.empty() || !isPlace(*thing.tags, kind)) continue;
    describePlace(thing, id, place);
    conversion.building.places.push_back(std::move(place));
  }
}

}  // namespace

void addAreas(OsmConversion& conversion) {
  for (const OsmThing& thing : conversion.things) {
    if (!thing.isArea() || thing.levels.empty()) continue;
    if (const auto kind = areaKind(*thing.tags)) addArea(thing, *kind, conversion);
  }
}

}  // namespace orivanta::importer
