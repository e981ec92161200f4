// Directions along a route, and the route search's entry points.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

/// One instruction: the node where it applies, what to do there, the places involved, the text.
class ORIVANTA_API Direction {
 public:
  /// What to do.
  class ORIVANTA_API Action {
   public:
    virtual ~Action() = default;
  };

  /// The start of the route.
  class ORIVANTA_API Departure : public Action {};

  /// The end of the route.
  class ORIVANTA_API Arrival : public Action {};

  /// For applications: the library itself makes no turns.
  class ORIVANTA_API Turn : public Action {
   public:
    /// Which way to turn, seen in the direction of walking.
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

  /// For applications: a ride between two maps. The library itself makes none.
  class ORIVANTA_API TakeVortex : public Action {
   public:
    /// A ride from one floor to another.
    TakeVortex(std::shared_ptr<Map> from, std::shared_ptr<Map> to);

    const std::shared_ptr<Map> fromMap;  ///< where the ride starts
    const std::shared_ptr<Map> toMap;    ///< where the ride ends
  };

  /// An instruction with both places.
  Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo,
            std::shared_ptr<Location> at, std::shared_ptr<Location> towards, std::string text);

  /// An instruction without a place that is headed for.
  Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo,
            std::shared_ptr<Location> at, std::string text);

  /// An instruction without a place.
  Direction(std::shared_ptr<Node> atNode, std::shared_ptr<const Action> whatToDo, std::string text);

  const std::shared_ptr<Node> node;                 ///< where the instruction applies
  const std::shared_ptr<const Action> action;       ///< what to do
  const std::shared_ptr<Location> atLocation;       ///< null if no place is named
  const std::shared_ptr<Location> towardsLocation;  ///< null if no place is headed for
  const std::string instruction;                    ///< the text for people
};

/// The result of a route search. Owns the records that it names, so it stays valid after the next
/// venue load.
class ORIVANTA_API Directions {
 public:
  /// "Depart from " and the place at the first node, "Arrive at " and the place at the last; a
  /// place that is null gives no instruction, one without a name reads "nil". Null for an empty
  /// path.
  static std::shared_ptr<Directions> make(const std::optional<NodeList>& path,
                                          const std::shared_ptr<Location>& departFrom = nullptr,
                                          const std::shared_ptr<Location>& arriveAt = nullptr);

  NodeList path;                      ///< from a start node to the destination that was reached
  std::vector<Direction> directions;  ///< the instructions, in the order of the path
};

/// Where a route starts or ends: at any of some nodes. The location, if there is one, is named in
/// the directions.
class ORIVANTA_API RouteEnd {
 public:
  // Not explicit, so that calls may name a location, a node or a list.
  /// At any node of a location, which the directions name.
  RouteEnd(Location& location);  // NOLINT

  /// At a node.
  RouteEnd(Node& node, std::shared_ptr<Location> namedLocation = nullptr);  // NOLINT

  /// At any of these nodes.
  RouteEnd(NodeList nodeList, std::shared_ptr<Location> namedLocation = nullptr);  // NOLINT

  NodeList nodes;                      ///< any of these
  std::shared_ptr<Location> location;  ///< named in the directions; may be null
};

/// Searches a route over a graph, or over the graph of any loaded venue, active or not. Null when
/// there is none, when either end has no nodes or when the venue has no graph. Runs on the calling
/// thread. Any thread, several at once, also while venues are loaded.
///
///   getDirections(*venue, *shop, *cafe);
ORIVANTA_API std::shared_ptr<Directions> getDirections(const NavigationGraph& graph,
                                                       const RouteEnd& from, const RouteEnd& to);

/// As above, for other ends.
ORIVANTA_API std::shared_ptr<Directions> getDirections(const Venue& venue, const RouteEnd& from,
                                                       const RouteEnd& to);

/// Searches a route over the active venue's graph, from any of the start nodes to any of the
/// destinations. Null when there is none, when either list is empty or when the venue has no graph.
/// Stops the program when no venue is active.
///
/// The search is A* with the distance to the farthest destination as its heuristic, so with several
/// destinations the route may not be the cheapest. Runs on the calling thread; several at once are
/// safe as long as no load starts.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    const NodeList& starts, const NodeList& destinations,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// As above, from one node.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    Node& start, const NodeList& destinations,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// As above, to one node.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    const NodeList& starts, Node& destination,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// As above, from one node to another.
ORIVANTA_API std::shared_ptr<Directions> getDirections(
    Node& start, Node& destination, const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// The route from one of several nodes to a location; see `getDirections`.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(
    const NodeList& starts, Location& location,
    const std::shared_ptr<Location>& departFrom = nullptr);

/// The route from one of several nodes to a node.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(
    const NodeList& starts, Node& node, const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// The route from one of several nodes to one of several others.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(
    const NodeList& starts, const NodeList& nodes,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// The route from a location to one of several nodes.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(
    const NodeList& destinations, Location& location,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// The route from a node to one of several others.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(
    const NodeList& destinations, Node& node, const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// The route from one of several nodes to one of several others.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(
    const NodeList& destinations, const NodeList& nodes,
    const std::shared_ptr<Location>& departFrom = nullptr,
    const std::shared_ptr<Location>& arriveAt = nullptr);

/// The same in any loaded venue.
ORIVANTA_API std::shared_ptr<Directions> directionsTo(const Venue& venue, const RouteEnd& from,
                                                      const RouteEnd& to);

/// As above, with the ends the other way round.
ORIVANTA_API std::shared_ptr<Directions> directionsFrom(const Venue& venue, const RouteEnd& to,
                                                        const RouteEnd& from);

}  // namespace orivanta
