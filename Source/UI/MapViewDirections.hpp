// The state of route drawing that all map views of the process share.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta {

/// Sizes of the parts of drawn routes.
struct MapViewDirectionsConstants {
  static constexpr float pathHeight = 0.1F;  ///< thickness of ribbons and discs, in scene units
};

/// The scene nodes of drawn routes. Main thread.
struct ORIVANTA_API MapViewDirectionsPathNodes {
  /// Returns the parts of the drawn routes, in drawing order: three for each segment.
  static std::vector<std::shared_ptr<scene::Node>>& nodes();

  /// Returns the disc under the highlighted node, or null if no node has been highlighted. The disc
  /// is kept when it is removed from the scene.
  static std::shared_ptr<scene::Node>& highLightNode();
};

}  // namespace orivanta
