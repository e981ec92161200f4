#include "Source/UI/Display/CameraPlacement.hpp"

#include <algorithm>
#include <limits>
#include <numbers>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr double nearPlane = 40;  // scene units, as the map view has them
constexpr double farPlane = 5000;

constexpr double routeMargin = 0.3;
constexpr double leastRouteExtent = 120;  // scene units; a route is drawn ten units wide
constexpr double mostRouteExtent = 600;
constexpr double leastRouteMeters = 8;

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

// From the shapes of a floor; tighter than from their common box when the map is turned.
std::vector<graphics::Vector3> cornersOfShapes(const scene::Node& floor) {
  std::vector<graphics::Vector3> corners;
  for (const auto& shape : floor.children()) {
    const graphics::Box box = shape->boundingBox();
    if (box.isEmpty()) continue;
    const auto ofShape = cornersOf(box);
    corners.insert(corners.end(), ofShape.begin(), ofShape.end());
  }
  return corners;
}

void setPlanes(scene::Camera& camera, const graphics::Box& floor, const CameraPose& pose) {
  double nearest = pose.distance;
  if (!floor.isEmpty())
    for (const graphics::Vector3& corner : cornersOf(floor))
      nearest = std::min(nearest, depthOf(corner, pose));
  // What is nearer than this is under the camera, or beside it.
  const double least = pose.distance / 50;
  camera.zNear = std::min({nearPlane, pose.distance / 10, std::max(least, nearest / 2)});
  camera.zFar = std::max(farPlane, pose.distance * 4);
}

}  // namespace

Surroundings aroundRoute(const Venue& venue) {
  const double unitsPerMeter = std::max(0.0, venue._data["unitsPerMetre"].doubleValue());
  return {routeMargin,
          std::clamp(leastRouteMeters * unitsPerMeter, leastRouteExtent, mostRouteExtent)};
}

void placeCamera(MapView& mapView, const CameraPose& pose) {
  const graphics::Transaction transaction;
  const auto x = static_cast<float>(pose.x);
  const auto y = static_cast<float>(pose.y);
  scene::Node& orbit = *mapView.cameraOrbit;
  orbit.setPosition({x, y, 0});
  orbit.setEulerAngle(scene::Axis::x, static_cast<float>(pose.tilt));
  orbit.setEulerAngle(scene::Axis::z, static_cast<float>(pose.turn));
  scene::Node& camera = *orbit.children().front();
  camera.setPosition(scene::Axis::z, static_cast<float>(pose.distance));
  setPlanes(*camera.camera(), mapView.currentMap()->mapObject->boundingBox(), pose);
  scene::Node& labels = *mapView.labelsOrbit;
  labels.setPosition(scene::Axis::x, x);
  labels.setPosition(scene::Axis::y, y);
  labels.setEulerAngle(scene::Axis::z, static_cast<float>(pose.turn));
}

void lookAtFloor(MapView& mapView, const CameraAngles& angles) {
  if (mapView.currentMap())
    lookAt(mapView, cornersOfShapes(*mapView.currentMap()->mapObject), angles, aroundFloor);
}

void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles, const Surroundings& surroundings) {
  if (points.empty() || !mapView.cameraOrbit) return;
  CameraPose pose;
  pose.tilt = radians(angles.tilt);
  pose.turn = radians(angles.turn);
  const Lens lens{mapView.bounds().size, mapView.fov};
  pose = framing(points, pose, lens, {}, surroundings);
  pose.distance /= angles.zoom;
  placeCamera(mapView, pose);
  // Gestures go on from here.
  mapView.scaleStart = mapView.scaleEnd = *mapView.cameraDistance / pose.distance;
  mapView.rotateStart = mapView.rotateEnd = -pose.turn;
  mapView.lastHeightRatio = mapView.lastGoodHeightRatio = -static_cast<float>(angles.tilt / 180);
  mapView.updateMarkerPositions();
  mapView.updateMarkerVisibility();
}

}  // namespace orivanta
