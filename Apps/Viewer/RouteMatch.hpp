// Compares a route with one of an earlier plan.
#pragma once

#include "Apps/Viewer/GuidedRoute.hpp"

namespace orivanta::viewer {

/// Returns whether two routes lead along the same nodes and connectors.
bool isSameRoute(const GuidedRoute& route, const GuidedRoute& other);

/// Returns whether a route from a position leads along another route from there to its end.
bool isRestOf(const GuidedRoute& route, const GuidedRoute& whole);

}  // namespace orivanta::viewer
