// Moves the camera of a map view with pointer and keys, beside the view's own gestures.
#pragma once

#include <optional>
#include <vector>

#include "Source/UI/Display/CameraPose.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

/// Needs a started scene; without one nothing happens. Writes the nodes of the camera, and the
/// state of the gestures with them, so that a gesture goes on from where this has brought it.
/// Keeps the map view. Main thread.
class CameraControl {
 public:
  explicit CameraControl(std::shared_ptr<MapView> mapView);

  bool isReady() const { return mapView_->cameraOrbit != nullptr; }
  CameraPose pose() const;
  Lens lens() const;
  CameraLimits limits() const;

  /// What covers the edges of the view, for `fit` and `frame`.
  void setInsets(const Insets& insets) { insets_ = insets; }

  // At once; a glide under way ends.
  void setPose(const CameraPose& pose);
  void drag(graphics::Point from, graphics::Point to);
  void zoom(double factor, graphics::Point about);
  void tiltAndTurn(double tilt, double turn);  ///< radians to add

  // As a glide of a quarter of a second from the next `advance` on, which adds up with one under
  // way.
  void glideTo(const CameraPose& pose);
  void glideZoom(double factor, graphics::Point about);
  void glidePan(double right, double up);  ///< points of the view
  void glideTilt(double tilt, double turn);

  /// Shows the whole floor as it lies, tilted as now.
  void fit(bool gliding = true);

  /// Shows some points of the floor, and their surroundings.
  void frame(const std::vector<graphics::Vector3>& points, const Surroundings& surroundings);

  /// A finger has landed on the map view itself: ends a glide where it is. Until `settle(true)` the
  /// view's gestures go on from where they began, whatever moves the camera beside them.
  void fingerLanded();

  bool isGliding() const { return glide_.has_value(); }
  void advance(double time);  ///< seconds, rising

  /// After a touch of the map view itself: brings back what went beyond the limits and, with the
  /// last finger, the gesture state that a tap resets. A glide that it started goes on.
  void settle(bool gestureEnded);

 private:
  struct Glide {
    CameraPose from;
    CameraPose to;
    std::optional<double> start;  // nothing before it is first advanced
    double now = 0;               // when it was last advanced
  };

  CameraPose target() const { return glide_ ? glide_->to : pose(); }
  CameraPose fitting() const;
  void write(const CameraPose& pose);
  void writeGestureState(const CameraPose& pose);

  std::shared_ptr<MapView> mapView_;
  Insets insets_;
  std::optional<Glide> glide_;
  bool isTouched_ = false;
};

}  // namespace orivanta
