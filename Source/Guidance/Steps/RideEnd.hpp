// The direction in which a ride ends.
#pragma once

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// Returns the side to which a walk begins after a ride: left or right from 60 degrees on, behind
/// from 150 degrees on. Returns `none` if it leads on, or if the direction of the ride is not
/// known: lifts have none, and stairs and ramps must be straight, thus long for their height.
/// `reach` is the part of the walk that counts, in meters.
Side sideAfter(const Leg& ride, const WalkLine& walk, double reach, double metersPerUnit);

}  // namespace orivanta::guidance
