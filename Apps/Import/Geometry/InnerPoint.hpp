// A point well inside an area, where a label or the end of a route looks right.
#pragma once

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// The point of the largest polygon that is farthest from its border, to a few percent of its size.
/// The shape must not be empty.
Point innerPoint(const Shape& shape);

}  // namespace orivanta::importer
