// A place, such as a shop, an amenity or a room.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"
#include "Source/Record.hpp"

namespace orivanta {

/// Owns its categories, nodes and polygons.
class ORIVANTA_API Location : public std::enable_shared_from_this<Location> {
 public:
  /// Returns null unless there are strings under "id", "name" and "type".
  static std::shared_ptr<Location> make(const RawData& data);
  Location(RecordToken, const RawData& data);  ///< for `make`
  virtual ~Location() = default;
  Location(const Location&) = delete;
  Location& operator=(const Location&) = delete;

  RawData _data;                                   ///< the JSON of which the record was made
  std::optional<std::string> id;                   ///< the identifier; never absent after `make`
  std::optional<std::string> name;                 ///< never absent after `make`
  std::optional<std::string> type;                 ///< the kind of place; never absent after `make`
  std::optional<std::string> description;          ///< for users
  std::shared_ptr<const ImageCollection> logo;     ///< null if there is none
  std::shared_ptr<const ImageCollection> picture;  ///< null if there is none
  std::vector<std::shared_ptr<Category>> categories;  ///< in the order of the record
  NodeList nodes;                                     ///< where routes to the location end
  std::vector<std::shared_ptr<Polygon>> polygons;     ///< the areas of the location

  /// Searches a route to another location. Like the following members, searches the graph of the
  /// active venue from or to the nodes of this location as `getDirections` does, with this location
  /// as the place of departure or arrival. Returns null if there is no route.
  std::shared_ptr<Directions> directionsTo(Location& location);

  /// Searches a route to a node.
  std::shared_ptr<Directions> directionsTo(Node& node,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);

  /// Searches a route to one of several nodes.
  std::shared_ptr<Directions> directionsTo(const NodeList& nodes,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);

  /// Searches a route from another location.
  std::shared_ptr<Directions> directionsFrom(Location& location);

  /// Searches a route from a node.
  std::shared_ptr<Directions> directionsFrom(Node& node,
                                             const std::shared_ptr<Location>& departFrom = nullptr);

  /// Searches a route from one of several nodes.
  std::shared_ptr<Directions> directionsFrom(const NodeList& nodes,
                                             const std::shared_ptr<Location>& departFrom = nullptr);

  /// Searches a route to another end in any loaded venue. Returns null if there is no route.
  std::shared_ptr<Directions> directionsTo(const Venue& venue, const RouteEnd& to);

  /// Searches a route from another end in any loaded venue. Returns null if there is no route.
  std::shared_ptr<Directions> directionsFrom(const Venue& venue, const RouteEnd& from);
};

}  // namespace orivanta
