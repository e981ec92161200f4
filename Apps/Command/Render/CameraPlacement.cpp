#include "Apps/Command/Render/CameraPlacement.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"

namespace orivanta::command {

namespace {

// How much of the surroundings is seen.
struct Surroundings {
  double margin;       // times the extent
  double leastExtent;  // scene units that are shown at least
};
constexpr Surroundings ofFloor{1.04, 1};
constexpr Surroundings ofPoints{1.25, 240};

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

void place(MapView& mapView, double distance, const CameraAngles& angles) {
  const graphics::Transaction transaction;
  mapView.cameraOrbit->setEulerAngle(scene::Axis::x, static_cast<float>(radians(angles.tilt)));
  mapView.cameraOrbit->setEulerAngle(scene::Axis::z, static_cast<float>(radians(angles.turn)));
  mapView.cameraOrbit->children().front()->setPosition(scene::Axis::z,
                                                       static_cast<float>(distance / angles.zoom));
  mapView.updateMarkerPositions();
  mapView.updateMarkerVisibility();
}

// A point of the floor as the turned camera sees it: x to the right, y away from it.
graphics::Vector3 turned(const graphics::Vector3& point, double turn) {
  const auto sine = static_cast<float>(std::sin(turn));
  const auto cosine = static_cast<float>(std::cos(turn));
  return {point.x * cosine + point.y * sine, point.y * cosine - point.x * sine, point.z};
}

// From where `width` units to the right and `depth` units away fill the view.
double distanceFor(double width, double depth, const MapView& mapView, double tilt) {
  const graphics::Size view = mapView.bounds().size;
  const double shorter = std::min(view.width, view.height);
  const double slope =
      std::tan(radians(mapView.fov) / 2) / shorter;  // of the view's angle, a point
  const double forWidth = width / 2 / (slope * view.width);
  const double forDepth = depth * std::cos(tilt) / 2 / (slope * view.height);
  return std::max(forWidth, forDepth) + depth * std::sin(tilt) / 2;
}

void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles, const Surroundings& surroundings) {
  const double turn = radians(angles.turn);
  graphics::Box box;
  for (const auto& point : points) box.add(turned(point, turn));
  const graphics::Vector3 middle = turned(box.centre(), -turn);
  mapView.cameraOrbit->setPosition({middle.x, middle.y, 0});
  mapView.labelsOrbit->setPosition({middle.x, middle.y, 0});
  const auto extent = [&](float least, float most) {
    return std::max<double>(surroundings.leastExtent, (most - least) * surroundings.margin);
  };
  place(mapView,
        distanceFor(extent(box.min.x, box.max.x), extent(box.min.y, box.max.y), mapView,
                    radians(angles.tilt)),
        angles);
}

}  // namespace

void lookAtFloor(MapView& mapView, const CameraAngles& angles) {
  if (!mapView.cameraOrbit) return;
  const graphics::Box box = mapView.currentMap()->mapObject->boundingBox();
  lookAt(mapView,
         {{box.min.x, box.min.y, 0},
          {box.max.x, box.min.y, 0},
          {box.min.x, box.max.y, 0},
          {box.max.x, box.max.y, 0}},
         angles, ofFloor);
}

void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles) {
  if (!points.empty() && mapView.cameraOrbit) lookAt(mapView, points, angles, ofPoints);
}

}  // namespace orivanta::command
