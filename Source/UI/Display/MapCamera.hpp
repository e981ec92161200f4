// Moves the camera of a map view, immediately or with a glide.
#pragma once

#include <optional>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/Display/CameraPose.hpp"
#include "Source/UI/Display/Framing.hpp"

namespace orivanta {

class CameraRig;
class MapView;

/// How the camera moves.
enum class CameraMotion {
  atOnce,  ///< immediately; ends a running glide
  glide    ///< animated, for a quarter of a second; the host must call `MapCamera::advance`
};

/// The camera of a map view, as returned by `MapView::camera`. It is valid as long as the map view.
/// Its functions have no effect before the map view has a scene, see `isReady`. Main thread.
///
/// The camera moves immediately unless a function is called with `CameraMotion::glide`. A glide
/// only proceeds when the host calls `advance`, so hosts that use glides call it before each frame.
///
/// Each move updates the state of the map view's gestures, adapts the clip planes so that the whole
/// floor stays visible, and arranges the markers.
class ORIVANTA_API MapCamera {
 public:
  /// Called by the map view, which owns the camera.
  MapCamera(MapView& view, CameraRig& rig);
  MapCamera(const MapCamera&) = delete;
  MapCamera& operator=(const MapCamera&) = delete;

  /// Returns whether the map view has a scene.
  bool isReady() const;

  /// Returns the current pose, or a default one if the camera is not ready.
  CameraPose pose() const;

  /// Returns the final pose of the running glide, or `pose` if there is none.
  CameraPose target() const;

  /// Returns the size of the view and the current field of view.
  Lens lens() const;

  /// Returns the limits of poses: above the floor, at most 1.8 times the distance from which the
  /// floor fits the view, and a tilt of less than 60 degrees. There are no limits after
  /// `setLimited(false)`.
  CameraLimits limits() const;

  /// Sets whether poses are kept within `limits`. The default is true.
  void setLimited(bool limited) { limited_ = limited; }

  /// Sets a box of the scene that the camera shows instead of the model of the floor: `fit` frames
  /// it, poses are limited to it, and the camera orbits points at the height of its middle.
  /// Nothing, the default, means the floor. Styles set it while floors are stacked. Does not move
  /// the camera.
  void setExtent(std::optional<graphics::Box> extent);

  /// Sets the covered margins of the view. `fit` and `frame` use the rest of the view.
  void setInsets(const Insets& insets);

  /// Returns the insets; all are 0 until set.
  const Insets& insets() const { return insets_; }

  /// Returns the pose with this tilt and turn, in radians, in which the whole floor fills the view.
  CameraPose fittingPose(double tilt, double turn) const;

  /// Returns the pose with this tilt and turn, in radians, in which scene points with their
  /// surroundings fill the view.
  CameraPose framingPose(const std::vector<graphics::Vector3>& points,
                         const Surroundings& surroundings, double tilt, double turn) const;

  /// Moves the camera immediately to the nearest pose within the limits. Ends a running glide.
  void setPose(const CameraPose& pose);

  /// Starts a glide to the nearest pose within the limits. The camera does not move before
  /// `advance` is called.
  void glideTo(const CameraPose& pose);

  /// Moves the camera to the nearest pose within the limits, with another field of view in degrees.
  /// A glide takes 0.35 seconds and changes both together. If it is ended early, the field of view
  /// changes to its final value immediately, and the middle of the view keeps its scale.
  void moveTo(const CameraPose& pose, double fieldOfView,
              CameraMotion motion = CameraMotion::atOnce);

  /// Shows the whole floor with the y axis pointing up. Keeps the tilt.
  void fit(CameraMotion motion = CameraMotion::atOnce);

  /// Shows points of the scene. Keeps tilt and turn. Does nothing if there are no points.
  void frame(const std::vector<graphics::Vector3>& points,
             const Surroundings& surroundings = aroundPlace,
             CameraMotion motion = CameraMotion::atOnce);

  /// Sets whether glides are moves at once, for users who want less motion. Ends a running glide
  /// then. The default is false.
  void setReducedMotion(bool isReduced);

  // Relative moves. With `glide`, they start from the final pose of the running glide.

  /// Zooms in by `factor`, or out if it is less than 1. The ground at the view position `at` stays
  /// there.
  void zoomBy(double factor, graphics::Point at, CameraMotion motion = CameraMotion::atOnce);

  /// As above, at the center of the part of the view that the insets leave uncovered.
  void zoomBy(double factor, CameraMotion motion = CameraMotion::atOnce);

  /// Moves the camera by points of the view.
  void panBy(double right, double up, CameraMotion motion = CameraMotion::atOnce);

  /// Moves the camera immediately, so that the ground at the view position `from` moves to `to`.
  void drag(graphics::Point from, graphics::Point to);

  void rotateBy(double angle, CameraMotion motion = CameraMotion::atOnce);  ///< radians
  void tiltBy(double angle, CameraMotion motion = CameraMotion::atOnce);    ///< radians
  void tiltTo(double tilt, CameraMotion motion = CameraMotion::atOnce);     ///< radians

  /// Turns the camera so that the y axis points up.
  void resetNorth(CameraMotion motion = CameraMotion::atOnce);

  /// Returns whether a glide is running.
  bool isGliding() const { return glide_.has_value(); }

  /// Ends a running glide at the current pose.
  void stop();

  /// Advances a running glide, and the changes of a style that take time, to `time`, the time of
  /// the next frame in seconds. Does nothing if neither is running. Hosts that use glides call it
  /// before each frame. A glide starts with the first call after it was requested.
  /// `MapView::needsFrame` is true until the glide has ended.
  void advance(double time);

  // With these functions, the gestures of the map view respect the limits, and continue from the
  // current pose after a tap. Hosts call them when they pass touches of the map view to a
  // `view::TouchDispatcher`.

  /// Call before passing a touch that begins. Ends a running glide at the current pose.
  void touchBegan();

  /// Call after passing touches while fingers remain.
  void touchMoved();

  /// Call after the last finger was lifted.
  void touchEnded();

 private:
  struct Glide {
    CameraPose from;
    CameraPose to;
    double fovFrom;  // degrees
    double fovTo;
    double seconds;
    std::optional<double> start;  // empty until first advanced
    double now = 0;               // when it was last advanced
  };

  void move(const CameraPose& pose, CameraMotion motion);
  CameraPose startOf(CameraMotion motion) const;
  Lens targetLens() const;
  std::vector<graphics::Vector3> framedCorners() const;
  void advanceGlide(double time);
  CameraLimits limitsAt(double tilt) const;
  CameraPose limited(const CameraPose& pose) const;
  void keepWithinLimits(bool always);
  void write(const CameraPose& pose);
  void writeGestureState(const CameraPose& pose);

  MapView& view_;
  CameraRig& rig_;
  Insets insets_;
  std::optional<Glide> glide_;
  std::optional<graphics::Box> extent_;
  double pivot_ = 0;  // the height of the orbited point
  bool limited_ = true;
  bool isReduced_ = false;
  bool isTouched_ = false;
};

}  // namespace orivanta
