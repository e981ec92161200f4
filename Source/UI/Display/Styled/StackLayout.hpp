// Where the floors of a stack are, and how they are seen.
// Private header.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/FloorCells.hpp"
#include "Source/UI/Display/Styled/StackFloors.hpp"
#include "Source/UI/Display/Styled/StackShapes.hpp"

namespace orivanta {

/// What a layout depends on.
struct StackInput {
  const Venue& venue;          ///< with floors
  std::shared_ptr<Map> shown;  ///< a floor
  FloorList onRoute;           ///< the floors that routes visit
  double turn = 0;             ///< of the camera before, radians
  graphics::Size view;         ///< the free part of it, points
  const KindWords& words;      ///< determine what shapes are
};

/// The stacked floors, all of which have models. Floors without anything on their slabs are left
/// out unless they are shown or on a route.
struct StackLayout {
  /// Stacks the floors of a venue. Main thread.
  explicit StackLayout(const StackInput& input);

  StackedFloors stack;
  std::map<const Map*, StackShapes> shapes;  ///< of these floors, and maybe of others
  double turn = 0;                           ///< of the camera, with the longer side across
  std::shared_ptr<const StackCover> cover;   ///< of these floors
  graphics::Box box;                         ///< of the floors, not stacked
  graphics::Box extent;                      ///< of the stacked floors
  std::vector<graphics::Vector3> corners;    ///< of the stacked shapes
};

/// Returns a box that is higher by an offset.
graphics::Box raised(graphics::Box box, double offset);

}  // namespace orivanta
