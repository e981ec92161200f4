#include <algorithm>
#include <set>
#include <utility>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

bool isElevatorArea(const OsmThing& thing) {
  return thing.isArea() && !thing.levels.empty() && areaKind(*thing.tags) == AreaKind::elevator;
}

// The nodes that lie in the areas of elevators, which say the same.
std::set<OsmPosition> positionsInAreas(const OsmConversion& conversion) {
  std::vector<OsmPosition> nodes;
  for (const OsmThing& thing : conversion.things)
    if (thing.isNode() && isElevator(*thing.tags)) nodes.push_back(thing.points[0]);
  std::sort(nodes.begin(), nodes.end());
  std::set<OsmPosition> inside;
  for (const OsmThing& thing : conversion.things) {
    if (!isElevatorArea(thing)) continue;
    for (auto at = std::lower_bound(nodes.begin(), nodes.end(), thing.box.low);
         at != nodes.end() && at->longitude <= thing.box.high.longitude; ++at)
      if (contains(thing, *at)) inside.insert(*at);
    for (const OsmPolygon& polygon : thing.polygons)
      inside.insert(polygon.outer.begin(), polygon.outer.end());
  }
  return inside;
}

void reportWithoutLevels(const OsmThing& thing, OsmConversion& conversion) {
  Finding finding;
  finding.rule = "elevator-without-levels";
  finding.source = thing.id;
  finding.file = conversion.data.file();
  finding.field = "level";
  finding.position = conversion.plane(thing.points[0]);
  if (!thing.levels.empty()) finding.level = thing.levels.front().front();
  finding.message = "The elevator has fewer than two levels.";
  finding.effect = "It joins no storeys.";
  finding.advice = "List all its levels, such as \"level=0;1;2\".";
  conversion.findings.add(std::move(finding));
}

}  // namespace

void addElevators(OsmConversion& conversion) {
  const std::set<OsmPosition> inside = positionsInAreas(conversion);
  for (const OsmThing& thing : conversion.things) {
    if (!thing.isNode() || !isElevator(*thing.tags) || inside.contains(thing.points[0])) continue;
    std::set<double> levels;
    for (const std::vector<double>& list : thing.levels) levels.insert(list.begin(), list.end());
    const bool isNear = thing.building != 0 || isIndoors(*thing.tags) || !levels.empty();
    if (levels.size() < 2 && isNear) reportWithoutLevels(thing, conversion);
    if (levels.size() < 2) continue;
    conversion.count(levels.size(), *thing.tags);
    ConnectorHint hint;
    hint.id = thing.id;
    hint.source = thing.id;
    hint.kind = ConnectorKind::elevator;
    hint.names = namesOf(*thing.tags);
    for (const double level : levels)
      hint.spots.push_back({level, conversion.plane(thing.points[0])});
    hint.wheelchair = wheelchairOf(*thing.tags);
    hint.direction = Direction::both;
    conversion.building.connectorHints.push_back(std::move(hint));
  }
}

}  // namespace orivanta::importer
