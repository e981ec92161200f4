// Cuts an itinerary into what one set of instructions describes: walks and rides.
#pragma once

#include <cstddef>
#include <vector>

#include "Source/Guidance/Itinerary.hpp"

namespace orivanta::guidance {

/// One or more consecutive legs.
struct Section {
  Leg::Kind kind = Leg::Kind::walk;
  std::size_t firstLeg = 0;
  std::size_t endLeg = 0;            ///< one past the last leg
  const Visit* departure = nullptr;  ///< the stop where it begins; null if it begins elsewhere
  const Visit* arrival = nullptr;    ///< the stop where it ends; null if it ends elsewhere
};

/// Cuts an itinerary at its visits and rides. Rides on one connector are one section, and so are
/// rides of the same kind and direction, except lifts, with a walk of at most 6 m between them. The
/// result refers to the itinerary.
std::vector<Section> sectionsOf(const Itinerary& itinerary);

}  // namespace orivanta::guidance
