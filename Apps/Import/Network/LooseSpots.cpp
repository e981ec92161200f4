#include "Apps/Import/Network/LooseSpots.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Import/Geometry/AreaIndex.hpp"

namespace orivanta::importer {

namespace {

std::vector<std::uint32_t> looseSpots(const Draft& draft) {
  std::vector<bool> joined(draft.nodes.size());
  for (const DraftEdge& edge : draft.edges) joined[edge.from] = joined[edge.to] = true;
  std::vector<std::uint32_t> loose;
  for (std::uint32_t i = 0; i < joined.size(); ++i)
    if (!joined[i] && draft.nodes[i].kind == NodeKind::spot) loose.push_back(i);
  return loose;
}

bool crossesRoom(const AreaIndex& rooms, Point from, Point to) {
  constexpr double step = 0.3;  // meters
  const double count = std::ceil(package::distance(from, to) / step);
  for (double i = 1.0; i < count; ++i)
    if (rooms.smallestAt(from + (to - from) * (i / count)) != nullptr) return true;
  return false;
}

}  // namespace

void joinSpotsToSource(const SourceLines& source, double reach, Draft& draft) {
  for (const std::uint32_t i : looseSpots(draft))
    if (const auto node = source.nodeAt(draft.nodes[i].position, reach))
      draft.addEdge(i, *node, true);
}

void joinSpotsToStops(const Building& building, double level, double reach, Draft& draft) {
  std::multimap<std::string, std::uint32_t> nodes;  // by connector
  for (std::uint32_t i = 0; i < draft.nodes.size(); ++i)
    if (draft.nodes[i].kind == NodeKind::boarding) nodes.emplace(draft.nodes[i].of, i);
  if (nodes.empty()) return;
  std::map<std::string, std::set<std::string>> connectors;  // by area
  for (const Connector& connector : building.connectors)
    for (const Stop& stop : connector.stops)
      if (stop.spot.level == level && !stop.area.empty())
        connectors[stop.area].insert(connector.id);
  const AreaIndex areas(building, level,
                        [&](const Area& area) { return connectors.contains(area.id); });
  const AreaIndex rooms(building, level,
                        [](const Area& area) { return area.kind == AreaKind::room; });
  for (const std::uint32_t i : looseSpots(draft)) {
    const Point position = draft.nodes[i].position;
    std::optional<std::uint32_t> best;
    std::pair<double, double> least{reach, 0.0};  // to the stop or its area, and to the stop
    const auto consider = [&](std::uint32_t node, double away) {
      const double toStop = package::distance(draft.nodes[node].position, position);
      const std::pair cost{std::min(away, toStop), toStop};
      if (cost.first > reach || (best && cost >= least)) return;
      best = node;
      least = cost;
    };
    for (const auto& [connector, node] : nodes) consider(node, reach + 1.0);
    for (const Area* area : areas.near(position, reach)) {
      const double away = areas.distance(*area, position, reach + 1.0);
      for (const std::string& connector : connectors.at(area->id)) {
        const auto [first, last] = nodes.equal_range(connector);
        for (auto node = first; node != last; ++node) consider(node->second, away);
      }
    }
    if (!best) continue;
    // Stairs may turn round a room: their place is where they are boarded.
    const Point stop = draft.nodes[*best].position;
    constexpr double beside = 0.5;
    if (crossesRoom(rooms, position, stop))
      draft.nodes[i].position =
          stop + (position - stop) * std::min(beside / package::distance(position, stop), 1.0);
    draft.addEdge(i, *best, true);
  }
}

}  // namespace orivanta::importer
