// The points by which cameras frame the model of a floor.
// Private header.
#pragma once

#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta {

/// Returns the corners of the boxes of a floor's shapes, in the space of the floor. They frame a
/// turned floor more tightly than its box.
std::vector<graphics::Vector3> cornersOfShapes(const scene::Node& floor);

}  // namespace orivanta
