#include "Apps/Viewer/RouteRest.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

using guidance::Leg;

// Returns the number of nodes at the beginning of a walk that are behind the traveler.
std::size_t nodesBehind(const Leg& leg, double legMeters) {
  std::vector<double> lengths{0};
  for (std::size_t i = 1; i < leg.nodes.size(); ++i) {
    const Node& from = *leg.nodes[i - 1];
    const Node& to = *leg.nodes[i];
    lengths.push_back(lengths.back() + std::hypot(to.x - from.x, to.y - from.y));
  }
  const double done = leg.meters > 0 ? lengths.back() * legMeters / leg.meters : 0;
  const auto next = std::upper_bound(lengths.begin(), lengths.end(), done);
  return static_cast<std::size_t>(std::max<std::ptrdiff_t>(1, next - lengths.begin()));
}

}  // namespace

RouteRest::RouteRest(const GuidedRoute& route) : start_(route.path.front()) {
  addLegs(route, 0, 1);
}

RouteRest::RouteRest(const GuidedRoute& route, const RouteProgress& progress)
    : start_(progress.position) {
  const Leg& leg = route.itinerary.legs[progress.leg];
  const bool isRide = leg.kind == Leg::Kind::ride;
  if (isRide) start_ = leg.nodes.back();
  addLegs(route, progress.leg, isRide ? leg.nodes.size() : nodesBehind(leg, progress.legMeters));
}

// Adds the legs from a node of the first one on.
void RouteRest::addLegs(const GuidedRoute& route, std::size_t firstLeg, std::size_t firstNode) {
  const auto& legs = route.itinerary.legs;
  for (std::size_t i = firstLeg; i < legs.size(); ++i) {
    const std::size_t first = i == firstLeg ? firstNode : 1;
    if (first >= legs[i].nodes.size()) continue;
    if (legs[i].connector) connectors_.push_back(legs[i].connector);
    nodes_.insert(nodes_.end(), legs[i].nodes.begin() + static_cast<std::ptrdiff_t>(first),
                  legs[i].nodes.end());
  }
  const auto& visits = route.itinerary.visits;
  for (std::size_t i = 1; i + 1 < visits.size(); ++i)
    if (visits[i].leg > firstLeg && visits[i].location) places_.push_back(visits[i].location);
  destination_ = route.to();
}

bool RouteRest::isOpen(const guidance::Guide& guide, const guidance::Profile& profile,
                       const guidance::Closures& closures) const {
  const auto isClosed = [&](const auto& place) {
    return place && closures.contains(place->id.value_or(""));
  };
  if (isClosed(destination_) || std::any_of(places_.begin(), places_.end(), isClosed) ||
      std::any_of(connectors_.begin(), connectors_.end(), isClosed))
    return false;
  // No way leads into a closed node.
  guidance::Stop from = start_;
  for (const auto& node : nodes_) {
    const auto costs = guide.costs({from}, {node}, profile, closures);
    if (!costs || costs->front().front() < 0) return false;
    from = node;
  }
  return true;
}

std::string RouteRest::closedName(const guidance::Closures& closures, const Venue& venue) const {
  const auto isClosed = [&](const Location& place) {
    return closures.contains(place.id.value_or(""));
  };
  for (const auto& connector : connectors_)
    if (isClosed(*connector)) return labelName(venue, *connector);
  for (const auto& place : *venue.locations)
    if (isClosed(*place) && std::find_first_of(nodes_.begin(), nodes_.end(), place->nodes.begin(),
                                               place->nodes.end()) != nodes_.end())
      return labelName(venue, *place);
  return "";
}

}  // namespace orivanta::viewer
