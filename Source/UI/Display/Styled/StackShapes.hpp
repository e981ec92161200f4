// The shapes of a floor that count when floors are stacked.
// Private header.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/ShapeRoles.hpp"

namespace orivanta {

/// The shapes of a model. A slab that is more than twice as large as everything on it is left out:
/// it is the site and not the storey, and would hide the floors below.
struct StackShapes {
  /// The floor must have a model. Main thread.
  StackShapes(const Map& floor, const Venue& venue, const KindWords& words);

  std::vector<ShapeRole> roles;                       ///< of all shapes of the model
  std::vector<std::shared_ptr<scene::Node>> shapes;   ///< those that count
  std::vector<std::shared_ptr<scene::Node>> leftOut;  ///< the others
  graphics::Box box;                                  ///< of those that count, in the model
  std::vector<graphics::Vector3> corners;             ///< of their boxes
};

}  // namespace orivanta
