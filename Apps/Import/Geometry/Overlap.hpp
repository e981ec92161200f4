// How much of a shape lies in another one.
#pragma once

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// The common area of the bounds of two shapes: no less than that of the shapes, and computed much
/// faster.
double overlapOfBoxes(const Shape& first, const Shape& second);

/// Whether the common area of two valid shapes is larger than `limit` square meters. It is
/// estimated first, and computed exactly only if the estimate is near the limit.
bool overlapExceeds(const Shape& first, const Shape& second, double limit);

}  // namespace orivanta::importer
