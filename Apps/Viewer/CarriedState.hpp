// Carries what the user sees over to a new view of the same venue, whose records are others.
#pragma once

#include "Apps/Viewer/VenueView.hpp"

namespace orivanta::viewer {

/// Selects the same place and plans a route between the same stops, as far as they still exist in
/// the new view, whose first floor is loaded. Its camera may move.
void carryStops(const VenueView& from, VenueView& to);

/// Shows the same floor from the same place, if the floor still exists, and the same alternative of
/// the route. Call it when the new view no longer plans a route.
void carryCamera(VenueView& from, VenueView& to);

/// Returns the floor of the venue with the identifier of another floor, or null.
std::shared_ptr<Map> sameFloor(const Venue& venue, const std::shared_ptr<Map>& floor);

}  // namespace orivanta::viewer
