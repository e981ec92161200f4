// How long walks and rides take, in seconds.
#pragma once

#include <algorithm>

#include "Source/Guidance/Profile.hpp"

namespace orivanta::guidance {

/// Returns the walking speed of a profile in meters per second; 1.2 if it is not usable.
double speedOf(const Profile& profile);

/// Returns the time of a ride. `plan` is the horizontal distance of its ends and `rise` the
/// difference in height, positive up, both in meters. No ride is faster than walking its plan,
/// except an escalator with a slow walker, which moves at 0.6 m/s.
double rideSeconds(ConnectorKind kind, double plan, double rise, double speed);

}  // namespace orivanta::guidance
