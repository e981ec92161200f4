// The camera pose from which given points fill the view.
#pragma once

#include <array>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta {

/// The margins of a view that are covered by other things, in points.
struct Insets {
  double left = 0;    ///< at the left edge
  double top = 0;     ///< at the upper edge
  double right = 0;   ///< at the right edge
  double bottom = 0;  ///< at the lower edge
};

/// How much shows around the points that are framed.
struct Surroundings {
  double margin = 0;       ///< a share of the extent of the points
  double leastExtent = 1;  ///< the least extent that shows in each direction, scene units
};

inline constexpr Surroundings aroundFloor{0.06, 1};    ///< for a whole floor
inline constexpr Surroundings aroundPlace{0.35, 300};  ///< for a single place

/// For a route: a short one fills a good part of the view and still shows what it passes. If the
/// venue says how many units a meter has, at least eight meters show.
ORIVANTA_API Surroundings aroundRoute(const Venue& venue);

/// The corners of a box, which must not be empty.
ORIVANTA_API std::array<graphics::Vector3, 8> cornersOf(const graphics::Box& box);

/// The pose that is as close as possible and shows all points within the insets, in the middle of
/// the free part. Keeps the tilt and the turn of `pose`. Points stay away from the horizon when the
/// tilt is steep. Returns `pose` if there are no points.
ORIVANTA_API CameraPose framing(std::span<const graphics::Vector3> points, CameraPose pose,
                                const Lens& lens, const Insets& insets,
                                const Surroundings& surroundings);

}  // namespace orivanta
