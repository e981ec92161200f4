// Which nodes lie inside rooms: places that one enters through a door.
#pragma once

#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::guidance {

/// The room of a node that lies in none.
inline constexpr std::uint32_t noRoom = std::numeric_limits<std::uint32_t>::max();

/// Returns the number of the room of each node, or `noRoom`. `numbers` numbers the nodes from 0.
///
/// A room is a location, not a connector, with at least one polygon that has entrances. Its nodes
/// lie inside, except those that are an entrance of any polygon or a node of a connector. Corridors
/// have no location, and places in corridors have no polygon with entrances. Locations that share
/// an inner node are one room.
std::vector<std::uint32_t> roomsOf(const Venue& venue,
                                   const std::unordered_map<const Node*, std::uint32_t>& numbers);

/// Returns whether a location has a polygon with entrances.
bool hasEntrances(const Location& location);

}  // namespace orivanta::guidance
