#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Report/Summary.hpp"
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
  importer::NetworkParts parts = importer::networkParts(building);
  const std::size_t reachable = parts.rooms.empty() ? 0 : parts.rooms.front().size();
  std::vector<std::size_t> apart = std::move(parts.withoutNodes);
  for (std::size_t part = 1; part < parts.rooms.size(); ++part)
    apart.insert(apart.end(), parts.rooms[part].begin(), parts.rooms[part].end());
  for (const std::size_t index : apart) {
    if (!list) break;
    const importer::Area& area = building.areas[index];
    const auto doors = std::count_if(
        building.doors.begin(), building.doors.end(), [&](const importer::Door& door) {
          return std::find(door.areas.begin(), door.areas.end(), area.id) != door.areas.end();
        });
    fmt::print("  not reachable    {} on {:g}, {} doors, {:.0f} m2 ({:.1f} {:.1f})\n", area.id,
               area.level, doors, importer::areaOf(area.shape), area.shape.front().outer.front().x,
               area.shape.front().outer.front().y);
  }
  fmt::print("rooms reachable    {}\n", share(reachable, reachable + apart.size()));
}

}  // namespace orivanta::benchmarks
