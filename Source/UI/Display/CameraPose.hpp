// The pose of a map's camera and its projection. Plain values; no scene is required.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta {

/// The pose of a camera that orbits a point, which is at the center of the view. The point lies on
/// the ground (z = 0) unless floors are stacked, see `MapCamera::setExtent`. Distances are in scene
/// units, angles in radians.
struct CameraPose {
  double x = 0;         ///< x of the point
  double y = 0;         ///< y of the point
  double distance = 1;  ///< from the point to the camera, greater than 0
  double tilt = 0;      ///< 0 (straight down) to less than pi/2
  double turn = 0;      ///< counterclockwise from above; at 0 the y axis points up
  double z = 0;         ///< height of the point and of what the functions below call the ground

  friend bool operator==(const CameraPose&, const CameraPose&) = default;
};

/// The size of a camera's view and its field of view.
struct ORIVANTA_API Lens {
  graphics::Size size;      ///< points
  double fieldOfView = 40;  ///< degrees, along the shorter side of the view

  /// Returns the tangent of the angle between the center of the view and a point of the view, per
  /// point of distance from the center.
  double slopePerPoint() const;
};

/// The limits of a camera's pose.
struct ORIVANTA_API CameraLimits {
  graphics::Box floor;      ///< contains the orbited point; no limit if empty
  double nearest = 90;      ///< minimum distance, scene units
  double farthest = 4000;   ///< maximum distance, scene units
  double steepest = 1.047;  ///< maximum tilt, radians

  /// Returns the nearest pose within the limits. The turn is normalized to -pi to pi.
  CameraPose clamped(CameraPose pose) const;
};

/// Returns the distance of a scene point from the plane of the camera, along the viewing direction.
/// It is negative for points behind the camera.
ORIVANTA_API double depthOf(const graphics::Vector3& point, const CameraPose& pose);

/// Returns the point of the ground that is visible at a point of the view (points, y downward).
/// Returns nothing at or above the horizon.
ORIVANTA_API std::optional<graphics::Point> groundUnder(const CameraPose& pose, const Lens& lens,
                                                        graphics::Point point);

/// Returns the point of the view at which a point of the ground is visible. Returns nothing if the
/// point is behind the camera.
ORIVANTA_API std::optional<graphics::Point> shownAt(const CameraPose& pose, const Lens& lens,
                                                    graphics::Point ground);

/// Returns the pose after a drag that moves the ground at `from` to `to`. Returns the pose
/// unchanged if there is no ground at one of the two points.
ORIVANTA_API CameraPose dragged(const CameraPose& pose, const Lens& lens, graphics::Point from,
                                graphics::Point to);

/// Returns the pose zoomed in by `factor` (zoomed out if it is less than 1), within the limits. The
/// ground at `about` stays there.
ORIVANTA_API CameraPose zoomed(const CameraPose& pose, const Lens& lens, const CameraLimits& limits,
                               double factor, graphics::Point about);

/// Returns the pose of the same camera that orbits a point at another height.
ORIVANTA_API CameraPose atHeight(CameraPose pose, double z);

/// Returns the progress of a motion that slows down toward its end, from 0 to 1, after a `share`
/// of its time.
ORIVANTA_API double eased(double share);

/// Interpolates between two poses: a `share` of 0 returns `from`, 1 returns `to`. The turn takes
/// the shorter direction. Equal steps of `share` change the distance by equal factors.
ORIVANTA_API CameraPose between(const CameraPose& from, const CameraPose& to, double share);

}  // namespace orivanta
