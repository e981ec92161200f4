// A point of the navigation graph: a position on one floor.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"
#include "Source/Record.hpp"

namespace orivanta {

/// Owns its map. The navigation graph reads its walking edges from `_data`, under "paths".
class ORIVANTA_API Node : public std::enable_shared_from_this<Node> {
 public:
  /// Returns null unless there are a string under "id" and numbers under "x" and "y".
  static std::shared_ptr<Node> make(const RawData& data);
  Node(RecordToken, const RawData& data);  ///< for `make`
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  RawData _data;                  ///< the JSON of which the record was made
  std::optional<std::string> id;  ///< the identifier; never absent after `make`
  std::shared_ptr<Map> map;       ///< never null in a published venue
  double x;                 ///< position in the venue's units; z is up and does not include the
  double y;                 ///< map's elevation
  double z;                 ///< see `x`
  double constantWeight;    ///< added to the cost of every edge that enters this node
  double multiplierWeight;  ///< multiplies the length of every edge that enters this node
  const IdentityHash hashValue;  ///< by identity

  friend bool operator==(const Node& left, const Node& right) {
    return left.hashValue == right.hashValue;
  }

  /// Searches a route to a location. Like the following members, searches the graph of the active
  /// venue as `getDirections` does. Returns null if there is no route.
  std::shared_ptr<Directions> directionsTo(Location& location,
                                           const std::shared_ptr<Location>& departFrom = nullptr);

  /// Searches a route to another node.
  std::shared_ptr<Directions> directionsTo(Node& node,
                                           const std::shared_ptr<Location>& departFrom = nullptr,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);

  /// Searches a route to one of several nodes.
  std::shared_ptr<Directions> directionsTo(const NodeList& nodes,
                                           const std::shared_ptr<Location>& departFrom = nullptr,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);

  /// Searches a route from a location.
  std::shared_ptr<Directions> directionsFrom(Location& location,
                                             const std::shared_ptr<Location>& arriveAt = nullptr);

  /// Searches a route from another node.
  std::shared_ptr<Directions> directionsFrom(Node& node,
                                             const std::shared_ptr<Location>& departFrom = nullptr,
                                             const std::shared_ptr<Location>& arriveAt = nullptr);

  /// Searches a route from one of several nodes.
  std::shared_ptr<Directions> directionsFrom(const NodeList& nodes,
                                             const std::shared_ptr<Location>& departFrom = nullptr,
                                             const std::shared_ptr<Location>& arriveAt = nullptr);

  /// Searches a route to another end in any loaded venue. Returns null if there is no route.
  std::shared_ptr<Directions> directionsTo(const Venue& venue, const RouteEnd& to);

  /// Searches a route from another end in any loaded venue. Returns null if there is no route.
  std::shared_ptr<Directions> directionsFrom(const Venue& venue, const RouteEnd& from);
};

}  // namespace orivanta

/// Hash of a node, by identity.
template <>
struct std::hash<orivanta::Node> {
  /// Returns the hash.
  std::size_t operator()(const orivanta::Node& node) const { return node.hashValue; }
};
