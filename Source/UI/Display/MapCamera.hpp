// Moves the camera of a map view: to places, by steps, and with glides.
#pragma once

#include <optional>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/Display/CameraPose.hpp"
#include "Source/UI/Display/Framing.hpp"

namespace orivanta {

class CameraRig;
class MapView;

/// How the camera moves.
enum class CameraMotion {
  atOnce,  ///< ends a glide that is under way
  glide    ///< takes a quarter of a second, see `MapCamera::advance`
};

/// The camera of a map view, as `MapView::camera` returns it. Lives as long as the map view. Does
/// nothing before the map view has a scene, see `isReady`. Main thread.
///
/// After each move the gestures of the map view continue from the new pose, the clip planes leave
/// the shown floor whole, and the markers are arranged.
class ORIVANTA_API MapCamera {
 public:
  /// Made by the map view that owns it.
  MapCamera(MapView& view, CameraRig& rig);
  MapCamera(const MapCamera&) = delete;
  MapCamera& operator=(const MapCamera&) = delete;

  /// Whether the map view has a scene.
  bool isReady() const;

  /// The pose now; a default one before the camera is ready.
  CameraPose pose() const;

  /// The pose to which a glide leads; `pose` if none is under way.
  CameraPose target() const;

  /// The view that the camera fills.
  Lens lens() const;

  /// The range in which poses are kept: over the floor, no farther than 1.8 times the distance from
  /// which the floor fits into the view, tilted by less than 60 degrees. Without limits after
  /// `setLimited(false)`.
  CameraLimits limits() const;

  /// Whether poses are kept within `limits`; true until set.
  void setLimited(bool limited) { limited_ = limited; }

  /// What covers the edges of the view. `fit` and `frame` use the rest of it.
  void setInsets(const Insets& insets) { insets_ = insets; }

  /// What was set last; nothing until then.
  const Insets& insets() const { return insets_; }

  /// The pose from which the whole floor fills the view, with this tilt and turn in radians.
  CameraPose fittingPose(double tilt, double turn) const;

  /// The pose from which some points of the scene with their surroundings fill the view, with this
  /// tilt and turn in radians.
  CameraPose framingPose(const std::vector<graphics::Vector3>& points,
                         const Surroundings& surroundings, double tilt, double turn) const;

  /// Moves the camera at once, to the nearest pose within the limits. Ends a glide.
  void setPose(const CameraPose& pose);

  /// Moves the camera in a glide, to the nearest pose within the limits.
  void glideTo(const CameraPose& pose);

  /// Shows the whole floor with the y axis upwards; keeps the tilt.
  void fit(CameraMotion motion = CameraMotion::glide);

  /// Shows some points of the scene; keeps tilt and turn. Does nothing without points.
  void frame(const std::vector<graphics::Vector3>& points,
             const Surroundings& surroundings = aroundPlace,
             CameraMotion motion = CameraMotion::glide);

  // Steps. Gliding ones start from where a glide under way leads.

  /// Comes closer by `factor`, or goes away with one below 1. The ground under the point `at` of
  /// the view stays there.
  void zoomBy(double factor, graphics::Point at, CameraMotion motion = CameraMotion::glide);

  /// Moves by points of the view.
  void panBy(double right, double up, CameraMotion motion = CameraMotion::glide);

  /// Moves at once so that the ground under the point `from` of the view comes under `to`.
  void drag(graphics::Point from, graphics::Point to);

  void rotateBy(double angle, CameraMotion motion = CameraMotion::glide);  ///< radians
  void tiltBy(double angle, CameraMotion motion = CameraMotion::glide);    ///< radians
  void tiltTo(double tilt, CameraMotion motion = CameraMotion::glide);     ///< radians

  /// Turns the y axis upwards.
  void resetNorth(CameraMotion motion = CameraMotion::glide);

  /// Whether a glide is under way.
  bool isGliding() const { return glide_.has_value(); }

  /// Ends a glide where it is.
  void stop() { glide_.reset(); }

  /// Moves a gliding camera. A host calls it before each frame with the frame's time in seconds. A
  /// glide begins with the first call after it was started.
  void advance(double time);

  // For hosts that want the map view's own gestures to respect the limits and to continue after a
  // tap from where the camera is. Call them around handing touches of the map view to a
  // `view::TouchDispatcher`.

  /// Before a touch that begins. Ends a glide where it is.
  void touchBegan();

  /// After touches while fingers remain.
  void touchMoved();

  /// After the last finger has gone.
  void touchEnded();

 private:
  struct Glide {
    CameraPose from;
    CameraPose to;
    std::optional<double> start;  // nothing before it is first advanced
    double now = 0;               // when it was last advanced
  };

  void move(const CameraPose& pose, CameraMotion motion);
  CameraPose startOf(CameraMotion motion) const;
  CameraLimits limitsAt(double tilt) const;
  CameraPose limited(const CameraPose& pose) const;
  void keepWithinLimits(bool always);
  void write(const CameraPose& pose);
  void writeGestureState(const CameraPose& pose);

  MapView& view_;
  CameraRig& rig_;
  Insets insets_;
  std::optional<Glide> glide_;
  bool limited_ = true;
  bool isTouched_ = false;
};

}  // namespace orivanta
