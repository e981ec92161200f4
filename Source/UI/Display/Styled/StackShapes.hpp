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

/// The shapes of a model. A slab that is more than twice as large as everything that lies on the
/// slabs of all floors is hidden: it is the site and not the storey, would hide the floors below,
/// and would keep the camera away. It stays if nobody can walk on anything else.
class StackShapes {
 public:
  /// The floor must have a model. Main thread.
  StackShapes(const Map& floor, const Venue& venue, const KindWords& words);

  /// The box of everything but slabs; empty if there are only slabs.
  const graphics::Box& contents() const { return contents_; }

  /// Chooses the shapes. `all` contains the contents of all floors.
  void choose(const graphics::Box& all);

  std::vector<ShapeRole> roles;                       ///< of all shapes of the model
  std::vector<std::shared_ptr<scene::Node>> shapes;   ///< those that count
  std::vector<std::shared_ptr<scene::Node>> leftOut;  ///< those that are hidden
  graphics::Box box;                                  ///< of those that count, in the model
  std::vector<graphics::Vector3> corners;             ///< of their boxes

 private:
  std::shared_ptr<scene::Node> model_;
  graphics::Box contents_;
  graphics::Box slabs_;
};

}  // namespace orivanta
