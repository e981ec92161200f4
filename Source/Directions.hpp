// Directions along a route, and the entry points of the route search.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

/// One instruction: the node where it applies, the action, the places and the text.
class ORIVANTA_API Direction {
 public:
  /// The kind of action.
  class ORIVANTA_API Action {
   public:
    virtual ~Action() = default;
  };

  /// Departure at the start of the route.
  class ORIVANTA_API Departure : public Action {};

  /// Arrival at the end of the route.
  class ORIVANTA_API Arrival : public Action {};

  /// A turn. For applications only: the library does not create turns.
  class ORIVANTA_API Turn : public Action {
   public:
    /// The direction of a turn, relative to the direction of walking.
    enum class Bearing {
      Left,         ///< to the left
      SlightLeft,   ///< a little to the left
      Straight,     ///< straight on
      SlightRight,  ///< a little to the right
      Right         ///< to the right
    };

    /// Where to turn, relative to a place.
    enum class ReferencePosition {
      At,     ///< at the place
      Past,   ///< after the place
      Before  ///< before the place
    };

    /// A turn at, after or before a place.
    Turn(Bearing bearing, ReferencePosition position)
        : relativeBearing(bearing), referencePosition(position) {}

    const Bearing relativeBearing;              ///< which way
    const ReferencePosition referencePosition;  ///< where
  };

  /// A ride between two floors. For applications only: the library does not create one.
  class ORIVANTA_API TakeVortex : public Action {
   public:
    /// Creates a ride from one floor to another.
    TakeVortex(std::shared_ptr<Map> from, std::shared_ptr<Map> to);

    const std::shared_ptr<Map> fromMap;  ///< where the ride starts
    const std::shared_ptr<Map> toMap;    ///< where the ride ends
  };

  /// Creates an instruction with both places.
  Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo,
            std::shared_ptr<Location> at, std::shared_ptr<Location> towards, std::string text);

  /// Creates an instruction without `towardsLocation`.
  Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo,
            std::shared_ptr<Location> at, std::string text);

  /// Creates an instruction without places.
  Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo, std::string text);

  const std::shared_ptr<Node> node;                 ///< where the instruction applies
  const std::shared_ptr<const Action> action;       ///< what to do
  const std::shared_ptr<Location> atLocation;       ///< may be null
  const std::shared_ptr<Location> towardsLocation;  ///< the place to walk toward; may be null
  const std::string instruction;                    ///< the text for users
};

/// The result of a route search. Owns the records that it refers to, so it stays valid after the
/// next load.
class ORIVANTA_API Directions {
 public:
  /// Creates "Depart from " with the place at the first node and "Arrive at " with the place at the
  /// last node. A null place produces no instruction; a place without a name is shown as "nil".
  /// Returns null if the path is empty.
  static std::shared_ptr<Directions> make(const std::optional<NodeList>& path,
                                          const std::shared_ptr<Location>& departFrom = nullptr,
                                          const std::shared_ptr<Location>& arriveAt = nullptr);

  NodeList path;                      ///< from a start node to the destination that was reached
  std::vector<Direction> directions;  ///< the instructions, in the order of the path
};

/// A start or an end of a route: any of several nodes. The directions name the location if there is
/// one.
class ORIVANTA_API RouteEnd {
 public:
  /// Any node of a location, which the directions name.
  RouteEnd(Location& location);  // NOLINT

  /// A single node.
  RouteEnd(Node& node, std::shared_ptr<Location> namedLocation = nullptr);  // NOLINT

  /// Any node of a location. Null is an end without nodes.
  RouteEnd(const std::shared_ptr<Location>& location);  // NOLINT

  /// A single node. Null is an end without nodes.
  RouteEnd(const std::shared_ptr<Node>& node,  // NOLINT
           std::shared_ptr<Location> namedLocation = nullptr);

  /// Any of these nodes.
  RouteEnd(NodeList nodeList, std::shared_ptr<Location> namedLocation = nullptr);  // NOLINT

  NodeList nodes;                      ///< the route uses any of these
  std::shared_ptr<Location> location;  ///< named in the directions; may be null
};

/// Searches a route in a graph, or in the graph of a loaded venue, which need not be active.
/// Returns null if there is no route, if either end has no nodes or if the venue has no graph. Runs
/// on the calling thread. Thread-safe, also while venues are being loaded.
///
///   getDirections(*venue, shop, cafe);  // handles or references of locations and nodes, or lists
ORIVANTA_API std::shared_ptr<Directions> getDirections(const NavigationGraph& graph,
                                                       const RouteEnd& from, const RouteEnd& to);

/// Overload for a venue.
ORIVANTA_API std::shared_ptr<Directions> getDirections(const Venue& venue, const RouteEnd& from,
                                                       const RouteEnd& to);

/// Searches a route in the active venue's graph from any of the start nodes to any of the
/// destinations. Returns null if there is no route, if either list is empty or if the venue has no
/// graph. Stops the program if no venue is active.
///
/// The search is A* with the distance to the farthest destination as its heuristic, so with several
/// destinations the route may not be the cheapest. Runs on the calling thread. Thread-safe, also
/// while venues are being loaded.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    const NodeList& starts, const NodeList& destinations,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Overload for one start node.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    Node& start, const NodeList& destinations,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Overload for one destination.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    const NodeList& starts, Node& destination,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Overload for one start node and one destination.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    Node& start, Node& destination, const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Searches a route from one of several nodes to a location; see `getDirections`.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(
    const NodeList& starts, Location& location,
    const std::shared_ptr<Location>& departFrom = nullptr);

/// Searches a route from one of several nodes to a node.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(
    const NodeList& starts, Node& node, const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Searches a route from one of several nodes to one of several others.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(
    const NodeList& starts, const NodeList& nodes,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Searches a route from a location to one of several nodes.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(
    const NodeList& destinations, Location& location,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Searches a route from a node to one of several others.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(
    const NodeList& destinations, Node& node, const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Searches a route from one of several nodes to one of several others.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(
    const NodeList& destinations, const NodeList& nodes,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// Searches a route between two ends in any loaded venue.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(const Venue& venue, const RouteEnd& from,
                                                      const RouteEnd& to);

/// Like `directionsTo`, with the ends in the opposite order.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(const Venue& venue, const RouteEnd& to,
                                                        const RouteEnd& from);

}  // namespace orivanta
