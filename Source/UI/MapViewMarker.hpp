// The base class of markers on a map view.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

class MapViewMarker;

/// Detects collisions between markers.
class ORIVANTA_API MapViewMarkerDelegate {
 public:
  virtual ~MapViewMarkerDelegate() = default;

  /// Returns whether this marker and another one collide.
  virtual bool collidesWithMarker(const MapViewMarker& other) const = 0;
};

/// The base class of markers. Held by a shared pointer. Main thread.
class ORIVANTA_API MapViewMarker : public MapViewMarkerDelegate {
 public:
  /// Whether the marker is hidden when it collides with another one.
  std::optional<bool> hideWhenCollide = false;

  /// Returns false. Subclasses may override this.
  bool collidesWithMarker(const MapViewMarker& other) const override;
};

}  // namespace orivanta
