// A clickable area of a map's 3D scene, with the nodes that serve as its entrances.
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

/// Owns its map and entrances. Its locations own it, so the links to them do not own.
class ORIVANTA_API Polygon {
 public:
  /// Needs a text under "id"; null without it.
  static std::shared_ptr<Polygon> make(const RawData& data);
  Polygon(RecordToken, const RawData& data);
  Polygon(const Polygon&) = delete;
  Polygon& operator=(const Polygon&) = delete;

  RawData _data;
  std::optional<std::string> id;
  std::shared_ptr<Map> map;  ///< never null in a published venue
  std::vector<std::weak_ptr<Location>> locations;
  const IdentityHash hashValue;
  NodeList entrances;

  friend bool operator==(const Polygon& left, const Polygon& right) {
    return left.hashValue == right.hashValue;
  }
};

}  // namespace orivanta

template <>
struct std::hash<orivanta::Polygon> {
  std::size_t operator()(const orivanta::Polygon& polygon) const { return polygon.hashValue; }
};
