#include "Apps/Command/Render/CameraPlacement.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"

namespace orivanta::command {

namespace {

// How much of the surroundings is seen.
struct Surroundings {
  double margin;       // times the extent
  double leastExtent;  // scene units that are shown at least
};
constexpr Surroundings ofFloor{1.06, 1};
constexpr Surroundings ofPoints{1.3, 240};

constexpr double nearPlane = 40;  // scene units, as the map view has them
constexpr double farPlane = 5000;
constexpr double leastFarSlope = 0.2;  // keeps what is far from the horizon

struct Placement {
  graphics::Vector3 centre;  // of the orbit
  double distance;           // of the camera from there
};

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

void place(MapView& mapView, const Placement& placement, const CameraAngles& angles) {
  const graphics::Transaction transaction;
  mapView.cameraOrbit->setPosition(placement.centre);
  mapView.labelsOrbit->setPosition(placement.centre);
  mapView.cameraOrbit->setEulerAngle(scene::Axis::x, static_cast<float>(radians(angles.tilt)));
  mapView.cameraOrbit->setEulerAngle(scene::Axis::z, static_cast<float>(radians(angles.turn)));
  const auto distance = static_cast<float>(placement.distance / angles.zoom);
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

// A point of the floor as the turned camera sees it: x to the right, y away from it.
graphics::Vector3 turned(const graphics::Vector3& point, double turn) {
  const auto sine = static_cast<float>(std::sin(turn));
  const auto cosine = static_cast<float>(std::cos(turn));
  return {point.x * cosine + point.y * sine, point.y * cosine - point.x * sine, point.z};
}

// The nearest place from which points of the floor just fill the view. A point (x, y) beside the
// orbit's centre is y sin(tilt) farther away than the centre, and shows x to the right and
// y cos(tilt) up; what shows at a distance d is at most d * slope off the middle.
Placement fit(const MapView& mapView, const std::vector<graphics::Vector3>& points,
              const CameraAngles& angles, const Surroundings& surroundings) {
  const graphics::Size view = mapView.bounds().size;
  const double slope =
      std::tan(radians(mapView.fov) / 2) / surroundings.margin / std::min(view.width, view.height);
  const double slopeX = slope * view.width;
  const double slopeY = slope * view.height;
  const double sine = std::sin(radians(angles.tilt));
  const double cosine = std::cos(radians(angles.tilt));
  const double turn = radians(angles.turn);
  graphics::Box box;
  for (const auto& point : points) box.add(turned(point, turn));

  const double farSlope = std::max(cosine - sine * slopeY, leastFarSlope);
  const double nearSlope = cosine + sine * slopeY;
  const double y = (box.max.y * farSlope + box.min.y * nearSlope) / (farSlope + nearSlope);
  const double forDepth = (box.max.y - y) * farSlope / slopeY;
  double right = std::numeric_limits<double>::lowest();
  double left = right;
  for (const auto& point : points) {
    const graphics::Vector3 seen = turned(point, turn);
    const double nearer = (y - seen.y) * sine;
    right = std::max(right, seen.x / slopeX + nearer);
    left = std::max(left, -seen.x / slopeX + nearer);
  }
  const double x = slopeX * (right - left) / 2;
  const double least = surroundings.leastExtent / 2 / std::min(slopeX, slopeY);
  return {turned({static_cast<float>(x), static_cast<float>(y), 0}, -turn),
          std::max({forDepth, (right + left) / 2, least})};
}

// The corners of everything on a floor, seen from above.
std::vector<graphics::Vector3> cornersOf(const scene::Node& floor) {
  std::vector<graphics::Vector3> corners;
  for (const auto& shape : floor.children()) {
    const graphics::Box box = shape->boundingBox();
    for (const float x : {box.min.x, box.max.x})
      for (const float y : {box.min.y, box.max.y}) corners.emplace_back(x, y, 0.0F);
  }
  return corners;
}

void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles, const Surroundings& surroundings) {
  if (!points.empty() && mapView.cameraOrbit)
    place(mapView, fit(mapView, points, angles, surroundings), angles);
}

}  // namespace

void lookAtFloor(MapView& mapView, const CameraAngles& angles) {
  if (mapView.currentMap())
    lookAt(mapView, cornersOf(*mapView.currentMap()->mapObject), angles, ofFloor);
}

void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles) {
  lookAt(mapView, points, angles, ofPoints);
}

}  // namespace orivanta::command
