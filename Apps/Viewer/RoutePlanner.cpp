#include "Apps/Viewer/RoutePlanner.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Guidance/PathWalk.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

constexpr double metersPerMinute = 72;  // slow walking

// `NavigationGraph` stops adding connectors at the first that is not accessible, so leave these
// out.
std::shared_ptr<const NavigationGraph> accessibleGraph(const Venue& venue) {
  Collection<Node> nodes;
  for (const auto& node : *venue.nodes) nodes.emplace(*node->id, node);
  Collection<Vortex> vortices;
  for (const auto& vortex : *venue.vortices)
    if (vortex->accessible) vortices.emplace(*vortex->id, vortex);
  return std::make_shared<NavigationGraph>(nodes, vortices, /*accessible=*/true);
}

void addFloor(PlannedRoute& route, const std::shared_ptr<Map>& floor) {
  if (std::find(route.floors.begin(), route.floors.end(), floor) == route.floors.end())
    route.floors.push_back(floor);
}

}  // namespace

RoutePlanner::RoutePlanner(std::shared_ptr<Venue> venue)
    : venue_(std::move(venue)),
      unitsPerMeter_(std::max(0.0, venue_->_data["unitsPerMetre"].doubleValue())) {}

const NavigationGraph& RoutePlanner::graph(bool accessible) {
  if (!accessible) return *venue_->navigationGraph;
  if (!accessible_) accessible_ = accessibleGraph(*venue_);
  return *accessible_;
}

// Searches each destination separately: a search for several may not find the cheapest route.
std::optional<PlannedRoute> RoutePlanner::plan(const std::shared_ptr<Location>& from,
                                               const std::shared_ptr<Location>& to,
                                               bool accessible) {
  const NavigationGraph& network = graph(accessible);
  std::optional<Route> best;
  for (const auto& destination : to->nodes) {
    auto route = searchRoute(from->nodes, {destination}, network);
    if (route && (!best || route->cost < best->cost)) best = std::move(route);
  }
  if (!best) return std::nullopt;
  PlannedRoute planned;
  planned.path = std::move(best->path);
  planned.from = from;
  planned.to = to;
  describe(planned, network);
  return planned;
}

std::string RoutePlanner::distanceText(double length) const {
  if (unitsPerMeter_ <= 0) return fmt::format("{:.0f} units", length);
  const double meters = length / unitsPerMeter_;
  return meters < 1000 ? fmt::format("{:.0f} m", meters) : fmt::format("{:.1f} km", meters / 1000);
}

void RoutePlanner::describe(PlannedRoute& route, const NavigationGraph& network) const {
  const PathWalk walk(route.path, network);
  const NodeList& path = walk.path();
  for (const FloorVisit& visit : floorVisits(path)) addFloor(route, visit.floor);
  if (path.size() == 1) {
    route.summary = "You are already there";
    return;
  }
  route.steps.push_back({StepKind::departure,
                         fmt::format("Depart from {}", route.from->name.value_or("here")),
                         floorName(*path.front()->map), path.front()});
  std::size_t walked = 0;  // the node up to which the steps have given the length
  const auto lengthTo = [&](std::size_t index) {
    return distanceText(walk.lengthBetween(std::exchange(walked, index), index));
  };
  for (const Ride& ride : walk.rides()) {
    const auto& from = path[ride.begin]->map;
    const auto& to = path[ride.end]->map;
    if (from == to) continue;
    route.steps.push_back({StepKind::ride, rideInstruction(*ride.connector, *from, *to),
                           "after " + lengthTo(ride.begin), path[ride.begin]});
  }
  route.steps.push_back(
      {StepKind::arrival, fmt::format("Arrive at {}", route.to->name.value_or("the destination")),
       fmt::format("after {} on {}", lengthTo(path.size() - 1), floorName(*path.back()->map)),
       path.back()});
  route.summary = distanceText(walk.length());
  if (unitsPerMeter_ > 0)
    route.summary +=
        fmt::format(", about {:.0f} min",
                    std::max(1.0, std::round(walk.length() / unitsPerMeter_ / metersPerMinute)));
}

}  // namespace orivanta::viewer
