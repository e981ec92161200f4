#include <algorithm>
#include <optional>
#include <utility>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

using LevelList = std::vector<double>;

// A footway that joins levels is a ramp. Paths within stairwells (indoor=pathway) only show how
// people walk there.
LineKind kindOn(const OsmTags& tags, LineKind kind, const LevelList& levels) {
  const bool joins = kind == LineKind::path && levels.size() > 1 && !tags.is("indoor", "pathway");
  return joins ? LineKind::ramp : kind;
}

// The only one of the levels that the touching things are on.
std::optional<double> levelAt(const OsmConversion& conversion, OsmPosition position,
                              const LevelList& levels) {
  std::optional<double> level;
  for (const double other : conversion.touching.levelsAt(position)) {
    if (!std::binary_search(levels.begin(), levels.end(), other)) continue;
    if (level) return std::nullopt;
    level = other;
  }
  return level;
}

// The levels at the first and at the last point; none if it is unknown which end is up.
std::optional<std::pair<double, double>> ends(const OsmThing& thing, const LevelList& levels,
                                              const OsmConversion& conversion) {
  const OsmTags& tags = *thing.tags;
  const double low = levels.front();
  const double high = levels.back();
  if (tags.is("incline", "up")) return std::pair(low, high);
  if (tags.is("incline", "down")) return std::pair(high, low);
  auto first = levelAt(conversion, thing.points.front(), levels);
  auto last = levelAt(conversion, thing.points.back(), levels);
  if (levels.size() == 2 && first && !last) last = *first == low ? high : low;
  if (levels.size() == 2 && last && !first) first = *last == low ? high : low;
  if (!first || !last || *first == *last) return std::nullopt;
  return std::pair(*first, *last);
}

// The level that the node at a point states, moved like the repetition.
std::optional<double> statedLevel(const OsmConversion& conversion, std::int64_t node,
                                  double shift) {
  const OsmNode* found = conversion.data.node(node);
  if (found == nullptr || !found->tags->has("level")) return std::nullopt;
  const LevelList levels = parseLevels((*found->tags)["level"]).values;
  if (levels.size() != 1) return std::nullopt;
  return roundedLevel(levels[0] + shift);
}

LevelList pointLevels(const OsmThing& thing, const LevelList& levels,
                      const OsmConversion& conversion) {
  const auto known = ends(thing, levels, conversion);
  if (levels.size() < 2 || !known) return {};
  const double shift = levels.front() - thing.levels.front().front();
  LevelList result;
  for (std::size_t i = 0; i < thing.points.size(); ++i) {
    const double nearest = 2 * i < thing.points.size() ? known->first : known->second;
    const bool isEnd = i == 0 || i + 1 == thing.points.size();
    const auto stated = isEnd ? std::nullopt : statedLevel(conversion, thing.nodes[i], shift);
    const bool isBetween = stated && levels.front() <= *stated && *stated <= levels.back();
    result.push_back(isBetween ? *stated : nearest);
  }
  return result;
}

void addLine(const OsmThing& thing, LineKind kind, const LevelList& levels, const std::string& id,
             OsmConversion& conversion) {
  const OsmTags& tags = *thing.tags;
  conversion.count(thing.points.size(), tags);
  Line line;
  line.id = id;
  line.source = thing.id;
  line.kind = kindOn(tags, kind, levels);
  line.levels = levels;
  line.points = conversion.plane(thing.points);
  line.pointLevels = pointLevels(thing, levels, conversion);
  for (const std::int64_t node : thing.nodes)
    if (const OsmNode* found = conversion.data.node(node))
      line.pointIds.push_back(OsmData::nodeText(*found));
  line.width = widthOf(tags);
  line.names = namesOf(tags);
  line.access = accessOf(tags);
  line.wheelchair = wheelchairOf(tags);
  line.direction = directionOfLine(tags);
  conversion.building.lines.push_back(std::move(line));
}

}  // namespace

void addLines(OsmConversion& conversion) {
  for (const OsmThing& thing : conversion.things) {
    if (!thing.isLine() || thing.levels.empty()) continue;
    const LineKind kind = *lineKind(*thing.tags);
    const bool isFixed = kind == LineKind::wall || kind == LineKind::barrier;
    for (const LevelList& levels : thing.levels) {
      const bool isFirst = &levels == &thing.levels.front();
      if (isFixed) {
        for (const double level : levels)
          addLine(thing, kind, {level}, idOn(thing, level), conversion);
      } else {
        addLine(thing, kind, levels,
                isFirst ? thing.id : thing.id + "@" + levelText(levels.front()), conversion);
      }
    }
  }
}

}  // namespace orivanta::importer
