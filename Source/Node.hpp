// A point of the venue's walking network: a position on one map.
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

/// Owns its map. Its walking links stay in `_data` under "paths", for the navigation graph.
class ORIVANTA_API Node : public std::enable_shared_from_this<Node> {
 public:
  /// Needs a text under "id" and numbers under "x" and "y"; null without them.
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

  /// The route to a location. Like the following, searches the graph of the active venue as
  /// `getDirections` does. Null if there is no route.
  std::shared_ptr<Directions> directionsTo(Location& location,
                                           const std::shared_ptr<Location>& departFrom = nullptr);

  /// The route to another node.
  std::shared_ptr<Directions> directionsTo(Node& node,
                                           const std::shared_ptr<Location>& departFrom = nullptr,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);

  /// The route to one of several nodes.
  std::shared_ptr<Directions> directionsTo(const NodeList& nodes,
                                           const std::shared_ptr<Location>& departFrom = nullptr,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);

  /// The route from a location.
  std::shared_ptr<Directions> directionsFrom(Location& location,
                                             const std::shared_ptr<Location>& arriveAt = nullptr);

  /// The route from another node.
  std::shared_ptr<Directions> directionsFrom(Node& node,
                                             const std::shared_ptr<Location>& departFrom = nullptr,
                                             const std::shared_ptr<Location>& arriveAt = nullptr);

  /// The route from one of several nodes.
  std::shared_ptr<Directions> directionsFrom(const NodeList& nodes,
                                             const std::shared_ptr<Location>& departFrom = nullptr,
                                             const std::shared_ptr<Location>& arriveAt = nullptr);

  // The same in any loaded venue, active or not.
  /// The route to another end in any loaded venue, active or not. Null if there is no route.
  std::shared_ptr<Directions> directionsTo(const Venue& venue, const RouteEnd& to);

  /// The route from another end in any loaded venue, active or not. Null if there is no route.
  std::shared_ptr<Directions> directionsFrom(const Venue& venue, const RouteEnd& from);
};

}  // namespace orivanta

/// Hash of a node, by identity.
template <>
struct std::hash<orivanta::Node> {
  /// The hash.
  std::size_t operator()(const orivanta::Node& node) const { return node.hashValue; }
};
