#include "Source/UI/Display/MapCamera.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/CameraRig.hpp"
#include "Source/UI/Display/FloorCorners.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double farthestTimesFitting = 1.8;
constexpr double steepest = pi / 3 - 0.001;  // slightly less than the limit of the tilt gesture

CameraLimits noLimits() {
  CameraLimits limits;
  limits.nearest = std::numeric_limits<float>::min();
  limits.farthest = std::numeric_limits<float>::max();
  limits.steepest = pi / 2;
  return limits;
}

}  // namespace

MapCamera::MapCamera(MapView& view, CameraRig& rig) : view_(view), rig_(rig) {}

bool MapCamera::isReady() const {
  return rig_.isBuilt() && view_.currentMap() && view_.currentMap()->mapObject;
}

CameraPose MapCamera::pose() const { return isReady() ? rig_.pose() : CameraPose(); }

// A renderer may read them on another thread.
void MapCamera::setInsets(const Insets& insets) {
  Insets changed = insets;
  graphics::swapGuarded(insets_, changed);
}

CameraPose MapCamera::target() const { return glide_ ? glide_->to : pose(); }

Lens MapCamera::lens() const { return {view_.sceneView->bounds().size, rig_.fieldOfView()}; }

Lens MapCamera::targetLens() const {
  return {view_.sceneView->bounds().size, glide_ ? glide_->fovTo : rig_.fieldOfView()};
}

void MapCamera::setExtent(std::optional<graphics::Box> extent) {
  extent_ = extent && !extent->isEmpty() ? extent : std::nullopt;
  pivot_ = extent_ ? extent_->center().z : 0;
}

CameraLimits MapCamera::limits() const { return limitsAt(pose().tilt); }

CameraPose MapCamera::limited(const CameraPose& pose) const {
  return limitsAt(std::clamp(pose.tilt, 0.0, steepest)).clamped(atHeight(pose, pivot_));
}

CameraLimits MapCamera::limitsAt(double tilt) const {
  if (!limited_ || !isReady()) return noLimits();
  CameraLimits limits;
  limits.floor = extent_ ? *extent_ : view_.currentMap()->mapObject->boundingBox();
  limits.steepest = steepest;
  if (limits.floor.isEmpty()) return limits;
  CameraPose upright;
  upright.tilt = tilt;
  upright.z = pivot_;
  const CameraPose fit =
      framing(cornersOf(limits.floor), upright, targetLens(), insets_, aroundFloor);
  limits.farthest = fit.distance * farthestTimesFitting;
  // A tilted camera that shows a high model orbits a point of the ground behind it.
  limits.floor.add(graphics::Vector3{fit.x, fit.y, pivot_});
  return limits;
}

CameraPose MapCamera::fittingPose(double tilt, double turn) const {
  if (!isReady()) return {};
  return framingPose(framedCorners(), aroundFloor, tilt, turn);
}

std::vector<graphics::Vector3> MapCamera::framedCorners() const {
  if (!extent_) return cornersOfShapes(*view_.currentMap()->mapObject);
  const auto corners = cornersOf(*extent_);
  return {corners.begin(), corners.end()};
}

CameraPose MapCamera::framingPose(const std::vector<graphics::Vector3>& points,
                                  const Surroundings& surroundings, double tilt,
                                  double turn) const {
  CameraPose seen = pose();
  seen.tilt = tilt;
  seen.turn = turn;
  seen.z = pivot_;
  return framing(points, seen, targetLens(), insets_, surroundings);
}

void MapCamera::move(const CameraPose& pose, CameraMotion motion) {
  if (motion == CameraMotion::glide)
    glideTo(pose);
  else
    setPose(pose);
}

void MapCamera::fit(CameraMotion motion) { move(fittingPose(pose().tilt, 0), motion); }

void MapCamera::frame(const std::vector<graphics::Vector3>& points,
                      const Surroundings& surroundings, CameraMotion motion) {
  if (points.empty()) return;
  const CameraPose now = pose();
  move(framingPose(points, surroundings, now.tilt, now.turn), motion);
}

void MapCamera::zoomBy(double factor, graphics::Point at, CameraMotion motion) {
  const CameraPose start = startOf(motion);
  move(zoomed(start, lens(), limitsAt(start.tilt), factor, at), motion);
}

void MapCamera::zoomBy(double factor, CameraMotion motion) {
  const graphics::Size size = lens().size;
  const graphics::Point center{(insets_.left + size.width - insets_.right) / 2,
                               (insets_.top + size.height - insets_.bottom) / 2};
  zoomBy(factor, center, motion);
}

void MapCamera::panBy(double right, double up, CameraMotion motion) {
  const graphics::Size size = lens().size;
  const graphics::Point middle{size.width / 2, size.height / 2};
  move(dragged(startOf(motion), lens(), {middle.x + right, middle.y - up}, middle), motion);
}

void MapCamera::drag(graphics::Point from, graphics::Point to) {
  setPose(dragged(pose(), lens(), from, to));
}

void MapCamera::rotateBy(double angle, CameraMotion motion) {
  CameraPose changed = startOf(motion);
  changed.turn += angle;
  move(changed, motion);
}

void MapCamera::tiltBy(double angle, CameraMotion motion) {
  tiltTo(startOf(motion).tilt + angle, motion);
}

void MapCamera::tiltTo(double tilt, CameraMotion motion) {
  CameraPose changed = startOf(motion);
  changed.tilt = tilt;
  move(changed, motion);
}

void MapCamera::resetNorth(CameraMotion motion) {
  CameraPose changed = startOf(motion);
  changed.turn = 0;
  move(changed, motion);
}

void MapCamera::touchBegan() {
  stop();
  isTouched_ = true;
}

void MapCamera::touchMoved() { keepWithinLimits(/*always=*/false); }

void MapCamera::touchEnded() {
  isTouched_ = false;
  keepWithinLimits(/*always=*/true);
}

// Does not end a glide, because a tap may have started it.
void MapCamera::keepWithinLimits(bool always) {
  if (!isReady() || glide_) return;
  const CameraPose now = rig_.pose();
  CameraPose allowed = limited(now);
  allowed.turn = now.turn;  // the rotation gesture accumulates the turn
  if (always || !(allowed == now)) write(allowed);
}

void MapCamera::write(const CameraPose& pose) {
  rig_.place(pose);
  writeGestureState(pose);
  view_.updateMarkerPositions();
  view_.updateMarkerVisibility();
}

void MapCamera::writeGestureState(const CameraPose& pose) {
  if (view_.cameraDistance) view_.scaleStart = *view_.cameraDistance / pose.distance;
  view_.rotateStart = -pose.turn;
  view_.lastGoodHeightRatio = static_cast<float>(-pose.tilt / pi);
  if (isTouched_) return;  // the values at the start of a running gesture
  view_.scaleEnd = view_.scaleStart;
  view_.rotateEnd = view_.rotateStart;
  view_.lastHeightRatio = view_.lastGoodHeightRatio;
}

}  // namespace orivanta
