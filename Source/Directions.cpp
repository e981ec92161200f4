#include "Source/Directions.hpp"

#include <utility>

#include "Source/Loading/VenuePublishing.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"

namespace orivanta {

using LocationHandle = std::shared_ptr<Location>;

namespace {

NodeList listOf(Node& node) { return {node.shared_from_this()}; }

Direction namedDirection(const std::shared_ptr<Node>& node,
                         std::shared_ptr<const Direction::Action> action,
                         const LocationHandle& location, const char* verb) {
  return {node, std::move(action), location, verb + location->name.value_or("nil")};
}

}  // namespace

Direction::TakeVortex::TakeVortex(std::shared_ptr<Map> from, std::shared_ptr<Map> to)
    : fromMap(std::move(from)), toMap(std::move(to)) {}

Direction::Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo,
                     std::shared_ptr<Location> at, std::shared_ptr<Location> towards,
                     std::string text)
    : node(std::move(atNode)),
      action(std::move(whatToDo)),
      atLocation(std::move(at)),
      towardsLocation(std::move(towards)),
      instruction(std::move(text)) {}

Direction::Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo,
                     std::shared_ptr<Location> at, std::string text)
    : Direction(std::move(atNode), std::move(whatToDo), std::move(at), nullptr, std::move(text)) {}

Direction::Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo,
                     std::string text)
    : Direction(std::move(atNode), std::move(whatToDo), nullptr, nullptr, std::move(text)) {}

std::shared_ptr<Directions> Directions::make(const std::optional<NodeList>& path,
                                             const LocationHandle& departFrom,
                                             const LocationHandle& arriveAt) {
  if (!path || path->empty()) return nullptr;
  auto directions = std::make_shared<Directions>();
  directions->path = *path;
  if (departFrom)
    directions->directions.push_back(namedDirection(
        path->front(), std::make_shared<Direction::Departure>(), departFrom, "Depart from "));
  if (arriveAt)
    directions->directions.push_back(namedDirection(
        path->back(), std::make_shared<Direction::Arrival>(), arriveAt, "Arrive at "));
  return directions;
}

RouteEnd::RouteEnd(Location& start) : nodes(start.nodes), location(start.shared_from_this()) {}

RouteEnd::RouteEnd(Node& node, std::shared_ptr<Location> namedLocation)
    : nodes(listOf(node)), location(std::move(namedLocation)) {}

RouteEnd::RouteEnd(const std::shared_ptr<Location>& start)
    : nodes(start ? start->nodes : NodeList()), location(start) {}

RouteEnd::RouteEnd(const std::shared_ptr<Node>& node, std::shared_ptr<Location> namedLocation)
    : nodes(node ? NodeList{node} : NodeList()), location(std::move(namedLocation)) {}

RouteEnd::RouteEnd(NodeList nodeList, std::shared_ptr<Location> namedLocation)
    : nodes(std::move(nodeList)), location(std::move(namedLocation)) {}

std::shared_ptr<Directions> getDirections(const NavigationGraph& graph, const RouteEnd& from,
                                          const RouteEnd& to) {
  return Directions::make(AStar(from.nodes, to.nodes, graph), from.location, to.location);
}

std::shared_ptr<Directions> getDirections(const Venue& venue, const RouteEnd& from,
                                          const RouteEnd& to) {
  const auto graph = graphOf(venue);
  return graph ? getDirections(*graph, from, to) : nullptr;
}

std::shared_ptr<Directions> directionsTo(const Venue& venue, const RouteEnd& from,
                                         const RouteEnd& to) {
  return getDirections(venue, from, to);
}

std::shared_ptr<Directions> directionsFrom(const Venue& venue, const RouteEnd& to,
                                           const RouteEnd& from) {
  return getDirections(venue, from, to);
}

std::shared_ptr<Directions> getDirections(const NodeList& starts, const NodeList& destinations,
                                          const LocationHandle& departFrom,
                                          const LocationHandle& arriveAt) {
  const auto graph = activeGraph();
  if (!graph) return nullptr;
  return Directions::make(AStar(starts, destinations, *graph), departFrom, arriveAt);
}

std::shared_ptr<Directions> getDirections(Node& start, const NodeList& destinations,
                                          const LocationHandle& departFrom,
                                          const LocationHandle& arriveAt) {
  return getDirections(listOf(start), destinations, departFrom, arriveAt);
}

std::shared_ptr<Directions> getDirections(const NodeList& starts, Node& destination,
                                          const LocationHandle& departFrom,
                                          const LocationHandle& arriveAt) {
  return getDirections(starts, listOf(destination), departFrom, arriveAt);
}

std::shared_ptr<Directions> getDirections(Node& start, Node& destination,
                                          const LocationHandle& departFrom,
                                          const LocationHandle& arriveAt) {
  return getDirections(listOf(start), listOf(destination), departFrom, arriveAt);
}

std::shared_ptr<Directions> directionsTo(const NodeList& starts, Location& location,
                                         const LocationHandle& departFrom) {
  return getDirections(starts, location.nodes, departFrom, location.shared_from_this());
}

std::shared_ptr<Directions> directionsTo(const NodeList& starts, Node& node,
                                         const LocationHandle& departFrom,
                                         const LocationHandle& arriveAt) {
  return getDirections(starts, node, departFrom, arriveAt);
}

std::shared_ptr<Directions> directionsTo(const NodeList& starts, const NodeList& nodes,
                                         const LocationHandle& departFrom,
                                         const LocationHandle& arriveAt) {
  return getDirections(starts, nodes, departFrom, arriveAt);
}

std::shared_ptr<Directions> directionsFrom(const NodeList& destinations, Location& location,
                                           const LocationHandle& arriveAt) {
  return getDirections(location.nodes, destinations, location.shared_from_this(), arriveAt);
}

std::shared_ptr<Directions> directionsFrom(const NodeList& destinations, Node& node,
                                           const LocationHandle& departFrom,
                                           const LocationHandle& arriveAt) {
  return getDirections(node, destinations, departFrom, arriveAt);
}

std::shared_ptr<Directions> directionsFrom(const NodeList& destinations, const NodeList& nodes,
                                           const LocationHandle& departFrom,
                                           const LocationHandle& arriveAt) {
  return getDirections(nodes, destinations, departFrom, arriveAt);
}

}  // namespace orivanta
