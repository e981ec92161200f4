#include "Apps/Import/Report/Summary.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/IdMap.hpp"

namespace orivanta::importer {

namespace {

DisjointSets joinedNodes(const Building& building) {
  const Network& network = building.network;
  DisjointSets sets(network.nodes.size());
  for (const Edge& edge : network.edges) sets.join(edge.from, edge.to);
  IdMap<std::size_t> connectors;
  for (std::size_t i = 0; i < network.nodes.size(); ++i) {
    if (network.nodes[i].kind != NodeKind::boarding) continue;
    const auto [entry, added] = connectors.emplace(network.nodes[i].of, i);
    if (!added) sets.join(entry->second, i);
  }
  return sets;
}

// The node by which each room is reached: one inside, or else at a door.
IdMap<std::size_t> nodesOfRooms(const Building& building) {
  IdMap<std::size_t> inside;
  IdMap<std::size_t> atDoor;
  for (std::size_t i = 0; i < building.network.nodes.size(); ++i) {
    const Node& node = building.network.nodes[i];
    if (node.kind == NodeKind::inside) inside.emplace(node.of, i);
    if (node.kind == NodeKind::door) atDoor.emplace(node.of, i);
  }
  for (const Door& door : building.doors)
    if (const auto node = atDoor.find(door.id); node != atDoor.end())
      for (const std::string& area : door.areas) inside.emplace(area, node->second);
  return inside;
}

// The rooms, as indices of areas.
std::vector<std::size_t> roomsOf(const Building& building) {
  std::map<double, bool> walkways;  // by level
  std::vector<std::size_t> rooms;
  for (std::size_t i = 0; i < building.areas.size(); ++i) {
    const Area& area = building.areas[i];
    const auto [level, added] = walkways.try_emplace(area.level);
    if (added) level->second = hasWalkways(building, area.level);
    if (isEnterableRoom(area, level->second)) rooms.push_back(i);
  }
  return rooms;
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

}  // namespace

NetworkParts networkParts(const Building& building) {
  DisjointSets sets = joinedNodes(building);
  NetworkParts result;
  const std::size_t count = building.network.nodes.size();
  std::vector<std::size_t> order;                      // the first node of each part
  std::vector<std::vector<std::size_t>> rooms(count);  // by the first node of the part
  for (std::size_t i = 0; i < count; ++i)
    if (sets.find(i) == i) order.push_back(i);
  const auto nodes = nodesOfRooms(building);
  for (const std::size_t i : roomsOf(building)) {
    const auto node = nodes.find(building.areas[i].id);
    if (node == nodes.end())
      result.withoutNodes.push_back(i);
    else
      rooms[sets.find(node->second)].push_back(i);
  }
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return rooms[a].size() > rooms[b].size(); });
  std::vector<std::size_t> numbers(count);
  result.rooms.reserve(order.size());
  for (const std::size_t part : order) {
    numbers[part] = result.rooms.size();
    result.rooms.push_back(std::move(rooms[part]));
  }
  result.partOf.reserve(count);
  for (std::size_t i = 0; i < count; ++i) result.partOf.push_back(numbers[sets.find(i)]);
  return result;
}

Summary summarize(const Building& building) {
  Summary summary;
  summary.floors = building.storeys.size();
  const NetworkParts parts = networkParts(building);
  summary.rooms = parts.withoutNodes.size();
  for (const auto& rooms : parts.rooms) summary.rooms += rooms.size();
  if (!parts.rooms.empty()) summary.roomsReachable = parts.rooms.front().size();
  summary.doorsGuessed = static_cast<std::size_t>(std::count_if(
      building.doors.begin(), building.doors.end(), [](const Door& door) { return door.guessed; }));
  for (const Connector& connector : building.connectors) {
    if (connector.stops.size() < 2) continue;
    switch (connector.kind) {
      case ConnectorKind::elevator:
        ++summary.elevators;
        break;
      case ConnectorKind::escalator:
        ++summary.escalators;
        break;
      case ConnectorKind::stairs:
        ++summary.stairs;
        break;
      case ConnectorKind::ramp:
      case ConnectorKind::movingWalkway:
        ++summary.ramps;
        break;
    }
  }
  return summary;
}

std::string summaryText(const Summary& summary) {
  std::string text = fmt::format("{}, {}", counted(summary.floors, "floor", "floors"),
                                 counted(summary.rooms, "room", "rooms"));
  if (summary.doorsGuessed > 0)
    text += fmt::format(" ({} guessed)", counted(summary.doorsGuessed, "door", "doors"));
  text += ", " + counted(summary.elevators, "lift", "lifts");
  if (summary.escalators > 0) text += ", " + counted(summary.escalators, "escalator", "escalators");
  text += fmt::format(", {} stairs", summary.stairs);
  if (summary.ramps > 0) text += ", " + counted(summary.ramps, "ramp", "ramps");
  return text + fmt::format("; {} reachable", counted(summary.roomsReachable, "room", "rooms"));
}

}  // namespace orivanta::importer
