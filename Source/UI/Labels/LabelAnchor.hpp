// The point of an area that is farthest from its boundary. A name is centered there.
#pragma once

#include <optional>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Source/UI/Labels/LabelArea.hpp"

namespace orivanta {

/// The center of the largest circle in an area.
struct LabelAnchor {
  graphics::Point point;  ///< scene units
  double radius = 0;      ///< distance to the boundary, scene units; greater than 0
};

/// Returns the point whose distance to the boundary of `area` and of the areas on it is greatest,
/// within 2 percent, or the middle of the area if its distance is at most 5 percent less. If the
/// areas on it cover it entirely, they are ignored. Returns nothing if the area is empty.
///
/// The work is limited: at most about 8 million edges are visited, or each edge 64 times if that is
/// more; the result may then be less accurate. Any thread.
ORIVANTA_API std::optional<LabelAnchor> labelAnchor(const LabelArea& area,
                                                    std::span<const LabelArea> areasOnIt = {});

}  // namespace orivanta
