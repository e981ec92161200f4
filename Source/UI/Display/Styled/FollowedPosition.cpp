#include "Source/UI/Display/Styled/FollowedPosition.hpp"

#include <cmath>

#include "Source/Guidance/Scale.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr double metersShown = 30;
constexpr double unitsShown = 300;      // if the venue has no scale
constexpr double leastMovement = 1e-4;  // of the distance of the camera

Surroundings surroundingsIn(const MapView& view) {
  const auto scale = view.venue ? guidance::unitsPerMeterOf(*view.venue) : std::nullopt;
  return {0, scale ? metersShown * *scale : unitsShown};
}

graphics::Vector3 pointOf(const MapPosition& position) {
  return {static_cast<float>(position.x), static_cast<float>(position.y),
          static_cast<float>(position.z)};
}

}  // namespace

void FollowedPosition::setOn(bool isOn) {
  isOn_ = isOn;
  left_.reset();
}

bool FollowedPosition::isOn(const MapView* view) const {
  return isOn_ && (view == nullptr || !isMoved(*view));
}

bool FollowedPosition::isMoved(const MapView& view) const {
  if (!left_ || left_->floor != view.currentMap().get()) return false;
  const CameraPose now = view.camera().pose();
  return std::hypot(now.x - left_->middle.x, now.y - left_->middle.y) >
         leastMovement * now.distance;
}

void FollowedPosition::update(const MapView& view, const std::optional<MapPosition>& position) {
  MapCamera& camera = view.camera();
  isOn_ = isOn(&view);
  if (!isOn_ || !position || position->floor != view.currentMap()) return;
  if (!camera.isReady() || camera.isGliding()) return;
  CameraPose pose = camera.pose();
  if (left_ && left_->floor == position->floor.get()) {
    pose.x = position->x + left_->offset.x;
    pose.y = position->y + left_->offset.y;
  } else {
    pose = camera.framingPose({pointOf(*position)}, surroundingsIn(view), pose.tilt, pose.turn);
  }
  camera.setPose(pose);
  const CameraPose now = camera.pose();
  left_ = {position->floor.get(), {pose.x - position->x, pose.y - position->y}, {now.x, now.y}};
}

}  // namespace orivanta
