// What all map views share when they draw routes: one set for the whole process.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta {

/// Sizes of what routes are drawn with.
struct MapViewDirectionsConstants {
  static constexpr float pathHeight = 0.1F;  ///< thickness of ribbons and discs, in scene units
};

/// Main thread.
struct ORIVANTA_API MapViewDirectionsPathNodes {
  /// The parts of the drawn routes, in drawing order: three for each segment.
  static std::vector<std::shared_ptr<scene::Node>>& nodes();

  /// The disc under the highlighted node; kept when it is taken from the scene. Null before any.
  static std::shared_ptr<scene::Node>& highLightNode();
};

}  // namespace orivanta
