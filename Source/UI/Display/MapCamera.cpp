#include "Source/UI/Display/MapCamera.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/CameraRig.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double glideSeconds = 0.28;
constexpr double farthestTimesFitting = 1.8;
constexpr double steepest = pi / 3 - 0.001;  // slightly less than the limit of the tilt gesture

// Returns the corners of a floor's shapes. They frame a turned floor more tightly than its box.
std::vector<graphics::Vector3> cornersOfShapes(const scene::Node& floor) {
  std::vector<graphics::Vector3> corners;
  for (const auto& shape : floor.children()) {
    const graphics::Box box = shape->boundingBox();
    if (box.isEmpty()) continue;
    const graphics::Matrix4 toFloor = shape->transform();
    for (const graphics::Vector3& corner : cornersOf(box))
      corners.emplace_back(toFloor * graphics::Vector4(corner, 1.0F));
  }
  return corners;
}

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

CameraLimits MapCamera::limits() const { return limitsAt(pose().tilt); }

CameraPose MapCamera::limited(const CameraPose& pose) const {
  return limitsAt(std::clamp(pose.tilt, 0.0, steepest)).clamped(pose);
}

CameraLimits MapCamera::limitsAt(double tilt) const {
  if (!limited_ || !isReady()) return noLimits();
  CameraLimits limits;
  limits.floor = view_.currentMap()->mapObject->boundingBox();
  limits.steepest = steepest;
  if (limits.floor.isEmpty()) return limits;
  CameraPose upright;
  upright.tilt = tilt;
  const CameraPose fit = framing(cornersOf(limits.floor), upright, lens(), insets_, aroundFloor);
  limits.farthest = fit.distance * farthestTimesFitting;
  // A tilted camera that shows a high model orbits a point of the ground behind it.
  limits.floor.add(graphics::Vector3{fit.x, fit.y, 0});
  return limits;
}

CameraPose MapCamera::fittingPose(double tilt, double turn) const {
  if (!isReady()) return {};
  return framingPose(cornersOfShapes(*view_.currentMap()->mapObject), aroundFloor, tilt, turn);
}

CameraPose MapCamera::framingPose(const std::vector<graphics::Vector3>& points,
                                  const Surroundings& surroundings, double tilt,
                                  double turn) const {
  CameraPose seen = pose();
  seen.tilt = tilt;
  seen.turn = turn;
  return framing(points, seen, lens(), insets_, surroundings);
}

void MapCamera::move(const CameraPose& pose, CameraMotion motion) {
  if (motion == CameraMotion::glide)
    glideTo(pose);
  else
    setPose(pose);
}

CameraPose MapCamera::startOf(CameraMotion motion) const {
  return motion == CameraMotion::glide ? target() : pose();
}

void MapCamera::setPose(const CameraPose& pose) {
  glide_.reset();
  if (isReady()) write(limited(pose));
}

void MapCamera::glideTo(const CameraPose& pose) {
  if (!isReady()) return;
  Glide glide{rig_.pose(), limited(pose), std::nullopt};
  // Continue the time of a running glide, so that the camera moves between rapid calls.
  if (glide_ && glide_->start) glide.start = glide_->now;
  glide_ = glide;
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

void MapCamera::advance(double time) {
  if (!glide_) return;
  if (!isReady()) return glide_.reset();
  if (!glide_->start) glide_->start = time;
  glide_->now = time;
  const double share = std::clamp((time - *glide_->start) / glideSeconds, 0.0, 1.0);
  const double eased = 1 - std::pow(1 - share, 3);
  write(between(glide_->from, glide_->to, eased));
  if (share >= 1) glide_.reset();
}

void MapCamera::touchBegan() {
  glide_.reset();
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
