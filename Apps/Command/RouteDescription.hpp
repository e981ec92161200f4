// What there is to say about a route: its directions, floors, rides, length and cost.
#pragma once

#include <boost/json/object.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::command {

/// A ride on one connector, over as many stops as the path makes on it.
struct Ride {
  std::shared_ptr<Vortex> connector;
  std::shared_ptr<Map> from;
  std::shared_ptr<Map> to;
};

struct RouteDescription {
  std::shared_ptr<const Directions> directions;
  std::vector<std::shared_ptr<Map>> floors;  ///< as the path passes them; one may come again
  std::vector<Ride> rides;
  double length = 0.0;                 ///< of the walking edges, in the venue's units
  std::optional<double> lengthMetres;  ///< when the venue tells its units per meter
  double weight = 0.0;                 ///< what the path costs in the graph
};

/// The edge that a route takes from a node to the next one: the cheapest, the first among equals.
/// Null when there is none. The pointer is into the graph.
const Edge* cheapestEdge(const NavigationGraph& graph, const Node& from, const Node& to);

/// The sum of the cheapest edges' weights along a path, added from its start.
double pathWeight(const NavigationGraph& graph, const NodeList& path);

/// For a route through the venue, which has been loaded.
RouteDescription describeRoute(const Venue& venue, std::shared_ptr<const Directions> directions);

/// The description as lines, and as JSON.
std::string routeText(const RouteDescription& route);
boost::json::object routeJson(const RouteDescription& route);

}  // namespace orivanta::command
