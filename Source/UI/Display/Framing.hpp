// From where a camera shows some points of a floor, all of them and as large as there is room for.
#pragma once

#include <array>
#include <span>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta {

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

/// A camera that circles around a point of the ground (z = 0), which is in the middle of the view.
/// Scene units and radians.
struct CameraPose {
  double x = 0;
  double y = 0;
  double distance = 1;
  double tilt = 0;  ///< from straight down
  double turn = 0;  ///< counterclockwise, seen from above

  friend bool operator==(const CameraPose&, const CameraPose&) = default;
};

/// How far a point of the scene is from the camera, along the direction in which it looks; negative
/// behind it.
double depthOf(const graphics::Vector3& point, const CameraPose& pose);

/// The corners of a box, which is not empty.
std::array<graphics::Vector3, 8> cornersOf(const graphics::Box& box);

/// As close as shows all points inside the insets, in their middle; tilted and turned as `pose` is.
/// With a steep tilt the points stay away from the horizon. The pose itself if there are no points.
CameraPose framing(std::span<const graphics::Vector3> points, CameraPose pose, const Lens& lens,
                   const Insets& insets, const Surroundings& surroundings);

}  // namespace orivanta
