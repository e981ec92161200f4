// What stands over the map at a place of it.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

class MapViewMarker;

/// Tells which markers are in each other's way.
class ORIVANTA_API MapViewMarkerDelegate {
 public:
  virtual ~MapViewMarkerDelegate() = default;

  /// Whether this marker and another one are in each other's way.
  virtual bool collidesWithMarker(const MapViewMarker& other) const = 0;
};

/// Held by handle. Main thread.
class ORIVANTA_API MapViewMarker : public MapViewMarkerDelegate {
 public:
  /// Whether the marker gives way, and is hidden, when it collides with another.
  std::optional<bool> hideWhenCollide = false;

  /// False, unless a kind of marker knows better.
  bool collidesWithMarker(const MapViewMarker& other) const override;
};

}  // namespace orivanta
