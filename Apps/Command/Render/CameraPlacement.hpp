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

/// Turns and zooms about the middle of the floor, from the distance at which the map view began.
/// Nothing before its scene is started.
void turnCamera(MapView& mapView, const CameraAngles& angles);

/// As above, but about the middle of some points, from the distance at which they fill the view
/// with a margin, and not from nearer than shows their surroundings. Nothing without points.
void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles);

}  // namespace orivanta::command
