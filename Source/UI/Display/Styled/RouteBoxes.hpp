// The parts of the view that a route covers.
// Private header.
#pragma once

#include <array>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"

namespace orivanta {

/// A straight part of a route, in scene units.
using RouteSegment = std::array<graphics::Vector3, 2>;

/// Adds squares of a side of `width` points along a segment, at most 10 points apart, as far as
/// they lie in the view. Adds nothing if an end is behind the camera.
void addRouteBoxes(const ProjectedPlace& from, const ProjectedPlace& to, graphics::Size view,
                   double width, std::vector<graphics::Rect>& boxes);

}  // namespace orivanta
