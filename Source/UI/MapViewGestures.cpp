// How gestures move the camera of a map view.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/Parts/MapViewParts.hpp"
#include "Source/UI/Printed.hpp"

namespace orivanta {

using foundation::unwrap;
using view::GestureState;

namespace {

constexpr float pi = std::numbers::pi_v<float>;
constexpr float tiltLimit = pi / 3;  // radians
constexpr double farthestFactor = 1e30;
constexpr float nearestDistance = 100;  // scene units; a pinch does not zoom in below this

// Pinches accumulate without a limit, but the distance must stay finite.
float zoomedOut(double scale) { return static_cast<float>(std::min(1 / scale, farthestFactor)); }

}  // namespace

void MapView::handleOneFingerPanGesture(const view::PanGestureRecognizer& recognizer) {
  unwrap(recognizer.view());
  const graphics::Point translation = recognizer.translation();
  if (recognizer.state() == GestureState::changed) {
    parts_->camera.stop();
    parts_->rig.shift(static_cast<float>(translation.x - lastX),
                      static_cast<float>(translation.y - lastY));
  }
  lastX = translation.x;
  lastY = translation.y;
}

void MapView::handleTwoFingerPanGesture(const view::PanGestureRecognizer& recognizer) {
  unwrap(cameraOrbit);
  const double height = unwrap(recognizer.view()).frame().size.height;
  const float ratio = static_cast<float>(recognizer.translation().y / height) + lastHeightRatio;
  const float tilt = ratio * -pi;
  if (tilt >= 0 && tilt < tiltLimit) {
    parts_->camera.stop();
    parts_->rig.setTilt(tilt);
    lastGoodHeightRatio = ratio;
    updateMarkerVisibility();
  }
  if (recognizer.state() == GestureState::ended) {
    lastHeightRatio = std::fmod(lastGoodHeightRatio, 1.0F);
    updateMarkerVisibility();
  }
}

void MapView::handlePinchGesture(const view::PinchGestureRecognizer& recognizer) {
  const double scale = recognizer.scale();
  if (parts_->rig.distance() <= nearestDistance && scale > 1.0) return;
  switch (recognizer.state()) {
    case GestureState::changed:
      scaleStart = scaleEnd * scale;
      parts_->camera.stop();
      parts_->rig.setDistance(unwrap(cameraDistance) * zoomedOut(scaleStart));
      updateMarkerVisibility();
      break;
    case GestureState::ended:
      scaleEnd = scaleStart;
      updateMarkerVisibility();
      break;
    case GestureState::canceled:
    case GestureState::failed:
      break;
    default:
      scaleStart = scaleEnd * scale;
  }
}

void MapView::handleRotationGesture(const view::RotationGestureRecognizer& recognizer) {
  const scene::Node& orbit = unwrap(cameraOrbit);
  unwrap(labelsOrbit);
  switch (recognizer.state()) {
    case GestureState::changed: {
      rotateStart = rotateEnd - recognizer.rotation();
      parts_->camera.stop();
      parts_->rig.setTurn(static_cast<float>(-rotateStart));
      foundation::diagnostic("cameraOrbit angle " + printed(orbit.eulerAngles()));
      updateMarkerVisibility();
      break;
    }
    case GestureState::ended:
      rotateEnd = rotateStart;
      updateMarkerVisibility();
      break;
    case GestureState::canceled:
    case GestureState::failed:
      break;
    default:
      rotateStart = rotateEnd - recognizer.rotation();
  }
}

}  // namespace orivanta
