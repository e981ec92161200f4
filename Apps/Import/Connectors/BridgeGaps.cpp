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

constexpr double reached = 1.5;       // meters; nearer stops need no path
constexpr double placeReached = 2.5;  // the same of places
constexpr double farthest = 15.0;
constexpr double intoSpace = 1.0;

class Bridger {
 public:
  Bridger(const Building& building, const Surroundings& surroundings)
      : building_(building), surroundings_(surroundings) {
    for (const Area& area : building.areas) areas_.emplace(area.id, &area);
  }

  std::optional<Line> pathFrom(const Connector& connector, const Stop& stop) {
    if (isBehindDoors(stop)) return std::nullopt;
    std::set<std::string> own;
    for (const Stop& one : connector.stops) own.insert(one.area);
    auto path =
        pathFrom(stop.spot, own, fmt::format("{}/path/{:g}", connector.id, stop.spot.level));
    if (path) path->access = connector.access;
    return path;
  }

  // Of a place that lies in no area.
  std::optional<Line> pathFrom(const Place& place, const Spot& spot) {
    if (indexOf(spot.level).smallestAt(spot.position) != nullptr) return std::nullopt;
    return pathFrom(spot, {}, fmt::format("{}/path/{:g}", place.id, spot.level));
  }

 private:
  std::optional<Line> pathFrom(const Spot& spot, const std::set<std::string>& own, std::string id) {
    const auto [level, position] = spot;
    const Space& space = surroundings_.space(level);
    if (space.empty() || space.contains(position) || !hasPaths(level)) return std::nullopt;
    const auto wall = space.nearestWall(position, farthest);
    if (!wall || wall->distance <= (own.empty() ? placeReached : reached)) return std::nullopt;
    const Point end = wall->position + (wall->position - position) * (intoSpace / wall->distance);
    if (!isFree(spot, wall->position, own)) return std::nullopt;
    Line path;
    path.id = path.source = std::move(id);
    path.levels = {level};
    path.points = {position, end};
    return path;
  }

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

  const AreaIndex& indexOf(double level) {
    return indexes_.try_emplace(level, building_, level, [](const Area&) { return true; })
        .first->second;
  }

  // Whether the line crosses nothing drawn but what it belongs to.
  bool isFree(const Spot& spot, Point end, const std::set<std::string>& own) {
    const auto& [level, start] = spot;
    const AreaIndex& index = indexOf(level);
    const Point middle = (start + end) * 0.5;
    const double half = package::distance(start, end) * 0.5;
    for (const Area* area : index.near(middle, half)) {
      if (own.contains(area->id)) continue;
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
  for (const Place& place : building.places)
    for (const Spot& spot : place.spots)
      if (auto path = bridger.pathFrom(place, spot)) paths.push_back(std::move(*path));
  return paths;
}

}  // namespace orivanta::importer
