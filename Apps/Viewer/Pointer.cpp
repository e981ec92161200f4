#include "Apps/Viewer/Pointer.hpp"

#include <cmath>
#include <limits>

#include "Apps/Viewer/Viewer.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::uint64_t pointerFinger = std::numeric_limits<std::uint64_t>::max();
constexpr double slack = 5;  // points that a click may move
constexpr double radiansPerPoint = 0.006;
constexpr double doubleClickZoom = 1.8;

}  // namespace

void Pointer::sendFinger(view::TouchPhase phase, graphics::Point at, double time) {
  fingerDown_ = phase == view::TouchPhase::began || phase == view::TouchPhase::moved;
  const view::Touch touch{pointerFinger, phase, at, time};
  viewer_.touch({&touch, 1});
}

void Pointer::press(PointerButton button, graphics::Point at, int clicks, double time) {
  MapCamera* const camera = viewer_.cameraAt(at);
  onMap_ = camera != nullptr;
  start_ = last_ = at;
  if (button == PointerButton::right) {
    if (fingerDown_) sendFinger(view::TouchPhase::canceled, at, time);
    drag_ = onMap_ ? Drag::tilt : Drag::none;
    return;
  }
  drag_ = Drag::none;
  if (onMap_ && clicks == 2) {
    camera->glideTo(clicked_);  // the first click may have moved the camera
    return camera->zoomBy(doubleClickZoom, at, CameraMotion::glide);
  }
  if (onMap_) clicked_ = camera->pose();
  sendFinger(view::TouchPhase::began, at, time);
}

void Pointer::move(graphics::Point to, double time) {
  const double moved = std::hypot(to.x - start_.x, to.y - start_.y);
  if (fingerDown_ && onMap_ && moved > slack) {
    // From here on, it is a drag of the map and not a touch.
    sendFinger(view::TouchPhase::canceled, to, time);
    drag_ = Drag::map;
  }
  if (fingerDown_) sendFinger(view::TouchPhase::moved, to, time);
  const auto& venueView = viewer_.venueView();
  if (venueView && drag_ == Drag::map) venueView->camera().drag(last_, to);
  if (venueView && drag_ == Drag::tilt) {
    MapCamera& camera = venueView->camera();
    camera.tiltBy((last_.y - to.y) * radiansPerPoint);
    camera.rotateBy((last_.x - to.x) * radiansPerPoint);
  }
  last_ = to;
}

void Pointer::release(PointerButton button, graphics::Point at, double time) {
  if (button == PointerButton::left && fingerDown_) sendFinger(view::TouchPhase::ended, at, time);
  drag_ = Drag::none;
}

void Pointer::cancel(double time) {
  if (fingerDown_) sendFinger(view::TouchPhase::canceled, last_, time);
  drag_ = Drag::none;
}

}  // namespace orivanta::viewer
