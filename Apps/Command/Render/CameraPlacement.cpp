#include "Apps/Command/Render/CameraPlacement.hpp"

#include <algorithm>
#include <numbers>

#include "Apps/Command/Render/Framing.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"

namespace orivanta::command {

namespace {

constexpr Surroundings ofFloor{0.06, 1};
constexpr Surroundings ofPoints{0.3, 240};

constexpr double nearPlane = 40;  // scene units, as the map view has them
constexpr double farPlane = 5000;

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

void place(MapView& mapView, const Orbit& orbit, const CameraAngles& angles) {
  const graphics::Transaction transaction;
  const graphics::Vector3 centre{static_cast<float>(orbit.centre.x),
                                 static_cast<float>(orbit.centre.y), 0};
  mapView.cameraOrbit->setPosition(centre);
  mapView.labelsOrbit->setPosition(centre);
  mapView.cameraOrbit->setEulerAngle(scene::Axis::x, static_cast<float>(radians(angles.tilt)));
  mapView.cameraOrbit->setEulerAngle(scene::Axis::z, static_cast<float>(radians(angles.turn)));
  const auto distance = static_cast<float>(orbit.distance / angles.zoom);
  scene::Node& camera = *mapView.cameraOrbit->children().front();
  camera.setPosition(scene::Axis::z, distance);
  // Whatever the size of the venue, all of it lies between the planes.
  camera.camera()->zNear = std::min(nearPlane, distance / 10.0);
  camera.camera()->zFar = std::max(farPlane, distance * 4.0);
  // Gestures go on from here.
  mapView.scaleStart = mapView.scaleEnd = *mapView.cameraDistance / distance;
  mapView.rotateStart = mapView.rotateEnd = -radians(angles.turn);
  mapView.lastHeightRatio = mapView.lastGoodHeightRatio = -static_cast<float>(angles.tilt / 180);
  mapView.updateMarkerPositions();
  mapView.updateMarkerVisibility();
}

// The corners of everything on a floor, seen from above.
std::vector<graphics::Point> cornersOf(const scene::Node& floor) {
  std::vector<graphics::Point> corners;
  for (const auto& shape : floor.children()) {
    const graphics::Box box = shape->boundingBox();
    for (const float x : {box.min.x, box.max.x})
      for (const float y : {box.min.y, box.max.y}) corners.push_back({x, y});
  }
  return corners;
}

void lookAt(MapView& mapView, const std::vector<graphics::Point>& points,
            const CameraAngles& angles, const Surroundings& surroundings) {
  if (points.empty() || !mapView.cameraOrbit) return;
  const Lens lens{mapView.bounds().size, mapView.fov};
  place(mapView,
        framing(points, radians(angles.tilt), radians(angles.turn), lens, {}, surroundings),
        angles);
}

}  // namespace

void lookAtFloor(MapView& mapView, const CameraAngles& angles) {
  if (mapView.currentMap())
    lookAt(mapView, cornersOf(*mapView.currentMap()->mapObject), angles, ofFloor);
}

void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles) {
  std::vector<graphics::Point> flat;
  flat.reserve(points.size());
  for (const graphics::Vector3& point : points) flat.push_back({point.x, point.y});
  lookAt(mapView, flat, angles, ofPoints);
}

}  // namespace orivanta::command
