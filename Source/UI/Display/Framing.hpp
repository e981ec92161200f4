// Calculates the camera pose in which given points fill the view.
#pragma once

#include <array>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta {

class MapView;

/// The margins of a view that are covered by other elements, in points.
struct Insets {
  double left = 0;    ///< at the left edge
  double top = 0;     ///< at the upper edge
  double right = 0;   ///< at the right edge
  double bottom = 0;  ///< at the lower edge

  friend bool operator==(const Insets&, const Insets&) = default;
};

/// The area that is visible around framed points.
struct Surroundings {
  double margin = 0;       ///< fraction of the extent of the points
  double leastExtent = 1;  ///< minimum visible extent in each direction, scene units
  double points = 0;       ///< additional margin on each side, points
};

inline constexpr Surroundings aroundFloor{0.06, 1};    ///< for a whole floor
inline constexpr Surroundings aroundPlace{0.35, 300};  ///< for a single place

/// Returns the surroundings for a route: a short route fills a large part of the view, and its
/// vicinity is visible. If the venue defines its units per meter, at least eight meters are
/// visible.
ORIVANTA_API Surroundings aroundRoute(const Venue& venue);

/// As above, for a map view that has a venue. If it has a style, the marks at the ends of the route
/// have space: the ends are at least 40 points inside the uncovered part of the view. If the venue
/// also defines its units per meter, at least 25 meters are visible, so that the rooms around a
/// short route can be recognized.
ORIVANTA_API Surroundings aroundRoute(const MapView& view);

/// Returns the corners of a box, which must not be empty.
ORIVANTA_API std::array<graphics::Vector3, 8> cornersOf(const graphics::Box& box);

/// Returns the closest pose that shows all points within the insets, at the center of the uncovered
/// part. Keeps the tilt and the turn of `pose`. If the tilt is steep, the points keep a distance
/// from the horizon. Returns `pose` if there are no points.
ORIVANTA_API CameraPose framing(std::span<const graphics::Vector3> points, CameraPose pose,
                                const Lens& lens, const Insets& insets,
                                const Surroundings& surroundings);

}  // namespace orivanta
