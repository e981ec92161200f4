#include "Apps/Command/RouteDescription.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <cmath>
#include <utility>

#include "Apps/Command/Places.hpp"
#include "Apps/Command/Table.hpp"
#include "Apps/Command/Text.hpp"
#include "Source/Directions.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::command {

namespace json = boost::json;

namespace {

std::string rounded(double number) {
  return std::abs(number) < 1e9 ? fmt::format("{:.1f}", number) : fmt::format("{:.6g}", number);
}

void addStep(RouteDescription& route, bool ridingOn, const Node& from, const Edge& edge) {
  route.length += edge.distance();
  route.weight += edge.weight();
  if (ridingOn)
    route.rides.back().to = edge.node()->map;
  else if (edge.vortex())
    route.rides.push_back({edge.vortex(), from.map, edge.node()->map});
}

std::string lengthText(const RouteDescription& route) {
  const std::string units = rounded(route.length) + " units";
  return route.lengthMetres ? fmt::format("{} m ({})", rounded(*route.lengthMetres), units) : units;
}

json::object directionJson(const Direction& direction) {
  const Direction::Action* action = direction.action.get();
  const bool departure = dynamic_cast<const Direction::Departure*>(action) != nullptr;
  return {{"node", *direction.node->id},
          {"action", departure ? "departure" : "arrival"},
          {"location", *direction.atLocation->id},
          {"instruction", direction.instruction}};
}

json::object rideJson(const Ride& ride) {
  return {{"id", *ride.connector->id},     {"name", *ride.connector->name},
          {"type", *ride.connector->type}, {"accessible", ride.connector->accessible},
          {"from", *ride.from->id},        {"to", *ride.to->id}};
}

}  // namespace

const Edge* cheapestEdge(const NavigationGraph& graph, const Node& from, const Node& to) {
  const Edge* cheapest = nullptr;
  for (const Edge& edge : graph[from])
    if (edge.node().get() == &to && (cheapest == nullptr || edge.weight() < cheapest->weight()))
      cheapest = &edge;
  return cheapest;
}

double pathWeight(const NavigationGraph& graph, const NodeList& path) {
  double weight = 0.0;
  for (std::size_t i = 1; i < path.size(); ++i)
    if (const Edge* edge = cheapestEdge(graph, *path[i - 1], *path[i])) weight += edge->weight();
  return weight;
}

RouteDescription describeRoute(const Venue& venue, std::shared_ptr<const Directions> directions) {
  RouteDescription route;
  const NodeList& path = directions->path;
  const Vortex* ridden = nullptr;
  for (std::size_t i = 1; i < path.size(); ++i) {
    const Edge* edge = cheapestEdge(*venue.navigationGraph, *path[i - 1], *path[i]);
    if (edge == nullptr) continue;
    addStep(route, ridden != nullptr && edge->vortex().get() == ridden, *path[i - 1], *edge);
    ridden = edge->vortex().get();
  }
  for (const auto& node : path)
    if (route.floors.empty() || route.floors.back() != node->map) route.floors.push_back(node->map);
  const double unitsPerMetre = venue._data["unitsPerMetre"].doubleValue();
  if (unitsPerMetre > 0.0) route.lengthMetres = route.length / unitsPerMetre;
  route.directions = std::move(directions);
  return route;
}

std::string routeText(const RouteDescription& route) {
  std::string text;
  for (const Direction& direction : route.directions->directions)
    text += printable(direction.instruction) + '\n';
  Table table({Alignment::left, Alignment::left});
  table.add({"Floors:", floorLabels(route.floors)});
  for (std::size_t i = 0; i < route.rides.size(); ++i) {
    const Ride& ride = route.rides[i];
    table.add(
        {i == 0 ? "Connectors:" : "",
         fmt::format("{} ({}), {} -> {}", label(*ride.connector->name),
                     label(*ride.connector->type), floorLabel(*ride.from), floorLabel(*ride.to))});
  }
  table.add({"Length:", lengthText(route)});
  return text + table.text();
}

json::object routeJson(const RouteDescription& route) {
  json::array path;
  for (const auto& node : route.directions->path) path.emplace_back(*node->id);
  json::array directions;
  for (const Direction& direction : route.directions->directions)
    directions.push_back(directionJson(direction));
  json::array floors;
  for (const auto& map : route.floors)
    floors.push_back(
        json::object({{"id", *map->id}, {"name", map->name}, {"shortName", map->shortName}}));
  json::array connectors;
  for (const Ride& ride : route.rides) connectors.push_back(rideJson(ride));
  json::object result({{"path", std::move(path)},
                       {"directions", std::move(directions)},
                       {"floors", std::move(floors)},
                       {"connectors", std::move(connectors)},
                       {"length", route.length}});
  if (route.lengthMetres) result["lengthMetres"] = *route.lengthMetres;
  result["weight"] = route.weight;
  return result;
}

}  // namespace orivanta::command
