#include "Apps/Import/Read/Osm/OsmLevels.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "Apps/Import/Read/Osm/OsmFootways.hpp"
#include "Apps/Import/Read/Osm/OsmLevelFindings.hpp"
#include "Apps/Import/Read/Osm/OsmLineLevels.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmNodeLevels.hpp"
#include "Apps/Import/Read/Osm/OsmTouching.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

using LevelList = std::vector<double>;

// A repetition on a level moves all levels so that the lowest is that one.
std::vector<LevelList> repeated(const LevelList& own, const LevelList& repetitions) {
  std::vector<LevelList> lists;
  if (!own.empty()) lists.push_back(own);
  for (const double start : repetitions) {
    if (own.empty()) {
      lists.push_back({start});
    } else if (start != own.front()) {
      LevelList& list = lists.emplace_back();
      for (const double level : own) list.push_back(roundedLevel(level + start - own.front()));
    }
  }
  return lists;
}

class LevelFinder {
 public:
  LevelFinder(std::vector<OsmThing>& things, const std::vector<std::size_t>& buildings,
              const std::string& file, const Limits& limits, Findings& findings)
      : things_(things),
        buildings_(buildings),
        file_(file),
        levelsLeft_(limits.vertices),
        findings_(findings),
        missing_(buildings.size()) {}

  void run() {
    for (OsmThing& thing : things_) readTags(thing);
    const std::optional<double> onlyLevel = onlyLevelOfAreas();
    const OsmTouching touching(things_);
    followLines(things_, touching, file_, findings_);
    takeFootways(things_, touching);
    for (OsmThing& thing : things_) {
      if (thing.isNode() && mayFollow(thing)) takeNodeLevels(thing, touching);
      if (!thing.levels.empty()) continue;
      if (onlyLevel && isLostDoor(thing))
        thing.levels = {{*onlyLevel}};
      else if (isLostLine(thing) || isLostDoor(thing))
        findings_.add(levelLost(thing, file_));
    }
  }

 private:
  Levels read(const OsmThing& thing, std::string_view key) {
    const std::string_view text = (*thing.tags)[key];
    Levels levels = parseLevels(text);
    if (!levels.unreadable.empty())
      findings_.add(levelUnreadable(thing, key, text, !levels.values.empty(), file_));
    if (!levels.isRange || thing.building == 0) return levels;
    const LevelList& missing = missingIn(thing.building - 1);
    levels.values.erase(std::remove_if(levels.values.begin(), levels.values.end(),
                                       [&](double level) {
                                         return std::binary_search(missing.begin(), missing.end(),
                                                                   level);
                                       }),
                        levels.values.end());
    return levels;
  }

  // The levels that a building does not have.
  const LevelList& missingIn(std::size_t building) {
    std::optional<LevelList>& missing = missing_[building];
    if (!missing)
      missing = parseLevels((*things_[buildings_[building]].tags)["non_existent_levels"]).values;
    return *missing;
  }

  // The level of all areas, if there is just one.
  std::optional<double> onlyLevelOfAreas() const {
    std::optional<double> only;
    for (const OsmThing& thing : things_) {
      if (!thing.isArea()) continue;
      for (const LevelList& list : thing.levels)
        for (const double level : list) {
          if (only && *only != level) return std::nullopt;
          only = level;
        }
    }
    return only;
  }

  void count(std::size_t levels) {
    if (levels > levelsLeft_)
      throw SourceError(fmt::format(
          "{}: the lists of levels are too long; choose a building with --building or --bounds",
          file_));
    levelsLeft_ -= levels;
  }

  void readTags(OsmThing& thing) {
    const OsmTags& tags = *thing.tags;
    if (isBuilding(tags)) return;
    if (tags.has("level") || tags.has("repeat_on")) {
      const Levels own = read(thing, "level");
      // Where the thing itself is is not known.
      if (!own.unreadable.empty() && own.values.empty()) return;
      const Levels repetitions = read(thing, "repeat_on");
      count(std::max<std::size_t>(own.values.size(), 1) * (1 + repetitions.values.size()));
      thing.levels = repeated(own.values, repetitions.values);
    } else if (isIndoors(tags) && thing.isArea() && (areaKind(tags) || isLevelOutline(tags))) {
      findings_.add(levelMissing(thing, file_));
      thing.levels = {{0.0}};
    } else if (thing.isArea() && thing.building != 0 && isConnectorOutline(tags)) {
      thing.levels = {{0.0}};
    }
  }

  static bool isConnectorOutline(const OsmTags& tags) {
    const auto kind = areaKind(tags);
    return kind && isConnector(*kind) && *kind != AreaKind::stairs;
  }

  // Whether a node without a level is surely a door within a building that has rooms.
  static bool isLostDoor(const OsmThing& thing) {
    return thing.isNode() && thing.building != 0 && thing.tags->has("door") &&
           !thing.tags->has("level");
  }

  std::vector<OsmThing>& things_;
  const std::vector<std::size_t>& buildings_;
  const std::string& file_;
  std::size_t levelsLeft_;
  Findings& findings_;
  std::vector<std::optional<LevelList>> missing_;  // by building
};

}  // namespace

void arrangeLevels(std::vector<OsmThing>& things, const std::vector<std::size_t>& buildings,
                   const std::string& file, const Limits& limits, Findings& findings) {
  LevelFinder(things, buildings, file, limits, findings).run();
}

}  // namespace orivanta::importer
