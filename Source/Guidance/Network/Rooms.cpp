#include "Source/Guidance/Network/Rooms.hpp"

#include <algorithm>
#include <unordered_set>

#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::guidance {

namespace {

using Index = std::uint32_t;

std::unordered_set<const Node*> nodesOutside(const Venue& venue) {
  std::unordered_set<const Node*> outside;
  if (venue.polygons)
    for (const auto& polygon : *venue.polygons)
      for (const auto& entrance : polygon->entrances) outside.insert(entrance.get());
  if (venue.vortices)
    for (const auto& vortex : *venue.vortices)
      for (const auto& node : vortex->nodes) outside.insert(node.get());
  return outside;
}

// Returns the representative of a node's room and shortens the way to it.
Index representative(std::vector<Index>& rooms, Index index) {
  while (rooms[index] != index) index = rooms[index] = rooms[rooms[index]];
  return index;
}

}  // namespace

bool hasEntrances(const Location& location) {
  return std::any_of(location.polygons.begin(), location.polygons.end(),
                     [](const auto& polygon) { return !polygon->entrances.empty(); });
}

std::vector<std::uint32_t> roomsOf(const Venue& venue,
                                   const std::unordered_map<const Node*, std::uint32_t>& numbers) {
  std::vector<Index> rooms(numbers.size(), noRoom);
  if (!venue.locations) return rooms;
  const auto outside = nodesOutside(venue);
  for (const auto& location : *venue.locations) {
    if (!hasEntrances(*location)) continue;
    Index first = noRoom;
    for (const auto& node : location->nodes) {
      const auto number = numbers.find(node.get());
      if (number == numbers.end() || outside.count(node.get()) != 0) continue;
      const Index index = number->second;
      if (rooms[index] == noRoom) rooms[index] = index;
      if (first == noRoom) first = index;
      rooms[representative(rooms, index)] = representative(rooms, first);
    }
  }
  for (Index index = 0; index < rooms.size(); ++index)
    if (rooms[index] != noRoom) rooms[index] = representative(rooms, index);
  return rooms;
}

}  // namespace orivanta::guidance
