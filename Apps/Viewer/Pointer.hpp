// The mouse: it acts as a finger on panels and moves the camera on the map.
#pragma once

#include <optional>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/View/Touch.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta::viewer {

class Viewer;

enum class PointerButton { left, right };

/// Positions are points of the viewer's root, times are seconds. Dragging keeps the ground under
/// the pointer; dragging with the right button tilts and turns. A click is a tap, and a double
/// click zooms in.
class Pointer {
 public:
  explicit Pointer(Viewer& viewer) : viewer_(viewer) {}

  void press(PointerButton button, graphics::Point at, int clicks, double time);
  void move(graphics::Point to, double time);
  void release(PointerButton button, graphics::Point at, double time);

  /// Cancels clicks and drags, for example when the window loses the pointer.
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
  CameraPose clicked_;  // the camera at the first click
};

}  // namespace orivanta::viewer
