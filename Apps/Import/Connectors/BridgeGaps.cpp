#include "Apps/Import/Connectors/BridgeGaps.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/MakeFinding.hpp"

namespace orivanta::importer {

namespace {

constexpr double reached = 1.5;  // meters; nearer stops need no path
constexpr double farthest = 15.0;
constexpr double intoSpace = 1.0;

class Bridger {
 public:
  Bridger(const Building& building, const Surroundings& surroundings)
      : building_(building), surroundings_(surroundings) {
    for (const Area& area : building.areas) areas_.emplace(area.id, &area);
  }

  std::optional<Line> pathFrom(const Connector& connector, const Stop& stop) {
    const auto [level, position] = stop.spot;
    const Space& space = surroundings_.space(level);
    if (space.empty() || space.contains(position) || !hasPaths(level)) return std::nullopt;
    const auto wall = space.nearestWall(position, farthest);
    if (!wall || wall->distance <= reached) return std::nullopt;
    const Point end = wall->position + (wall->position - position) * (intoSpace / wall->distance);
    if (isBehindDoors(stop) || !isFree(connector, stop, wall->position)) return std::nullopt;
    Line path;
    path.id = path.source = fmt::format("{}/path/{:g}", connector.id, level);
    path.levels = {level};
    path.points = {position, end};
    path.access = connector.access;
    return path;
  }

 private:
  // Where areas of unknown use serve as walkways, a path would end that.
  bool hasPaths(double level) {
    const auto [entry, isNew] = hasPaths_.try_emplace(level, false);
    if (isNew) entry->second = hasWalkways(building_, level);
    return entry->second;
  }

  bool isBehindDoors(const Stop& stop) const {
    const auto area = areas_.find(stop.area);
    return area != areas_.end() && !surroundings_.doorsOf(*area->second).empty();
  }

  // Whether the line crosses nothing drawn but the connector itself.
  bool isFree(const Connector& connector, const Stop& stop, Point end) {
    const auto& [level, start] = stop.spot;
    const AreaIndex& index =
        indexes_.try_emplace(level, building_, level, [](const Area&) { return true; })
            .first->second;
    const Point middle = (start + end) * 0.5;
    const double half = package::distance(start, end) * 0.5;
    for (const Area* area : index.near(middle, half)) {
      if (std::any_of(connector.stops.begin(), connector.stops.end(),
                      [&](const Stop& one) { return one.area == area->id; }))
        continue;
      for (const double share : {0.2, 0.4, 0.6, 0.8})
        if (index.contains(*area, start + (end - start) * share)) return false;
    }
    return true;
  }

  const Building& building_;
  const Surroundings& surroundings_;
  std::map<std::string, const Area*> areas_;
  std::map<double, bool> hasPaths_;
  std::map<double, AreaIndex> indexes_;
};

}  // namespace

std::vector<Line> bridgeGaps(const Building& building, const std::vector<Connector>& connectors,
                             const Surroundings& surroundings, Findings& findings) {
  Bridger bridger(building, surroundings);
  std::vector<Line> paths;
  for (const Connector& connector : connectors) {
    if (connector.stops.size() < 2) continue;
    for (const Stop& stop : connector.stops) {
      auto path = bridger.pathFrom(connector, stop);
      if (!path) continue;
      findings.add(makeFinding(
          Severity::info, "connector-beside-walkway", connector.source, stop.spot,
          {.message = fmt::format(
               "The connector {} ends {:.1f} m beside the nearest walkway.", connector.source,
               package::distance(path->points.front(), path->points.back()) - intoSpace),
           .effect = "A path is assumed between them.",
           .advice = "Draw the walkway up to the connector."}));
      paths.push_back(std::move(*path));
    }
  }
  return paths;
}

}  // namespace orivanta::importer
