// The nodes that make up a drawn route.
// Private header.
#pragma once

#include <array>
#include <memory>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta {

// Positions and lengths are in scene units. The nodes cast no shadows and have no parent.

/// Returns a ribbon from A to B with a disc at each end, `elevation` above the ground.
std::shared_ptr<scene::Node> makeRouteStrip(graphics::Vector3 positionA,
                                            graphics::Vector3 positionB, float width,
                                            graphics::Color color, float elevation);

/// Returns a ribbon of half the width with arrows that move from A to B, and a dot at each end.
std::shared_ptr<scene::Node> makeRouteArrows(graphics::Vector3 positionA,
                                             graphics::Vector3 positionB, float width,
                                             float elevation);

/// Returns one segment of a route at the height of B: a white ribbon, a colored ribbon, and arrows.
std::array<std::shared_ptr<scene::Node>, 3> makeRouteSegment(graphics::Vector3 positionA,
                                                             graphics::Vector3 positionB,
                                                             graphics::Color color);

/// Returns the disc that highlights a node at a position. The height of the disc is fixed.
std::shared_ptr<scene::Node> makeHighlightDisc(graphics::Vector3 position);

}  // namespace orivanta
