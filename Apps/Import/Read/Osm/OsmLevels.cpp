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
    // Each round may settle lines that touch those of the round before.
    constexpr int rounds = 8;
    bool isChanged = true;
    for (int round = 0; round < rounds && isChanged; ++round) {
      isChanged = false;
      for (OsmThing& thing : things_)
        if (thing.isLine() && mayFollow(thing)) isChanged |= followLine(thing, touching);
    }
    takeFootways(things_, touching);
    for (OsmThing& thing : things_) {
      if (thing.isNode() && mayFollow(thing)) takeNodeLevels(thing, touching);
      if (!thing.levels.empty()) continue;
      if (onlyLevel && isLostDoor(thing))
        thing.levels = {{*onlyLevel}};
      else if (thing.isLine() ? isLost(*thing.tags) : isLostDoor(thing))
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

  // Whether the thing has no level of its own, and may get one from others.
  static bool mayFollow(const OsmThing& thing) {
    if (thing.tags->has("level") || thing.tags->has("repeat_on"))
      return thing.isLine() && thing.levels.size() == 1 && thing.levels[0].size() == 1 &&
             isFlight(thing);
    return thing.levels.empty();
  }

  static bool isFlight(const OsmThing& thing) {
    const auto kind = lineKind(*thing.tags);
    return kind == LineKind::steps || kind == LineKind::escalator ||
           kind == LineKind::movingWalkway;
  }

  bool followLine(OsmThing& thing, const OsmTouching& touching) const {
    const std::set<double> first = touching.levelsAt(thing.points.front());
    const std::set<double> last = touching.levelsAt(thing.points.back());
    LevelList levels;
    if (!first.empty() && !last.empty()) {
      levels = isFlight(thing) ? differing(first, last) : common(first, last);
    } else if (thing.tags->is("indoor", "yes") || thing.building != 0) {
      const std::set<double>& known = first.empty() ? last : first;
      if (known.size() == 1) levels = {*known.begin()};
    }
    if (levels.empty() ||
        (!thing.levels.empty() && (levels.size() < 2 || !includesOwn(thing, levels))))
      return false;
    thing.levels = {levels};
    return true;
  }

  // Whether a line without a level is surely one of a building.
  static bool isLost(const OsmTags& tags) {
    return !tags.has("level") && !tags.has("repeat_on") && isIndoors(tags);
  }

  // Whether a node without a level is surely a door within a building that has rooms.
  static bool isLostDoor(const OsmThing& thing) {
    return thing.isNode() && thing.building != 0 && thing.tags->has("door") &&
           !thing.tags->has("level");
  }

  static bool includesOwn(const OsmThing& thing, const LevelList& levels) {
    return std::find(levels.begin(), levels.end(), thing.levels[0][0]) != levels.end();
  }

  // The two different levels that are nearest to each other.
  static LevelList differing(const std::set<double>& first, const std::set<double>& last) {
    LevelList best;
    const auto consider = [&](double one, double other) {
      if (best.empty() || std::abs(one - other) < best[1] - best[0])
        best = {std::min(one, other), std::max(one, other)};
    };
    for (const double one : first) {
      if (const auto above = last.upper_bound(one); above != last.end()) consider(one, *above);
      if (const auto below = last.lower_bound(one); below != last.begin())
        consider(one, *std::prev(below));
    }
    if (best.empty()) best = {*first.begin()};
    return best;
  }

  static LevelList common(const std::set<double>& first, const std::set<double>& last) {
    for (const double level : first)
      if (last.contains(level)) return {level};
    return {};
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
