// One floor of a venue, with the files of its 3D scene.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Source/Fwd.hpp"
#include "Source/Record.hpp"

namespace orivanta {

namespace scene {
class Node;
}

/// One floor of a venue.
class ORIVANTA_API Map {
 public:
  /// Returns null if there is no string under "id".
  static std::shared_ptr<Map> make(const RawData& data);
  Map(RecordToken, const RawData& data);  ///< for `make`
  Map(const Map&) = delete;
  Map& operator=(const Map&) = delete;

  RawData _data;                       ///< the JSON of which the record was made
  std::optional<std::string> id;       ///< the identifier; never absent after `make`
  std::string name;                    ///< "" when missing
  std::string shortName;               ///< "" when missing
  double elevation;                    ///< in the venue's units; 0 when missing
  std::optional<foundation::Url> obj;  ///< the 3D model
  std::optional<foundation::Url> mtl;  ///< its material library
  const IdentityHash hashValue;        ///< by identity

  /// The floor's model, with one child per material. Null until a map view has loaded it.
  std::shared_ptr<scene::Node> mapObject;

  friend bool operator==(const Map& left, const Map& right) {
    return left.hashValue == right.hashValue;
  }
};

}  // namespace orivanta

/// Hash of a floor, by identity.
template <>
struct std::hash<orivanta::Map> {
  /// Returns the hash.
  std::size_t operator()(const orivanta::Map& map) const { return map.hashValue; }
};
