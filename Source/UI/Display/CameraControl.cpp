#include "Source/UI/Display/CameraControl.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/CameraPlacement.hpp"

namespace orivanta {

namespace {

constexpr double glideSeconds = 0.28;
constexpr double farthestTimesFitting = 1.8;

}  // namespace

CameraControl::CameraControl(std::shared_ptr<MapView> mapView) : mapView_(std::move(mapView)) {}

CameraPose CameraControl::pose() const {
  if (!isReady()) return {};
  const graphics::Transaction transaction;
  const scene::Node& orbit = *mapView_->cameraOrbit;
  const auto position = orbit.position();
  const auto angles = orbit.eulerAngles();
  return {position.x, position.y, orbit.children().front()->position().z, angles.x, angles.z};
}

Lens CameraControl::lens() const { return {mapView_->sceneView->bounds().size, mapView_->fov}; }

CameraLimits CameraControl::limits() const {
  CameraLimits limits;
  if (!isReady()) return limits;
  limits.floor = mapView_->currentMap()->mapObject->boundingBox();
  const CameraPose fit = fitting();
  limits.farthest = fit.distance * farthestTimesFitting;
  // A tilted camera that shows a high model looks at a point of the ground behind it.
  limits.floor.add(graphics::Vector3{fit.x, fit.y, 0});
  limits.steepest = std::numbers::pi / 3 - 0.001;
  return limits;
}

void CameraControl::setPose(const CameraPose& pose) {
  glide_.reset();
  if (isReady()) write(limits().clamped(pose));
}

void CameraControl::drag(graphics::Point from, graphics::Point to) {
  setPose(dragged(pose(), lens(), from, to));
}

void CameraControl::zoom(double factor, graphics::Point about) {
  setPose(zoomed(pose(), lens(), limits(), factor, about));
}

void CameraControl::tiltAndTurn(double tilt, double turn) {
  CameraPose changed = pose();
  changed.tilt += tilt;
  changed.turn += turn;
  setPose(changed);
}

void CameraControl::glideTo(const CameraPose& target) {
  if (!isReady()) return;
  Glide glide{pose(), limits().clamped(target), std::nullopt};
  // One under way hands its time on, lest steps that follow fast never get to move.
  if (glide_ && glide_->start) glide.start = glide_->now;
  glide_ = glide;
}

void CameraControl::glideZoom(double factor, graphics::Point about) {
  if (isReady()) glideTo(zoomed(target(), lens(), limits(), factor, about));
}

void CameraControl::glidePan(double right, double up) {
  const graphics::Size size = lens().size;
  const graphics::Point middle{size.width / 2, size.height / 2};
  glideTo(dragged(target(), lens(), {middle.x + right, middle.y - up}, middle));
}

void CameraControl::glideTilt(double tilt, double turn) {
  CameraPose changed = target();
  changed.tilt += tilt;
  changed.turn += turn;
  glideTo(changed);
}

CameraPose CameraControl::fitting() const {
  const auto box = mapView_->currentMap()->mapObject->boundingBox();
  CameraPose upright = pose();
  upright.turn = 0;
  if (box.isEmpty()) return upright;
  return framing(cornersOf(box), upright, lens(), insets_, aroundFloor);
}

void CameraControl::fit(bool gliding) {
  if (!isReady()) return;
  if (gliding)
    glideTo(fitting());
  else
    setPose(fitting());
}

void CameraControl::frame(const std::vector<graphics::Vector3>& points,
                          const Surroundings& surroundings) {
  if (points.empty() || !isReady()) return;
  glideTo(framing(points, pose(), lens(), insets_, surroundings));
}

void CameraControl::advance(double time) {
  if (!glide_) return;
  if (!glide_->start) glide_->start = time;
  glide_->now = time;
  const double share = std::clamp((time - *glide_->start) / glideSeconds, 0.0, 1.0);
  const double eased = 1 - std::pow(1 - share, 3);
  const Glide glide = *glide_;
  write(between(glide.from, glide.to, eased));
  if (share >= 1) glide_.reset();
}

void CameraControl::fingerLanded() {
  glide_.reset();
  isTouched_ = true;
}

void CameraControl::settle(bool gestureEnded) {
  if (gestureEnded) isTouched_ = false;
  if (!isReady() || glide_) return;
  const CameraPose now = pose();
  CameraPose allowed = limits().clamped(now);
  allowed.turn = now.turn;  // a rotation under way counts on
  if (gestureEnded || !(allowed == now)) write(allowed);
}

void CameraControl::write(const CameraPose& pose) {
  placeCamera(*mapView_, pose);
  writeGestureState(pose);
}

void CameraControl::writeGestureState(const CameraPose& pose) {
  mapView_->scaleStart = *mapView_->cameraDistance / pose.distance;
  mapView_->rotateStart = -pose.turn;
  mapView_->lastGoodHeightRatio = static_cast<float>(-pose.tilt / std::numbers::pi);
  if (isTouched_) return;  // where a gesture began is its own matter until it ends
  mapView_->scaleEnd = mapView_->scaleStart;
  mapView_->rotateEnd = mapView_->rotateStart;
  mapView_->lastHeightRatio = mapView_->lastGoodHeightRatio;
}

}  // namespace orivanta
