// The mouse: on panels it is a finger, on the map it moves the camera.
#pragma once

#include <optional>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/View/Touch.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta::viewer {

class Viewer;

enum class PointerButton { left, right };

/// Points of the viewer's root, times in seconds. A drag keeps the ground under the pointer, one
/// with the right button tilts and turns; a click is a tap, a double click comes closer.
class Pointer {
 public:
  explicit Pointer(Viewer& viewer) : viewer_(viewer) {}

  void press(PointerButton button, graphics::Point at, int clicks, double time);
  void move(graphics::Point to, double time);
  void release(PointerButton button, graphics::Point at, double time);

  /// Lets go of everything, as when the window loses the pointer.
  void cancel(double time);

 private:
  enum class Drag { none, map, tilt };

  void sendFinger(view::TouchPhase phase, graphics::Point at, double time);

  Viewer& viewer_;
  Drag drag_ = Drag::none;
  bool fingerDown_ = false;
  bool onMap_ = false;
  graphics::Point start_;
  graphics::Point last_;
  CameraPose clicked_;  // where the camera stood at a first click
};

}  // namespace orivanta::viewer
