// The rooms that a walk goes through.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Steps/Sections.hpp"
#include "Source/Guidance/Steps/Surroundings.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// A room that the walk enters and leaves again.
struct RoomOnWay {
  std::shared_ptr<Location> place;  ///< never null; has a name that can be spoken
  std::size_t first = 0;            ///< the point of the line at the door
  std::size_t last = 0;             ///< the point at the door where the walk leaves the room
};

/// Returns the rooms in the order of the walk, without those at its ends. The walk goes through a
/// room if it has a node inside between two doors. At least one of them must be an entrance of the
/// room; the other may be that of a neighboring room, next to the node inside. Of several rooms
/// between the same doors, the first of the venue is returned. A room that the walk leaves and
/// enters again is returned twice. Takes time in proportion to the number of places at the nodes of
/// the line. Empty if it is canceled.
std::vector<RoomOnWay> roomsOnWay(const WalkLine& line, const Section& section,
                                  const Surroundings& surroundings,
                                  const foundation::CancellationToken& token = {});

}  // namespace orivanta::guidance
