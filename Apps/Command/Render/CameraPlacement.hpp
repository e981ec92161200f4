// Where the camera of a picture stands.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::command {

struct CameraAngles {
  double tilt = 0.0;  ///< degrees from straight down
  double turn = 0.0;  ///< degrees, counterclockwise
  double zoom = 1.0;
};

/// Looks at the middle of the floor now shown, from the distance at which it fills the view.
/// Nothing before the map view has a scene.
void lookAtFloor(MapView& mapView, const CameraAngles& angles);

/// As above, at the middle of some points on the floor, with more around them, and not from nearer
/// than shows their surroundings. Nothing without points.
void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles);

}  // namespace orivanta::command
