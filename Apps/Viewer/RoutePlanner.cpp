#include "Apps/Viewer/RoutePlanner.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Command/Places.hpp"
#include "Apps/Command/RouteDescription.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

constexpr double metresPerMinute = 72;  // an unhurried walk

// The graph takes connectors up to the first that is not accessible.
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

std::string nameOfFloor(const Map& map) {
  return map.name.empty() ? command::floorLabel(map) : map.name;
}

std::string rideText(const Vortex& vortex, const Map& from, const Map& to) {
  const std::string name = vortex.name.value_or("the connector");
  const char* const way = to.elevation < from.elevation ? "down" : "up";
  // Some connectors say by themselves where they go.
  if (name.find(fmt::format(" {} to ", way)) != std::string::npos) return "Take " + name;
  return fmt::format("Take {} {} to {}", name, way, nameOfFloor(to));
}

}  // namespace

RoutePlanner::RoutePlanner(std::shared_ptr<Venue> venue)
    : venue_(std::move(venue)),
      unitsPerMetre_(std::max(0.0, venue_->_data["unitsPerMetre"].doubleValue())) {}

const NavigationGraph& RoutePlanner::graph(bool accessible) {
  if (!accessible) return *venue_->navigationGraph;
  if (!accessible_) accessible_ = accessibleGraph(*venue_);
  return *accessible_;
}

// One search for each destination: with several at once the cheapest is not sure to be found.
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
  if (unitsPerMetre_ <= 0) return fmt::format("{:.0f} units", length);
  const double metres = length / unitsPerMetre_;
  return metres < 1000 ? fmt::format("{:.0f} m", metres) : fmt::format("{:.1f} km", metres / 1000);
}

void RoutePlanner::describe(PlannedRoute& route, const NavigationGraph& network) const {
  const NodeList& path = route.path;
  if (path.size() == 1) {
    route.summary = "You are there already";
    return addFloor(route, path.front()->map);
  }
  double total = 0;
  double walked = 0;  // since the last step
  const Vortex* ridden = nullptr;
  route.steps.push_back({StepKind::departure,
                         fmt::format("Depart from {}", route.from->name.value_or("here")),
                         nameOfFloor(*path.front()->map), path.front()});
  addFloor(route, path.front()->map);
  for (std::size_t i = 1; i < path.size(); ++i) {
    const Edge* edge = command::cheapestEdge(network, *path[i - 1], *path[i]);
    if (edge == nullptr) continue;
    const Vortex* vortex = edge->vortex().get();
    const bool changesFloor = path[i - 1]->map != path[i]->map;
    if (vortex != nullptr && changesFloor) {
      const std::string text = rideText(*vortex, *path[i - 1]->map, *path[i]->map);
      if (vortex == ridden)
        route.steps.back().text = text;
      else
        route.steps.push_back({StepKind::ride, text, "after " + distanceText(walked), path[i - 1]});
      walked = 0;
    }
    ridden = vortex;
    walked += edge->distance();
    total += edge->distance();
    if (!changesFloor) addFloor(route, path[i]->map);
  }
  addFloor(route, path.back()->map);
  route.steps.push_back(
      {StepKind::arrival, fmt::format("Arrive at {}", route.to->name.value_or("the destination")),
       fmt::format("after {} on {}", distanceText(walked), nameOfFloor(*path.back()->map)),
       path.back()});
  route.summary = distanceText(total);
  if (unitsPerMetre_ > 0)
    route.summary += fmt::format(
        ", about {:.0f} min", std::max(1.0, std::round(total / unitsPerMetre_ / metresPerMinute)));
}

}  // namespace orivanta::viewer
