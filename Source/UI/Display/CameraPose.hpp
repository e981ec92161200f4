// Where the camera of a map stands, as numbers: how a pointer moves it, and how far it may go.
#pragma once

#include <optional>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/Display/Framing.hpp"

namespace orivanta {

/// How far the camera may go.
struct CameraLimits {
  graphics::Box floor;      ///< what the middle of the view stays above
  double nearest = 90;      ///< distance
  double farthest = 4000;   ///< distance
  double steepest = 1.047;  ///< tilt, just below 60 degrees

  CameraPose clamped(CameraPose pose) const;
};

/// The point of the ground under a point of the view; nothing at or above the horizon.
std::optional<graphics::Point> groundUnder(const CameraPose& pose, const Lens& lens,
                                           graphics::Point point);

/// The point of the view where a point of the ground shows; nothing behind the camera.
std::optional<graphics::Point> shownAt(const CameraPose& pose, const Lens& lens,
                                       graphics::Point ground);

/// So that what was under `from` comes under `to`. Unchanged when either shows no ground.
CameraPose dragged(const CameraPose& pose, const Lens& lens, graphics::Point from,
                   graphics::Point to);

/// Closer by a factor, keeping what is under the point where it is; within the limits.
CameraPose zoomed(const CameraPose& pose, const Lens& lens, const CameraLimits& limits,
                  double factor, graphics::Point about);

/// Between two poses, the shorter way round: 0 gives `from`, 1 gives `to`. Distances go by ratios.
CameraPose between(const CameraPose& from, const CameraPose& to, double share);

}  // namespace orivanta
