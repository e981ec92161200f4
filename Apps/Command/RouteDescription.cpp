#include "Apps/Command/RouteDescription.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <cmath>
#include <utility>

#include "Apps/Command/Table.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Directions.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::command {

using foundation::label;
using foundation::printable;

namespace json = boost::json;

namespace {

std::string rounded(double number) {
  return std::abs(number) < 1e9 ? fmt::format("{:.1f}", number) : fmt::format("{:.6g}", number);
}

std::string lengthText(const RouteDescription& route) {
  const std::string units = rounded(route.walk.length()) + " units";
  return route.lengthMeters ? fmt::format("{} m ({})", rounded(*route.lengthMeters), units) : units;
}

const Map& floorAt(const RouteDescription& route, std::size_t index) {
  return *route.walk.path()[index]->map;
}

std::string rideText(const RouteDescription& route, const Ride& ride) {
  return fmt::format("{} ({}), {} -> {}", label(*ride.connector->name),
                     label(*ride.connector->type), floorLabel(floorAt(route, ride.begin)),
                     floorLabel(floorAt(route, ride.end)));
}

json::object directionJson(const Direction& direction) {
  const Direction::Action* action = direction.action.get();
  const bool departure = dynamic_cast<const Direction::Departure*>(action) != nullptr;
  return {{"node", *direction.node->id},
          {"action", departure ? "departure" : "arrival"},
          {"location", *direction.atLocation->id},
          {"instruction", direction.instruction}};
}

std::optional<double> expectedSeconds(const Venue& venue, const NodeList& path) {
  const auto guide = guidance::Guide::make(venue);
  const auto itinerary = guide ? guide->itinerary(path) : std::nullopt;
  if (!itinerary || !itinerary->hasScale) return std::nullopt;
  return itinerary->seconds();
}

json::object rideJson(const RouteDescription& route, const Ride& ride) {
  return {{"id", *ride.connector->id},
          {"name", *ride.connector->name},
          {"type", *ride.connector->type},
          {"accessible", ride.connector->accessible},
          {"from", *floorAt(route, ride.begin).id},
          {"to", *floorAt(route, ride.end).id}};
}

}  // namespace

RouteDescription describeRoute(const Venue& venue, std::shared_ptr<const Directions> directions) {
  PathWalk walk(directions->path, *venue.navigationGraph);
  const double unitsPerMeter = venue._data["unitsPerMetre"].doubleValue();
  std::optional<double> lengthMeters;
  if (unitsPerMeter > 0.0) lengthMeters = walk.length() / unitsPerMeter;
  return {directions, std::move(walk), lengthMeters, expectedSeconds(venue, directions->path)};
}

std::string routeText(const RouteDescription& route) {
  std::string text;
  for (const Direction& direction : route.directions->directions)
    text += printable(direction.instruction) + '\n';
  Table table({Alignment::left, Alignment::left});
  table.add({"Floors:", floorLabels(floorsAlong(route.walk.path()))});
  std::string title = "Connectors:";
  for (const Ride& ride : route.walk.rides())
    table.add({std::exchange(title, ""), rideText(route, ride)});
  table.add({"Length:", lengthText(route)});
  if (route.seconds)
    table.add(
        {"Time:", fmt::format("{:.0f} min", std::max(1.0, std::round(*route.seconds / 60.0)))});
  return text + table.text();
}

json::object routeJson(const RouteDescription& route) {
  json::array path;
  for (const auto& node : route.walk.path()) path.emplace_back(*node->id);
  json::array directions;
  for (const Direction& direction : route.directions->directions)
    directions.push_back(directionJson(direction));
  json::array floors;
  for (const auto& map : floorsAlong(route.walk.path()))
    floors.push_back(
        json::object({{"id", *map->id}, {"name", map->name}, {"shortName", map->shortName}}));
  json::array connectors;
  for (const Ride& ride : route.walk.rides()) connectors.push_back(rideJson(route, ride));
  json::object result({{"path", std::move(path)},
                       {"directions", std::move(directions)},
                       {"floors", std::move(floors)},
                       {"connectors", std::move(connectors)},
                       {"length", route.walk.length()}});
  if (route.lengthMeters) result["lengthMetres"] = *route.lengthMeters;
  if (route.seconds) result["seconds"] = std::round(*route.seconds);
  result["weight"] = route.walk.weight();
  return result;
}

}  // namespace orivanta::command
