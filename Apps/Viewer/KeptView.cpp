#include "Apps/Viewer/KeptView.hpp"

#include <cmath>
#include <numbers>
#include <utility>

namespace orivanta::viewer {

namespace {

// Poses are computed from the nodes of the scene, which have single precision.
constexpr double tolerance = 1e-3;  // of the distance; radians

bool isNear(const CameraPose& pose, const CameraPose& other) {
  const double length = tolerance * other.distance;
  return std::abs(pose.x - other.x) < length && std::abs(pose.y - other.y) < length &&
         std::abs(pose.z - other.z) < length && std::abs(pose.distance - other.distance) < length &&
         std::abs(pose.tilt - other.tilt) < tolerance &&
         std::abs(std::remainder(pose.turn - other.turn, 2 * std::numbers::pi)) < tolerance;
}

}  // namespace

void KeptView::show(Look look, CameraMotion motion) {
  look(motion);
  keep(std::move(look));
}

void KeptView::keep(Look look) {
  look_ = std::move(look);
  pose_ = camera_.target();
}

bool KeptView::showAgain() {
  if (!look_ || !isNear(camera_.target(), pose_)) {
    look_ = nullptr;
    return false;
  }
  look_(CameraMotion::atOnce);
  pose_ = camera_.target();
  return true;
}

}  // namespace orivanta::viewer
