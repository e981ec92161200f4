// A place of interest: a shop, an amenity, a room.
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
  /// Needs texts under "id", "name" and "type"; null without them.
  static std::shared_ptr<Location> make(const RawData& data);
  Location(RecordToken, const RawData& data);
  virtual ~Location() = default;
  Location(const Location&) = delete;
  Location& operator=(const Location&) = delete;

  RawData _data;
  std::optional<std::string> id;
  std::optional<std::string> name;
  std::optional<std::string> type;
  std::optional<std::string> description;
  std::shared_ptr<const ImageCollection> logo;
  std::shared_ptr<const ImageCollection> picture;
  std::vector<std::shared_ptr<Category>> categories;
  NodeList nodes;
  std::vector<std::shared_ptr<Polygon>> polygons;

  // Routes between this location's nodes and others, over the active venue's graph. Each is a call
  // of `getDirections` with this location as the place of departure or arrival; null when there is
  // no route.
  std::shared_ptr<Directions> directionsTo(Location& location);
  std::shared_ptr<Directions> directionsTo(Node& node,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);
  std::shared_ptr<Directions> directionsTo(const NodeList& nodes,
                                           const std::shared_ptr<Location>& arriveAt = nullptr);
  std::shared_ptr<Directions> directionsFrom(Location& location);
  std::shared_ptr<Directions> directionsFrom(Node& node,
                                             const std::shared_ptr<Location>& departFrom = nullptr);
  std::shared_ptr<Directions> directionsFrom(const NodeList& nodes,
                                             const std::shared_ptr<Location>& departFrom = nullptr);

  // The same in any loaded venue, active or not.
  std::shared_ptr<Directions> directionsTo(const Venue& venue, const RouteEnd& to);
  std::shared_ptr<Directions> directionsFrom(const Venue& venue, const RouteEnd& from);
};

}  // namespace orivanta
