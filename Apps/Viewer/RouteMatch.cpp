#include "Apps/Viewer/RouteMatch.hpp"

#include <algorithm>
#include <vector>

namespace orivanta::viewer {

namespace {

template <class List>
bool isEndOf(const List& end, const List& whole) {
  return end.size() <= whole.size() && std::equal(end.rbegin(), end.rend(), whole.rbegin());
}

std::vector<std::shared_ptr<Vortex>> connectorsOf(const GuidedRoute& route) {
  std::vector<std::shared_ptr<Vortex>> connectors;
  for (const guidance::Leg& leg : route.itinerary.legs)
    if (leg.connector) connectors.push_back(leg.connector);
  return connectors;
}

}  // namespace

bool isSameRoute(const GuidedRoute& route, const GuidedRoute& other) {
  return route.path == other.path && connectorsOf(route) == connectorsOf(other);
}

// The first node is the position.
bool isRestOf(const GuidedRoute& route, const GuidedRoute& whole) {
  const NodeList after(route.path.begin() + 1, route.path.end());
  return isEndOf(after, whole.path) && isEndOf(connectorsOf(route), connectorsOf(whole));
}

}  // namespace orivanta::viewer
