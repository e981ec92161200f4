// The route searches of nodes and locations, which Node.hpp and Location.hpp declare. They are
// defined here so that the records do not depend on the route search.
#include "Source/Directions.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"

namespace orivanta {

using LocationHandle = std::shared_ptr<Location>;

namespace {

NodeList listOf(Node& node) { return {node.shared_from_this()}; }

}  // namespace

std::shared_ptr<Directions> Location::directionsTo(Location& location) {
  return getDirections(nodes, location.nodes, shared_from_this(), location.shared_from_this());
}

std::shared_ptr<Directions> Location::directionsTo(Node& node, const LocationHandle& arriveAt) {
  return getDirections(nodes, node, shared_from_this(), arriveAt);
}

std::shared_ptr<Directions> Location::directionsTo(const NodeList& destinations,
                                                   const LocationHandle& arriveAt) {
  return getDirections(nodes, destinations, shared_from_this(), arriveAt);
}

std::shared_ptr<Directions> Location::directionsFrom(Location& location) {
  return location.directionsTo(*this);
}

std::shared_ptr<Directions> Location::directionsFrom(Node& node, const LocationHandle& departFrom) {
  return getDirections(node, nodes, departFrom, shared_from_this());
}

std::shared_ptr<Directions> Location::directionsFrom(const NodeList& starts,
                                                     const LocationHandle& departFrom) {
  return getDirections(starts, nodes, departFrom, shared_from_this());
}

std::shared_ptr<Directions> Location::directionsTo(const Venue& venue, const RouteEnd& to) {
  return getDirections(venue, *this, to);
}

std::shared_ptr<Directions> Location::directionsFrom(const Venue& venue, const RouteEnd& from) {
  return getDirections(venue, from, *this);
}

std::shared_ptr<Directions> Node::directionsTo(const Venue& venue, const RouteEnd& to) {
  return getDirections(venue, *this, to);
}

std::shared_ptr<Directions> Node::directionsFrom(const Venue& venue, const RouteEnd& from) {
  return getDirections(venue, from, *this);
}

std::shared_ptr<Directions> Node::directionsTo(Location& location,
                                               const LocationHandle& departFrom) {
  return orivanta::directionsTo(listOf(*this), location, departFrom);
}

std::shared_ptr<Directions> Node::directionsTo(Node& node, const LocationHandle& departFrom,
                                               const LocationHandle& arriveAt) {
  return getDirections(*this, node, departFrom, arriveAt);
}

std::shared_ptr<Directions> Node::directionsTo(const NodeList& nodes,
                                               const LocationHandle& departFrom,
                                               const LocationHandle& arriveAt) {
  return getDirections(*this, nodes, departFrom, arriveAt);
}

std::shared_ptr<Directions> Node::directionsFrom(Location& location,
                                                 const LocationHandle& arriveAt) {
  return orivanta::directionsFrom(listOf(*this), location, arriveAt);
}

std::shared_ptr<Directions> Node::directionsFrom(Node& node, const LocationHandle& departFrom,
                                                 const LocationHandle& arriveAt) {
  return getDirections(node, *this, departFrom, arriveAt);
}

std::shared_ptr<Directions> Node::directionsFrom(const NodeList& nodes,
                                                 const LocationHandle& departFrom,
                                                 const LocationHandle& arriveAt) {
  return getDirections(nodes, *this, departFrom, arriveAt);
}

}  // namespace orivanta
