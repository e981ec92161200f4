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

// Adds the legs from one of its nodes on.
void RouteRest::addLegs(const GuidedRoute& route, std::size_t firstLeg, std::size_t firstNode) {
  const auto& legs = route.itinerary.legs;
  const auto& visits = route.itinerary.visits;
  auto next = visits.begin() + 1;  // the first visit after the legs so far
  while (next->leg <= firstLeg && next + 1 != visits.end()) ++next;
  for (std::size_t i = firstLeg; i < legs.size(); ++i) {
    addLeg(legs[i], i == firstLeg ? firstNode : 1);
    for (; next + 1 != visits.end() && next->leg == i + 1; ++next)
      if (next->location) {
        places_.push_back(next->location);
        visit(next->location);
      }
  }
  if (const auto destination = route.to()) visit(destination);
}

void RouteRest::addLeg(const Leg& leg, std::size_t first) {
  const bool isRide = leg.kind == Leg::Kind::ride;
  if (isRide && first < leg.nodes.size()) connectors_.push_back(leg.connector);
  for (std::size_t i = first; i < leg.nodes.size(); ++i)
    points_.push_back({leg.nodes[i], leg.nodes[i], false, isRide && i + 1 < leg.nodes.size()});
}

// The last node becomes a stop.
void RouteRest::visit(const guidance::Stop& stop) {
  if (points_.empty()) return;
  points_.back().stop = stop;
  points_.back().isVisited = true;
}

std::vector<guidance::Stop> RouteRest::closeStops() const {
  constexpr std::size_t most = guidance::Request::mostStops - 2;  // without the ends
  const auto visited = static_cast<std::size_t>(
      std::count_if(points_.begin(), points_.end(), [](const Point& p) { return p.isVisited; }));
  const std::size_t free = visited < most ? most - visited : 1;
  const std::size_t distance = points_.size() / free + 1;
  std::vector<guidance::Stop> stops{start_};
  for (std::size_t i = 0; i < points_.size(); ++i) {
    const bool isLast = i + 1 == points_.size();
    if (isLast || points_[i].isVisited || (i % distance == 0 && !points_[i].isPassed))
      stops.push_back(points_[i].stop);
  }
  return stops;
}

// The first node of the route is the start, which may be at the first point.
bool RouteRest::isFollowedBy(const GuidedRoute& route) const {
  std::vector<std::shared_ptr<Vortex>> connectors;
  for (const Leg& leg : route.itinerary.legs)
    if (leg.connector) connectors.push_back(leg.connector);
  const std::size_t count = route.path.size() - 1;
  if (connectors != connectors_ || count > points_.size() || count + 1 < points_.size())
    return false;
  return std::equal(route.path.begin() + 1, route.path.end(), points_.end() - std::ptrdiff_t(count),
                    [](const auto& node, const Point& point) { return node == point.node; });
}

std::string RouteRest::closedName(const guidance::Closures& closures, const Venue& venue) const {
  const auto isClosed = [&](const Location& place) {
    return closures.contains(place.id.value_or(""));
  };
  for (const auto& connector : connectors_)
    if (isClosed(*connector)) return labelName(venue, *connector);
  for (const auto& place : *venue.locations) {
    if (!isClosed(*place)) continue;
    const auto& nodes = place->nodes;
    for (const Point& point : points_)
      if (std::find(nodes.begin(), nodes.end(), point.node) != nodes.end())
        return labelName(venue, *place);
  }
  return "";
}

}  // namespace orivanta::viewer
