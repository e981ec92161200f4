// Converts venue coordinates to scene coordinates.
// Private header.
#pragma once

#include "Platform/Graphics/Vector.hpp"
#include "Source/Node.hpp"

namespace orivanta {

/// Returns the coordinates of a node in single precision.
inline graphics::Vector3 scenePosition(const Node& node) {
  return {static_cast<float>(node.x), static_cast<float>(node.y), static_cast<float>(node.z)};
}

}  // namespace orivanta
