// The nodes that make up a drawn route.
#pragma once

#include <array>
#include <memory>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta {

// Positions and lengths are scene units. None of the nodes casts a shadow or has a parent.

/// A ribbon from A to B with a disc at both ends, `elevation` above the ground.
std::shared_ptr<scene::Node> makeRouteStrip(graphics::Vector3 positionA,
                                            graphics::Vector3 positionB, float width,
                                            graphics::Color color, float elevation);

/// A ribbon of half the width with arrows that move from A to B, and a dot at both ends.
std::shared_ptr<scene::Node> makeRouteArrows(graphics::Vector3 positionA,
                                             graphics::Vector3 positionB, float width,
                                             float elevation);

/// One segment of a route, at the height of B: a white strip, a colored one, and arrows.
std::array<std::shared_ptr<scene::Node>, 3> makeRouteSegment(graphics::Vector3 positionA,
                                                             graphics::Vector3 positionB,
                                                             graphics::Color color);

/// The disc that highlights the node of a route at a position; it is at a fixed height.
std::shared_ptr<scene::Node> makeHighlightDisc(graphics::Vector3 position);

}  // namespace orivanta
