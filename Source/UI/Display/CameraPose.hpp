// Where the camera of a map is, and what it sees there. Plain values; no scene is needed.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta {

/// A camera that orbits a point of the ground (z = 0), which it shows in the middle of the view.
/// Distances are scene units, angles are radians.
struct CameraPose {
  double x = 0;         ///< of the point on the ground
  double y = 0;         ///< of the point on the ground
  double distance = 1;  ///< from the point to the camera, above 0
  double tilt = 0;      ///< 0 looks straight down, below pi/2
  double turn = 0;      ///< counterclockwise seen from above; 0 has the y axis upwards

  friend bool operator==(const CameraPose&, const CameraPose&) = default;
};

/// The view that a camera fills.
struct ORIVANTA_API Lens {
  graphics::Size size;      ///< points
  double fieldOfView = 40;  ///< degrees, over the shorter side of the view

  /// The tangent of the angle between the middle of the view and a point of it, for each point of
  /// distance from the middle.
  double slopePerPoint() const;
};

/// The range in which a camera is kept.
struct ORIVANTA_API CameraLimits {
  graphics::Box floor;      ///< the orbited point stays over it; an empty box sets no limit
  double nearest = 90;      ///< least distance, scene units
  double farthest = 4000;   ///< greatest distance, scene units
  double steepest = 1.047;  ///< greatest tilt, radians

  /// The nearest pose within the limits. The turn is brought into the range from -pi to pi.
  CameraPose clamped(CameraPose pose) const;
};

/// The distance of a scene point from the plane of the camera, along the direction in which the
/// camera looks; negative behind the camera.
ORIVANTA_API double depthOf(const graphics::Vector3& point, const CameraPose& pose);

/// The point of the ground that shows at a point of the view (points, y downwards); nothing at or
/// above the horizon.
ORIVANTA_API std::optional<graphics::Point> groundUnder(const CameraPose& pose, const Lens& lens,
                                                        graphics::Point point);

/// The point of the view at which a point of the ground shows; nothing behind the camera.
ORIVANTA_API std::optional<graphics::Point> shownAt(const CameraPose& pose, const Lens& lens,
                                                    graphics::Point ground);

/// The pose after a drag: the ground that was under `from` is under `to`. Returns the pose
/// unchanged if one of the two points shows no ground.
ORIVANTA_API CameraPose dragged(const CameraPose& pose, const Lens& lens, graphics::Point from,
                                graphics::Point to);

/// The pose closer by `factor` (below 1: farther away), within the limits. The ground under `about`
/// stays there.
ORIVANTA_API CameraPose zoomed(const CameraPose& pose, const Lens& lens, const CameraLimits& limits,
                               double factor, graphics::Point about);

/// A pose between two others; the turn goes the shorter way round. A `share` of 0 returns `from`, 1
/// returns `to`. Equal steps of `share` change the distance by equal factors.
ORIVANTA_API CameraPose between(const CameraPose& from, const CameraPose& to, double share);

}  // namespace orivanta
