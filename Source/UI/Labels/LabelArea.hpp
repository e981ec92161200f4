// The area of a room or another shape of a floor, as the labels need it.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta {

/// One straight edge of an area.
struct LabelEdge {
  graphics::Point from;  ///< one end
  graphics::Point to;    ///< the other end
};

/// A triangle in scene coordinates.
using LabelTriangle = std::array<graphics::Vector3, 3>;

/// An area in scene units, bounded by edges in any order. A point is inside if a ray from it
/// crosses an odd number of edges, so holes are edges like all others.
struct ORIVANTA_API LabelArea {
  std::vector<LabelEdge> edges;  ///< the boundary, including that of holes
  double size = 0;               ///< square units

  /// Adds the edges of a ring; the last corner is joined to the first. The area of a hole is
  /// subtracted from `size`. A ring with a coordinate that is not finite is ignored.
  void addRing(std::span<const graphics::Point> corners, bool isHole = false);

  /// Returns whether a point is inside.
  bool contains(graphics::Point point) const;

  /// Returns the bounding rectangle, which is empty and at the origin if there are no edges.
  graphics::Rect bounds() const;
};

/// Returns the topmost level part of a shape: the triangles that lie at its greatest height and
/// face up. The edges are those that belong to only one of these triangles. Corners are compared
/// exactly, as triangles of one model share them. Triangles with a coordinate that is not finite
/// are ignored. Any thread.
ORIVANTA_API LabelArea levelTop(std::span<const LabelTriangle> triangles);

}  // namespace orivanta
