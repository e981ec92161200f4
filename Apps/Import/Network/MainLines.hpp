// The lines along which people walk through the walkable space of a storey.
#pragma once

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Ways.hpp"

namespace orivanta::importer {

/// Adds the lines of the skeleton of a shape, which go round what stands in it. A part of the shape
/// that is too small for lines gets a point. `space` and `ways` belong to the shape.
void addMainLines(const Shape& shape, const Space& space, Ways& ways, Draft& draft);

}  // namespace orivanta::importer
