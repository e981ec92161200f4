// How gestures move the camera of a map view.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/Printed.hpp"

namespace orivanta {

using foundation::unwrap;
using scene::Axis;
using view::GestureState;

namespace {

constexpr float pi = std::numbers::pi_v<float>;
constexpr float tiltLimit = pi / 3;  // radians
constexpr double farthestFactor = 1e30;
constexpr float nearestDistance = 100;  // scene units: no pinch begins to zoom closer from there

// Pinches add up without a limit; the distance stays a number nevertheless.
float zoomedOut(double scale) { return static_cast<float>(std::min(1 / scale, farthestFactor)); }

}  // namespace

void MapView::handleOneFingerPanGesture(const view::PanGestureRecognizer& recognizer) {
  unwrap(recognizer.view());
  const graphics::Point translation = recognizer.translation();
  if (recognizer.state() == GestureState::changed) {
    const graphics::Transaction transaction;
    scene::Node& orbit = unwrap(cameraOrbit);
    scene::Node& labels = unwrap(labelsOrbit);
    const auto dx = static_cast<float>(translation.x - lastX);
    const auto dy = static_cast<float>(translation.y - lastY);
    const float angle = orbit.eulerAngles().z;
    orbit.setPosition(Axis::x, orbit.position().x - dx * std::cos(angle));
    orbit.setPosition(Axis::y, orbit.position().y - dx * std::sin(angle));
    orbit.setPosition(Axis::x, orbit.position().x - dy * std::sin(angle));
    orbit.setPosition(Axis::y, orbit.position().y + dy * std::cos(angle));
    labels.setPosition(Axis::x, orbit.position().x);
    labels.setPosition(Axis::y, orbit.position().y);
  }
  lastX = translation.x;
  lastY = translation.y;
}

void MapView::handleTwoFingerPanGesture(const view::PanGestureRecognizer& recognizer) {
  scene::Node& orbit = unwrap(cameraOrbit);
  const double height = unwrap(recognizer.view()).frame().size.height;
  const float ratio = static_cast<float>(recognizer.translation().y / height) + lastHeightRatio;
  const float tilt = ratio * -pi;
  if (tilt >= 0 && tilt < tiltLimit) {
    orbit.setEulerAngle(Axis::x, tilt);
    lastGoodHeightRatio = ratio;
    updateMarkerVisibility();
  }
  if (recognizer.state() == GestureState::ended) {
    lastHeightRatio = std::fmod(lastGoodHeightRatio, 1.0F);
    updateMarkerVisibility();
  }
}

void MapView::handlePinchGesture(const view::PinchGestureRecognizer& recognizer) {
  const auto children = unwrap(cameraOrbit).children();
  if (children.empty()) foundation::fatalError("Index out of range");
  scene::Node& camera = *children.front();
  const double scale = recognizer.scale();
  if (camera.position().z <= nearestDistance && scale > 1.0) return;
  switch (recognizer.state()) {
    case GestureState::changed:
      scaleStart = scaleEnd * scale;
      camera.setPosition(Axis::z, unwrap(cameraDistance) * zoomedOut(scaleStart));
      updateMarkerVisibility();
      break;
    case GestureState::ended:
      scaleEnd = scaleStart;
      updateMarkerVisibility();
      break;
    case GestureState::cancelled:
    case GestureState::failed:
      break;
    default:
      scaleStart = scaleEnd * scale;
  }
}

void MapView::handleRotationGesture(const view::RotationGestureRecognizer& recognizer) {
  scene::Node& orbit = unwrap(cameraOrbit);
  scene::Node& labels = unwrap(labelsOrbit);
  switch (recognizer.state()) {
    case GestureState::changed: {
      rotateStart = rotateEnd - recognizer.rotation();
      const graphics::Transaction transaction;
      orbit.setEulerAngle(Axis::z, static_cast<float>(-rotateStart));
      labels.setEulerAngle(Axis::z, orbit.eulerAngles().z);
      foundation::diagnostic("cameraOrbit angle " + printed(orbit.eulerAngles()));
      updateMarkerVisibility();
      break;
    }
    case GestureState::ended:
      rotateEnd = rotateStart;
      updateMarkerVisibility();
      break;
    case GestureState::cancelled:
    case GestureState::failed:
      break;
    default:
      rotateStart = rotateEnd - recognizer.rotation();
  }
}

}  // namespace orivanta
