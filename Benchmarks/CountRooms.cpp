#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Benchmarks/NetworkFigures.hpp"

namespace orivanta::benchmarks {

using importer::Building;
using importer::NodeKind;

void countDoors(const Building& building) {
  std::map<std::string, std::size_t> nodes;
  std::vector<bool> joinedToWay(building.network.nodes.size());
  for (std::size_t i = 0; i < building.network.nodes.size(); ++i)
    if (building.network.nodes[i].kind == NodeKind::door)
      nodes.emplace(building.network.nodes[i].of, i);
  for (const importer::Edge& edge : building.network.edges)
    for (const auto& [a, b] : {std::pair(edge.from, edge.to), std::pair(edge.to, edge.from)})
      if (building.network.nodes[b].kind != NodeKind::inside) joinedToWay[a] = true;
  std::size_t beside = 0;
  std::size_t joined = 0;
  for (const importer::Storey& storey : building.storeys) {
    const bool walkways = importer::hasWalkways(building, storey.ordinal);
    std::set<std::string> walkable;
    for (const importer::Area& area : building.areas)
      if (area.level == storey.ordinal && importer::isWalkway(area.kind, walkways))
        walkable.insert(area.id);
    for (const importer::Door& door : building.doors) {
      if (door.level != storey.ordinal || door.access == importer::Access::nobody ||
          std::none_of(door.areas.begin(), door.areas.end(),
                       [&](const std::string& id) { return walkable.contains(id); }))
        continue;
      ++beside;
      const auto node = nodes.find(door.id);
      if (node != nodes.end() && joinedToWay[node->second])
        ++joined;
      else
        fmt::print("  not joined       {} on {:g} ({:.1f} {:.1f})\n", door.id, door.level,
                   door.position.x, door.position.y);
    }
  }
  fmt::print("doors joined       {}\n", share(joined, beside));
  const auto guessed = std::count_if(building.doors.begin(), building.doors.end(),
                                     [](const importer::Door& door) { return door.guessed; });
  fmt::print("doors              {}, {} guessed\n", building.doors.size(), guessed);
}

// Rooms that are connected with the largest part of the network, connectors included.
void countReachableRooms(const Building& building, bool list) {
  const importer::Network& network = building.network;
  importer::DisjointSets parts(network.nodes.size());
  for (const importer::Edge& edge : network.edges) parts.join(edge.from, edge.to);
  std::map<std::string, std::size_t> boarding;
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    if (network.nodes[i].kind == NodeKind::boarding) {
      const auto [first, isNew] = boarding.emplace(network.nodes[i].of, i);
      if (!isNew) parts.join(i, first->second);
    }
  std::map<std::size_t, std::size_t> sizes;
  for (std::size_t i = 0; i < network.nodes.size(); ++i) ++sizes[parts.find(i)];
  std::size_t largest = 0;
  for (const auto& [part, size] : sizes)
    if (sizes[largest] < size) largest = part;
  std::map<std::string, bool> rooms;
  for (const importer::Area& area : building.areas)
    if (area.kind == importer::AreaKind::room) rooms.emplace(area.id, false);
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    if (const auto room = rooms.find(network.nodes[i].of);
        room != rooms.end() && parts.find(i) == largest)
      room->second = true;
  for (const importer::Area& area : building.areas) {
    if (!list || area.kind != importer::AreaKind::room || rooms.at(area.id)) continue;
    const auto doors = std::count_if(
        building.doors.begin(), building.doors.end(), [&](const importer::Door& door) {
          return std::find(door.areas.begin(), door.areas.end(), area.id) != door.areas.end();
        });
    fmt::print("  not reachable    {} on {:g}, {} doors, {:.0f} m2 ({:.1f} {:.1f})\n", area.id,
               area.level, doors, importer::areaOf(area.shape), area.shape.front().outer.front().x,
               area.shape.front().outer.front().y);
  }
  const auto reachable = static_cast<std::size_t>(
      std::count_if(rooms.begin(), rooms.end(), [](const auto& room) { return room.second; }));
  fmt::print("rooms reachable    {}\n", share(reachable, rooms.size()));
}

}  // namespace orivanta::benchmarks
