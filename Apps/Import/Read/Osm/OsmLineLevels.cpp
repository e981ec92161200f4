#include "Apps/Import/Read/Osm/OsmLineLevels.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

#include "Apps/Import/Read/Osm/OsmLevelFindings.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"

namespace orivanta::importer {

namespace {

using LevelList = std::vector<double>;

bool isFlight(const OsmThing& thing) {
  const auto kind = lineKind(*thing.tags);
  return kind == LineKind::steps || kind == LineKind::escalator || kind == LineKind::movingWalkway;
}

bool includesOwn(const OsmThing& thing, const LevelList& levels) {
  return std::find(levels.begin(), levels.end(), thing.levels[0][0]) != levels.end();
}

// The two different levels that are nearest to each other.
LevelList differing(const std::set<double>& first, const std::set<double>& last) {
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

LevelList common(const std::set<double>& first, const std::set<double>& last) {
  for (const double level : first)
    if (last.contains(level)) return {level};
  return {};
}

bool isAtElevator(const OsmTouching& touching, OsmPosition position) {
  bool isThere = false;
  touching.forEachAt(position, [&](const OsmThing& other, bool) {
    isThere = isThere || (other.isNode() && isElevator(*other.tags));
  });
  return isThere;
}

// What is beside an elevator may be on any of its levels.
std::set<double> levelsAtEnd(const OsmThing& line, OsmPosition end, const OsmTouching& touching) {
  if (!isFlight(line) && isAtElevator(touching, end)) return {};
  return touching.levelsAt(end);
}

bool followLine(OsmThing& thing, const OsmTouching& touching, bool alsoLevelFlights) {
  const std::set<double> first = levelsAtEnd(thing, thing.points.front(), touching);
  const std::set<double> last = levelsAtEnd(thing, thing.points.back(), touching);
  LevelList levels;
  if (!first.empty() && !last.empty()) {
    levels = isFlight(thing) ? differing(first, last) : common(first, last);
  } else if ((alsoLevelFlights || !isFlight(thing)) &&
             (thing.tags->is("indoor", "yes") || thing.building != 0)) {
    const std::set<double>& known = first.empty() ? last : first;
    if (known.size() == 1) levels = {*known.begin()};
  }
  if (levels.empty() ||
      (!thing.levels.empty() && (levels.size() < 2 || !includesOwn(thing, levels))))
    return false;
  thing.levels = {levels};
  return true;
}

// Each round may settle lines that touch those of the round before. With `alsoLevelFlights`,
// flights of which only one end is known are on the level of that end.
void settleLines(std::vector<OsmThing>& things, const OsmTouching& touching,
                 bool alsoLevelFlights) {
  constexpr int rounds = 8;
  bool isChanged = true;
  for (int round = 0; round < rounds && isChanged; ++round) {
    isChanged = false;
    for (OsmThing& thing : things)
      if (thing.isLine() && mayFollow(thing))
        isChanged |= followLine(thing, touching, alsoLevelFlights);
  }
}

// Indoor paths without a level of which nothing is known but that an elevator leads there: like
// areas without a level, they are taken to be on the ground floor.
bool settleBelowElevators(std::vector<OsmThing>& things, const OsmTouching& touching,
                          const std::string& file, Findings& findings) {
  bool isAny = false;
  for (OsmThing& thing : things) {
    if (!thing.levels.empty() || !isLostLine(thing) || isFlight(thing)) continue;
    const bool first = isAtElevator(touching, thing.points.front());
    const bool last = isAtElevator(touching, thing.points.back());
    const OsmPosition other = first ? thing.points.back() : thing.points.front();
    if (first == last || !touching.levelsAt(other).empty()) continue;
    findings.add(levelMissing(thing, file));
    thing.levels = {{0.0}};
    isAny = true;
  }
  return isAny;
}

}  // namespace

bool mayFollow(const OsmThing& thing) {
  if (thing.tags->has("level") || thing.tags->has("repeat_on"))
    return thing.isLine() && thing.levels.size() == 1 && thing.levels[0].size() == 1 &&
           isFlight(thing);
  return thing.levels.empty();
}

bool isLostLine(const OsmThing& thing) {
  const OsmTags& tags = *thing.tags;
  return thing.isLine() && !tags.has("level") && !tags.has("repeat_on") && isIndoors(tags);
}

void followLines(std::vector<OsmThing>& things, const OsmTouching& touching,
                 const std::string& file, Findings& findings) {
  settleLines(things, touching, false);
  if (settleBelowElevators(things, touching, file, findings)) settleLines(things, touching, false);
  settleLines(things, touching, true);
}

}  // namespace orivanta::importer
