#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Read/Countries.hpp"
#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmLanguage.hpp"
#include "Apps/Import/Read/Osm/OsmLevels.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmReading.hpp"
#include "Apps/Import/Read/Osm/OsmSelection.hpp"
#include "Apps/Import/Read/Osm/OsmShapes.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"
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

// Tells why nothing is drawn.
[[noreturn]] void failForNothing(const std::string& file, const Findings& findings) {
  std::string cause = "rooms need the tags indoor=room and level=*";
  if (findings.countOf("nodes-missing") > 0)
    cause =
        "the positions of its ways are missing, so make the extract with complete ways, such as "
        "with \"out geom;\" at the end of a query to Overpass";
  for (const Finding& finding : findings.sorted()) {
    const bool isLevel = finding.rule == "level-unreadable";
    if (!isLevel && finding.rule != "answer-incomplete" && finding.rule != "file-cut") continue;
    cause = (isLevel ? "levels cannot be read, as of " + finding.source + ": " : "") +
            finding.message + ' ' + finding.advice;
    break;
  }
  throw SourceError(fmt::format("{}: nothing in it is indoors; {}", file, cause));
}

// The median of everything drawn, as a few things far away do not move it. They are left out.
// Throws if there are so many that the rest is no building.
Georeference originOf(std::vector<OsmThing>& things, const OsmData& data, const Limits& limits,
                      Findings& findings) {
  PlaneOrigin middle;
  std::size_t drawn = 0;
  for (const OsmThing& thing : things) {
    if (!isDrawn(thing)) continue;
    const Georeference own = georeferenceOf(thing.box.middle());
    middle.add({own.longitude, own.latitude});
    ++drawn;
  }
  if (drawn == 0) failForNothing(data.file(), findings);
  const Point rounded = middle.rounded(0.001);
  const Projection projection({rounded.y, rounded.x});
  std::vector<OsmThing*> far;
  for (OsmThing& thing : things) {
    if (thing.levels.empty()) continue;
    const Georeference own = georeferenceOf(thing.box.middle());
    const Point position = projection.toPlane(own.longitude, own.latitude);
    if (std::max(std::abs(position.x), std::abs(position.y)) > limits.extentMeters / 4.0)
      far.push_back(&thing);
  }
  if (10 * far.size() > drawn)
    throw SourceError(
        fmt::format("{}: the indoor data extends over more than {:.0f} km; choose a building with "
                    "--building or "
                    "a part with --bounds",
                    data.file(), limits.extentMeters / 2000.0));
  for (OsmThing* thing : far) {
    thing->levels.clear();
    Finding finding =
        makeFinding(Severity::warning, "far-away", thing->id,
                    {"It lies kilometers away from everything else.", "It is left out.",
                     "Correct its position, or import it by itself with --building or --bounds."});
    finding.file = data.file();
    findings.add(std::move(finding));
  }
  return projection.origin();
}

// Names the building after the named area around most drawn areas.
void nameAfterArea(const std::vector<OsmThing>& things, Building& building) {
  constexpr std::size_t mostCandidates = 500;
  std::size_t candidates = 0;
  std::size_t most = 0;
  for (const OsmThing& area : things) {
    if (!area.isArea() || !area.levels.empty() || !isNamed(*area.tags)) continue;
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

// Reports tags of rooms that a person may expect on the map.
void reportUnusedTags(OsmConversion& conversion) {
  std::size_t addresses = 0;
  for (const OsmThing& thing : conversion.things) {
    if (thing.levels.empty() || !isDestination(*thing.tags)) continue;
    addresses += std::any_of(thing.tags->begin(), thing.tags->end(),
                             [](const auto& tag) { return tag.first.starts_with("addr:"); })
                     ? 1
                     : 0;
  }
  if (addresses == 0) return;
  Finding finding = makeFinding(Severity::info, "not-imported", "",
                                {fmt::format("{} places have an address of their own.", addresses),
                                 "Addresses are not part of the package, so they are left out."});
  finding.file = conversion.data.file();
  finding.field = "addr:*";
  conversion.findings.add(std::move(finding));
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

// Texts are copied as often as shapes are.
void OsmConversion::count(std::size_t number, const OsmTags& tags) {
  constexpr std::size_t bytesOfPoint = 16;
  number += tags.bytes() / bytesOfPoint;
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
    if (isNamed(*outline.tags)) building.names = namesOf(*outline.tags);
  }
  if (building.names.name.empty()) nameAfterArea(things, building);
}

Building buildingFromOsm(const OsmData& data, const Options& options, Findings& findings) {
  std::vector<OsmThing> things = thingsOf(data, options.limits, findings);
  if (options.bounds) keepWithin(things, *options.bounds);
  if (!options.building.empty()) keepBuilding(things, options.building, data.file(), findings);
  const std::vector<std::size_t> buildings = assignBuildings(things, data.file(), findings);
  arrangeLevels(things, buildings, data.file(), options.limits, findings);
  const Georeference origin = originOf(things, data, options.limits, findings);
  OsmConversion conversion{
      data, things, buildings, options, findings, OsmTouching(things), Projection(origin), {}, 0};
  nameBuilding(conversion);
  if (data.isPublished()) {
    conversion.building.attribution = "© OpenStreetMap contributors (openstreetmap.org/copyright)";
    conversion.building.license = "Open Database License 1.0 (ODbL)";
  }
  conversion.building.georeference = origin;
  addStoreys(conversion);
  addAreas(conversion);
  addDoors(conversion);
  addLines(conversion);
  addElevators(conversion);
  addSpots(conversion);
  addSourceNetwork(conversion);
  reportUnusedTags(conversion);
  for (const OsmThing& thing : things)
    if (thing.tags->has("addr:country")) {
      reportIfSwapped(origin, (*thing.tags)["addr:country"], data.file(), findings);
      break;
    }
  return std::move(conversion.building);
}

}  // namespace orivanta::importer
