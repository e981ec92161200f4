#include "Apps/Web/Map/MapInput.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta::web {

using view::TouchPhase;

namespace {

constexpr double slack = 5;  // points that a click may move
constexpr double radiansPerPoint = 0.006;
constexpr double doubleClickZoom = 1.8;
constexpr double wheelZoom = 1.18;  // per step
constexpr double pinchZoom = 2.7;   // per step

view::Touch with(view::Touch touch, TouchPhase phase) {
  touch.phase = phase;
  return touch;
}

}  // namespace

MapInput::MapInput(std::shared_ptr<MapView> mapView)
    : mapView_(std::move(mapView)), dispatcher_(mapView_) {}

void MapInput::point(PointerDevice device, const view::Touch& touch, int clicks) {
  if (!mapView_->camera().isReady()) return;
  if (device == PointerDevice::finger) return add(touch);
  switch (touch.phase) {
    case TouchPhase::began:
      return press(device, touch, clicks);
    case TouchPhase::moved:
      return move(touch);
    default:
      return release(touch);
  }
}

void MapInput::press(PointerDevice device, const view::Touch& touch, int clicks) {
  MapCamera& camera = mapView_->camera();
  start_ = last_ = touch.position;
  drag_ = Drag::none;
  if (device == PointerDevice::otherMouse) {
    if (std::exchange(isClick_, false)) add(with(touch, TouchPhase::canceled));
    drag_ = Drag::tilt;
    return;
  }
  if (clicks == 2) {
    camera.glideTo(clicked_);  // the first click may have moved the camera
    return camera.zoomBy(doubleClickZoom, touch.position, CameraMotion::glide);
  }
  clicked_ = camera.pose();
  isClick_ = true;
  add(touch);
}

void MapInput::move(const view::Touch& touch) {
  MapCamera& camera = mapView_->camera();
  const graphics::Point to = touch.position;
  if (isClick_ && std::hypot(to.x - start_.x, to.y - start_.y) > slack) {
    isClick_ = false;
    add(with(touch, TouchPhase::canceled));
    deliver();
    drag_ = Drag::map;
  }
  if (isClick_) add(touch);
  if (drag_ == Drag::map) camera.drag(last_, to);
  if (drag_ == Drag::tilt) {
    camera.tiltBy((last_.y - to.y) * radiansPerPoint);
    camera.rotateBy((last_.x - to.x) * radiansPerPoint);
  }
  last_ = to;
}

void MapInput::release(const view::Touch& touch) {
  if (std::exchange(isClick_, false)) add(touch);
  drag_ = Drag::none;
}

void MapInput::turnWheel(graphics::Point at, double steps, bool isPinch) {
  if (!std::isfinite(steps)) return;
  const double factor = std::pow(isPinch ? pinchZoom : wheelZoom, std::clamp(steps, -10.0, 10.0));
  mapView_->camera().zoomBy(factor, at, isPinch ? CameraMotion::atOnce : CameraMotion::glide);
}

void MapInput::add(const view::Touch& touch) { touches_.push_back(touch); }

void MapInput::deliver() {
  const auto touches = std::exchange(touches_, {});
  if (touches.empty()) return;
  MapCamera& camera = mapView_->camera();
  for (const view::Touch& touch : touches) {
    lastPoint_ = touch.position;
    if (touch.phase != TouchPhase::began) continue;
    fingers_.push_back(touch.identifier);
    camera.touchBegan();
  }
  dispatcher_.dispatch(touches);
  for (const view::Touch& touch : touches)
    if (touch.phase == TouchPhase::ended || touch.phase == TouchPhase::canceled)
      std::erase(fingers_, touch.identifier);
  fingers_.empty() ? camera.touchEnded() : camera.touchMoved();
}

void MapInput::cancel(double time) {
  deliver();
  dispatcher_.cancelAll(time);
  if (!fingers_.empty()) mapView_->camera().touchEnded();
  fingers_.clear();
  isClick_ = false;
  drag_ = Drag::none;
}

}  // namespace orivanta::web
