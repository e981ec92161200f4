// The edges of a shape that may be drawn as its outline.
// Private header.
#pragma once

#include <span>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/Labels/LabelArea.hpp"

namespace orivanta {

/// A directed edge: seen from above, the face lies to the left.
struct ShapeEdge {
  graphics::Vector3 from;
  graphics::Vector3 to;
};

/// The boundaries of the faces of a shape that face up.
struct ShapeEdges {
  /// Of the largest level, or of all faces of stairs and slopes. The edges beside the steps of
  /// stairs run along the fronts of the steps.
  std::vector<ShapeEdge> main;
  std::vector<ShapeEdge> above;  ///< of what is higher, such as the tops of walls
};

/// Finds the edges of the given faces, which must face up and be finite. An edge is part of a
/// boundary if no other face has the same edge, seen from above. Any thread.
ShapeEdges shapeEdges(std::span<const LabelTriangle> faces);

}  // namespace orivanta
