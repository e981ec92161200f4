// An area of a floor's 3D scene that can be tapped, with the nodes that are its entrances.
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

/// Owns its map and entrances. Locations own their polygons, so `locations` holds weak references.
class ORIVANTA_API Polygon {
 public:
  /// Returns null if there is no string under "id".
  static std::shared_ptr<Polygon> make(const RawData& data);
  Polygon(RecordToken, const RawData& data);  ///< for `make`
  Polygon(const Polygon&) = delete;
  Polygon& operator=(const Polygon&) = delete;

  RawData _data;                                   ///< the JSON of which the record was made
  std::optional<std::string> id;                   ///< the identifier; never absent after `make`
  std::shared_ptr<Map> map;                        ///< never null in a published venue
  std::vector<std::weak_ptr<Location>> locations;  ///< the locations that have this area
  const IdentityHash hashValue;                    ///< by identity
  NodeList entrances;                              ///< where routes to the area end

  friend bool operator==(const Polygon& left, const Polygon& right) {
    return left.hashValue == right.hashValue;
  }
};

}  // namespace orivanta

/// Hash of a polygon, by identity.
template <>
struct std::hash<orivanta::Polygon> {
  /// Returns the hash.
  std::size_t operator()(const orivanta::Polygon& polygon) const { return polygon.hashValue; }
};
