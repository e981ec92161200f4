#include <algorithm>
#include <map>
#include <utility>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

// What the things of one building on one level say.
struct Level {
  std::map<std::string, int> signs;  // how often each text occurs
  Names names;
  std::vector<Polygon> outlines;
};

// By building, as `OsmThing::building`, and ordinal.
using LevelsOfBuildings = std::map<std::pair<std::size_t, double>, Level>;

// Nodes of outlines and footways may have levels as well, which only tell about these.
bool isUsed(const OsmTags& tags, bool isNode) {
  return !isNode || isDoor(tags) || isElevator(tags) || isDestination(tags);
}

std::vector<std::string> splitSigns(std::string_view text) {
  std::vector<std::string> signs;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(';'), text.size());
    signs.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return signs;
}

void collect(const OsmThing& thing, OsmConversion& conversion, LevelsOfBuildings& levels) {
  const OsmTags& tags = *thing.tags;
  for (const std::vector<double>& list : thing.levels)
    for (const double ordinal : list) levels[{thing.building, ordinal}];
  const std::vector<double>& own = thing.levels.front();
  // A list of signs belongs to the list of levels if it is as long.
  const std::vector<std::string> signs = splitSigns(tags["level:ref"]);
  if (signs.size() == own.size())
    for (std::size_t i = 0; i < own.size(); ++i) ++levels[{thing.building, own[i]}].signs[signs[i]];
  if (!isLevelOutline(tags) || own.size() != 1) return;
  Level& level = levels[{thing.building, own[0]}];
  if (level.names.name.empty()) level.names = namesOf(tags);
  if (!tags.has("level:ref") && tags.has("ref")) ++level.signs[std::string(tags["ref"])];
  const std::vector<Polygon> outline = conversion.plane(thing.polygons);
  level.outlines.insert(level.outlines.end(), outline.begin(), outline.end());
}

std::string mostFrequent(const std::map<std::string, int>& signs) {
  const auto most = std::max_element(
      signs.begin(), signs.end(),
      [](const auto& first, const auto& second) { return first.second < second.second; });
  return most == signs.end() ? std::string() : most->first;
}

}  // namespace

void addStoreys(OsmConversion& conversion) {
  LevelsOfBuildings levels;
  for (const OsmThing& thing : conversion.things)
    if (!thing.levels.empty() && isUsed(*thing.tags, thing.isNode()))
      collect(thing, conversion, levels);
  for (const auto& [key, level] : levels) {
    const auto& [building, ordinal] = key;
    Storey storey;
    storey.ordinal = ordinal;
    storey.id = "level@" + levelText(ordinal);
    storey.names = level.names;
    storey.shortName = mostFrequent(level.signs);
    storey.footprint = level.outlines;
    if (building != 0) {
      const OsmThing& outline = conversion.things[conversion.buildings[building - 1]];
      storey.building = namesOf(*outline.tags).name;
      if (storey.building.empty()) storey.building = outline.id;
      if (storey.footprint.empty()) storey.footprint = conversion.plane(outline.polygons);
    }
    conversion.building.storeys.push_back(std::move(storey));
  }
}

}  // namespace orivanta::importer
