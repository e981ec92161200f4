#include "Apps/Command/Render/CameraPlacement.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta::command {

namespace {

constexpr double margin = 1.25;
constexpr double leastExtent = 240;  // scene units that are shown at least

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

}  // namespace

void turnCamera(MapView& mapView, const CameraAngles& angles) {
  if (mapView.cameraOrbit) place(mapView, *mapView.cameraDistance, angles);
}

void lookAt(MapView& mapView, const std::vector<graphics::Vector3>& points,
            const CameraAngles& angles) {
  if (points.empty() || !mapView.cameraOrbit) return;
  const double turn = radians(angles.turn);
  graphics::Box box;
  for (const auto& point : points) box.add(turned(point, turn));
  const graphics::Vector3 middle = turned(box.centre(), -turn);
  mapView.cameraOrbit->setPosition({middle.x, middle.y, 0});
  mapView.labelsOrbit->setPosition({middle.x, middle.y, 0});
  const double width = std::max<double>(leastExtent, (box.max.x - box.min.x) * margin);
  const double depth = std::max<double>(leastExtent, (box.max.y - box.min.y) * margin);
  place(mapView, distanceFor(width, depth, mapView, radians(angles.tilt)), angles);
}

}  // namespace orivanta::command
