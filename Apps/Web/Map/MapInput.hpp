// What visitors do with a map: fingers, the mouse, the wheel.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "Platform/View/TouchDispatcher.hpp"
#include "Source/UI/Display/CameraPose.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::web {

/// The device of a pointer.
enum class PointerDevice {
  finger,     ///< also a pen
  mouse,      ///< the main button
  otherMouse  ///< another button, or the main button with the Control key
};

/// Positions are points of the canvas, times are seconds. Fingers that move between two frames
/// move together. With the mouse, dragging keeps the ground under the pointer, dragging with
/// another button tilts and turns, and a double click zooms in.
class MapInput {
 public:
  explicit MapInput(std::shared_ptr<MapView> mapView);

  /// What a pointer does. `clicks`: of the mouse, 2 for the second one of a double click.
  void point(PointerDevice device, const view::Touch& touch, int clicks);

  /// Turns the wheel by steps of a usual wheel, upward if positive. A `pinch` is a step of a
  /// trackpad's gesture.
  void turnWheel(graphics::Point at, double steps, bool isPinch);

  /// Whether touches wait for `deliver`.
  bool isWaiting() const { return !touches_.empty(); }

  /// Delivers the touches since the last call. Called before each frame.
  void deliver();

  /// Cancels all pointers.
  void cancel(double time);

  /// The point of the last tap or other touch.
  graphics::Point lastPoint() const { return lastPoint_; }

 private:
  enum class Drag { none, map, tilt };

  void press(PointerDevice device, const view::Touch& touch, int clicks);
  void move(const view::Touch& touch);
  void release(const view::Touch& touch);
  void add(const view::Touch& touch);

  const std::shared_ptr<MapView> mapView_;
  view::TouchDispatcher dispatcher_;
  std::vector<view::Touch> touches_;
  std::vector<std::uint64_t> fingers_;  // that are down

  // The mouse
  Drag drag_ = Drag::none;
  bool isClick_ = false;  // it acts as a finger
  graphics::Point start_;
  graphics::Point last_;
  CameraPose clicked_;  // the camera at the first click
  graphics::Point lastPoint_;
};

}  // namespace orivanta::web
