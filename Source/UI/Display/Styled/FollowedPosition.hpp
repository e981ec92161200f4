// Keeps a position in the middle of a map view.
#pragma once

#include <optional>

#include "Platform/Graphics/Geometry.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/MapPosition.hpp"

namespace orivanta {

class MapView;

/// Moves the camera with a position, until something else moves the point of the ground in the
/// middle of the view. Zooming, turning and tilting about this point are allowed. Main thread.
class FollowedPosition {
 public:
  void setOn(bool isOn);

  /// Whether it is on, and nothing else has moved the map. `view` may be null.
  bool isOn(const MapView* view) const;

  /// Adapts the camera. The first call on each floor frames the surroundings of the position. Does
  /// nothing while another floor is shown or while the camera glides.
  void update(const MapView& view, const std::optional<MapPosition>& position);

 private:
  // How the camera was left.
  struct Left {
    const Map* floor = nullptr;
    graphics::Point offset;  // of the wanted middle from the position
    graphics::Point middle;  // the actual one, within the limits of the camera
  };

  bool isMoved(const MapView& view) const;

  bool isOn_ = false;
  std::optional<Left> left_;  // nothing until the first call on a floor
};

}  // namespace orivanta
