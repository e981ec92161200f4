// Where the camera of a map stands.
#pragma once

#include <vector>

#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

inline constexpr Surroundings aroundFloor{0.06, 1};
inline constexpr Surroundings aroundPlace{0.35, 300};

/// Around a route: a short one fills a good part of the view, and still shows what it passes. A
/// venue that tells how many units a meter has gets at least eight meters.
Surroundings aroundRoute(const Venue& venue);

/// Writes the pose to the nodes of the camera, with clipping planes that cut nothing off the floor
/// that is shown. The map view has a scene.
void placeCamera(MapView& mapView, const CameraPose& pose);

struct CameraAngles {
  double tilt = 0.0;  ///< degrees from straight down
  double turn = 0.0;  ///< degrees, counterclockwise
  double zoom = 1.0;
};

/// Looks at the floor now shown so that it fills the view. Nothing before the map view has a scene.
void lookAtFloor(MapView& mapView, const CameraAngles& angles);

/// The same for some points on the floor with what is around them. Nothing without points.
void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles, const Surroundings& surroundings);

}  // namespace orivanta
