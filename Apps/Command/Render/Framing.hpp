// From where a camera shows some points of a floor, all of them and as large as there is room for.
#pragma once

#include <span>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta::command {

/// The view that a camera fills.
struct Lens {
  graphics::Size size;      ///< points
  double fieldOfView = 40;  ///< degrees, over the shorter side

  /// The tangent of the angle between the middle of the view and a point of it, for each point.
  double slopePerPoint() const;
};

/// The edges of a view that other things cover, in points.
struct Insets {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

/// How much shows around what is framed.
struct Surroundings {
  double margin = 0;       ///< of its extent
  double leastExtent = 1;  ///< scene units that show at least, in each direction
};

/// A camera that circles around a point of the ground, which is in the middle of the view.
struct Orbit {
  graphics::Point centre;
  double distance = 1;  ///< scene units
};

/// The nearest orbit from which all points show inside the insets, in their middle. `tilt` from
/// straight down and `turn` counterclockwise, in radians. With a steep tilt the points stay away
/// from the horizon. There is at least one point.
Orbit framing(std::span<const graphics::Point> points, double tilt, double turn, const Lens& lens,
              const Insets& insets, const Surroundings& surroundings);

}  // namespace orivanta::command
