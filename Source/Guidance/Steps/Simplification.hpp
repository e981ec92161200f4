// Reduces a line to the points that make its shape.
#pragma once

#include <cstddef>
#include <vector>

#include "Source/Guidance/Steps/PlanePoint.hpp"

namespace orivanta::guidance {

/// Returns the indices of the points that remain when a line is simplified with the algorithm of
/// Douglas and Peucker, in ascending order. The first and the last point always remain; a point
/// that equals the one before it does not. `tolerance` is in meters. The line is processed in
/// pieces of 512 points, so the time for a line of any shape is limited.
std::vector<std::size_t> simplified(const std::vector<PlanePoint>& line, double tolerance);

}  // namespace orivanta::guidance
