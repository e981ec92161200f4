#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmLanguage.hpp"
#include "Apps/Import/Read/Osm/OsmLevels.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmReading.hpp"
#include "Apps/Import/Read/Osm/OsmSelection.hpp"
#include "Apps/Import/Read/Osm/OsmShapes.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

constexpr double degreesPerUnit = 1e-7;

// Whether it is drawn on a map of the indoors, by itself.
bool isDrawn(const OsmThing& thing) {
  if (thing.levels.empty() || thing.isNode()) return false;
  return thing.isArea() ? areaKind(*thing.tags).has_value() : isIndoors(*thing.tags);
}

Georeference georeferenceOf(OsmPosition position) {
  return {position.latitude * degreesPerUnit, position.longitude * degreesPerUnit};
}

// The middle of everything drawn. Throws if it does not fit into one map.
Georeference originOf(const std::vector<OsmThing>& things, const OsmData& data,
                      const Limits& limits) {
  OsmBox box;
  bool any = false;
  for (const OsmThing& thing : things) {
    if (!isDrawn(thing)) continue;
    box.add(thing.box.middle());
    any = true;
  }
  if (!any)
    throw SourceError(fmt::format(
        "{}: nothing in it is indoors; rooms need the tags indoor=room and level=*", data.file()));
  const Georeference low = georeferenceOf(box.low);
  const Georeference high = georeferenceOf(box.high);
  const Projection projection(georeferenceOf(box.middle()));
  const Point corner = projection.toPlane(high.longitude, high.latitude) -
                       projection.toPlane(low.longitude, low.latitude);
  const double extent = std::max(std::abs(corner.x), std::abs(corner.y));
  if (extent > limits.extentMeters)
    throw SourceError(fmt::format(
        "{}: the indoor data extends over {:.0f} km; choose a building with --building or a part "
        "with --bounds",
        data.file(), extent / 1000.0));
  return georeferenceOf(box.middle());
}

// Names the building after the named area around most drawn areas.
void nameAfterArea(const std::vector<OsmThing>& things, Building& building) {
  constexpr std::size_t mostCandidates = 500;
  std::size_t candidates = 0;
  std::size_t most = 0;
  for (const OsmThing& area : things) {
    if (!area.isArea() || !area.levels.empty() || !area.tags->has("name")) continue;
    if (++candidates > mostCandidates) return;
    const auto inside = static_cast<std::size_t>(
        std::count_if(things.begin(), things.end(), [&](const OsmThing& thing) {
          return thing.isArea() && isDrawn(thing) && contains(area, thing.box.middle());
        }));
    if (inside <= most) continue;
    most = inside;
    building.names = namesOf(*area.tags);
  }
}

}  // namespace

Point OsmConversion::plane(OsmPosition position) const {
  return projection.toPlane(position.longitude * degreesPerUnit,
                            position.latitude * degreesPerUnit);
}

std::vector<Point> OsmConversion::plane(const std::vector<OsmPosition>& positions) const {
  std::vector<Point> points;
  points.reserve(positions.size());
  for (const OsmPosition position : positions) points.push_back(plane(position));
  return points;
}

std::vector<Polygon> OsmConversion::plane(const std::vector<OsmPolygon>& polygons) const {
  std::vector<Polygon> result;
  for (const OsmPolygon& polygon : polygons) {
    Polygon& added = result.emplace_back();
    added.outer = plane(polygon.outer);
    for (const OsmRing& hole : polygon.holes) added.holes.push_back(plane(hole));
  }
  return result;
}

void OsmConversion::count(std::size_t number) {
  vertices += number;
  if (vertices > options.limits.vertices)
    throw SourceError(fmt::format(
        "{}: the building has more than {} points; choose a part with --building or --bounds",
        data.file(), options.limits.vertices));
}

std::string idOn(const OsmThing& thing, double level) {
  const bool isSingle = thing.levels.size() == 1 && thing.levels.front().size() == 1;
  return isSingle ? thing.id : thing.id + "@" + levelText(level);
}

// The building around most areas, or, where that has no name, another named area such as a mall.
void nameBuilding(OsmConversion& conversion) {
  const std::vector<OsmThing>& things = conversion.things;
  Building& building = conversion.building;
  building.id = "osm";
  building.language = languageOf(things);
  std::vector<std::size_t> inside(conversion.buildings.size() + 1);
  for (const OsmThing& thing : things)
    if (isDrawn(thing) && thing.isArea()) ++inside[thing.building];
  inside.front() = 0;
  const auto most = std::max_element(inside.begin(), inside.end());
  if (*most > 0) {
    const auto index = static_cast<std::size_t>(most - inside.begin()) - 1;
    const OsmThing& outline = things[conversion.buildings[index]];
    building.id = outline.id;
    if (outline.tags->has("name")) building.names = namesOf(*outline.tags);
  }
  if (building.names.name.empty()) nameAfterArea(things, building);
}

Building buildingFromOsm(const OsmData& data, const Options& options, Findings& findings) {
  std::vector<OsmThing> things = thingsOf(data, findings);
  if (options.bounds) keepWithin(things, *options.bounds);
  if (!options.building.empty()) keepBuilding(things, options.building, data.file());
  const std::vector<std::size_t> buildings = assignBuildings(things);
  arrangeLevels(things, buildings, data.file(), findings);
  const Georeference origin = originOf(things, data, options.limits);
  OsmConversion conversion{
      data, things, buildings, options, findings, OsmTouching(things), Projection(origin), {}, 0};
  nameBuilding(conversion);
  conversion.building.attribution = "© OpenStreetMap contributors (openstreetmap.org/copyright)";
  conversion.building.license = "Open Database License 1.0 (ODbL)";
  conversion.building.georeference = origin;
  addStoreys(conversion);
  addAreas(conversion);
  addDoors(conversion);
  addLines(conversion);
  addElevators(conversion);
  addSpots(conversion);
  addSourceNetwork(conversion);
  return std::move(conversion.building);
}

}  // namespace orivanta::importer
