#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <utility>

#include <fmt/core.h>

#include "Apps/Import/Read/Osm/OsmConversion.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

LinkKind linkKind(LineKind kind) {
  switch (kind) {
    case LineKind::ramp:
      return LinkKind::ramp;
    case LineKind::steps:
      return LinkKind::stairs;
    case LineKind::escalator:
      return LinkKind::escalator;
    case LineKind::movingWalkway:
      return LinkKind::movingWalkway;
    default:
      return LinkKind::walk;
  }
}

bool isWalked(const OsmThing& thing) {
  if (!thing.isLine() || thing.levels.empty() || thing.tags->is("indoor", "pathway")) return false;
  const LineKind kind = *lineKind(*thing.tags);
  return kind != LineKind::wall && kind != LineKind::barrier;
}

class SourceNetwork {
 public:
  explicit SourceNetwork(OsmConversion& conversion) : conversion_(conversion) {}

  void make() {
    // The lines of the building are in the order of the things and their levels.
    std::map<std::string, const OsmThing*> things;
    for (const OsmThing& thing : conversion_.things)
      if (isWalked(thing)) things.emplace(thing.id, &thing);
    for (const Line& line : conversion_.building.lines) {
      const auto found = things.find(line.source);
      if (found == things.end() || line.access == Access::nobody) continue;
      if (line.levels.size() == 1 || !line.pointLevels.empty())
        addLinks(line, *found->second);
      else
        addFlights(line, *found->second);
    }
    addElevators();
  }

  bool leadsToMostRooms() const {
    std::size_t rooms = 0;
    std::size_t reached = 0;
    bool hasWalkways = false;
    bool hasLines = false;  // indoors
    for (const OsmThing& thing : conversion_.things) {
      hasLines |= isWalked(thing) && !thing.isOutdoors;
      if (!thing.isArea() || thing.levels.empty()) continue;
      const auto kind = areaKind(*thing.tags);
      hasWalkways |= kind == AreaKind::walkway;
      if (kind != AreaKind::room) continue;
      ++rooms;
      reached += isReached(thing) ? 1 : 0;
    }
    return hasLines && (!hasWalkways || (rooms > 0 && 2 * reached >= rooms));
  }

  void keep() {
    conversion_.building.sourceNodes = std::move(nodes_);
    conversion_.building.sourceLinks = std::move(links_);
  }

 private:
  using Key = std::pair<OsmPosition, double>;

  std::string nodeOn(OsmPosition position, double level, const std::string& id) {
    const auto [found, isNew] =
        byKey_.emplace(Key(position, level), fmt::format("{}@{}", id, levelText(level)));
    if (isNew) {
      conversion_.count(1);
      nodes_.push_back({found->second, {level, conversion_.plane(position)}});
    }
    return found->second;
  }

  void link(const Line& line, const std::string& name, std::string from, std::string to,
            LinkKind kind) {
    if (from == to) return;
    SourceLink link;
    link.id = fmt::format("{}:{}", line.id, name);
    link.from = std::move(from);
    link.to = std::move(to);
    link.kind = kind;
    link.direction = line.direction;
    link.wheelchair = line.wheelchair;
    links_.push_back(std::move(link));
  }

  void addLinks(const Line& line, const OsmThing& thing) {
    // Levels within a flight are those of landings, which are storeys only at its ends.
    const auto levelOf = [&](std::size_t point) {
      if (line.pointLevels.empty()) return line.levels.front();
      const double level = line.pointLevels[point];
      if (std::binary_search(line.levels.begin(), line.levels.end(), level)) return level;
      return 2 * point < line.points.size() ? line.pointLevels.front() : line.pointLevels.back();
    };
    for (std::size_t i = 0; i + 1 < thing.points.size(); ++i)
      link(line, fmt::format("{}", i), nodeOn(thing.points[i], levelOf(i), line.pointIds[i]),
           nodeOn(thing.points[i + 1], levelOf(i + 1), line.pointIds[i + 1]), linkKind(line.kind));
  }

  // A flight whose ends are unknown, or a staircase over several storeys, drawn as one line: from
  // its first point on each level to its last on the next.
  void addFlights(const Line& line, const OsmThing& thing) {
    for (std::size_t i = 0; i + 1 < line.levels.size(); ++i)
      link(line, levelText(line.levels[i]),
           nodeOn(thing.points.front(), line.levels[i], line.pointIds.front()),
           nodeOn(thing.points.back(), line.levels[i + 1], line.pointIds.back()),
           linkKind(line.kind));
  }

  void addElevators() {
    for (const OsmThing& thing : conversion_.things) {
      if (!thing.isNode() || !isElevator(*thing.tags)) continue;
      std::set<double> levels;
      for (const std::vector<double>& list : thing.levels) levels.insert(list.begin(), list.end());
      Line line;
      line.id = thing.id;
      line.direction = Direction::both;
      std::string below;
      for (const double level : levels) {
        const auto found = byKey_.find({thing.points[0], level});
        if (found == byKey_.end()) continue;
        if (!below.empty()) link(line, levelText(level), below, found->second, LinkKind::elevator);
        below = found->second;
      }
    }
  }

  bool isReached(const OsmThing& room) const {
    for (const std::vector<double>& levels : room.levels)
      for (const double level : levels)
        for (const OsmPolygon& polygon : room.polygons)
          for (const OsmPosition corner : polygon.outer)
            if (byKey_.contains({corner, level})) return true;
    return false;
  }

  OsmConversion& conversion_;
  std::map<Key, std::string> byKey_;
  std::vector<SourceNode> nodes_;
  std::vector<SourceLink> links_;
};

}  // namespace

void addSourceNetwork(OsmConversion& conversion) {
  if (conversion.options.network == NetworkChoice::derive) return;
  SourceNetwork network(conversion);
  network.make();
  if (conversion.options.network == NetworkChoice::source || network.leadsToMostRooms())
    network.keep();
}

}  // namespace orivanta::importer
