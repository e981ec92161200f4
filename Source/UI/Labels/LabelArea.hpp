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
  double height = 0;             ///< of the surface, scene units; 0 for areas made of rings

  /// Adds the edges of a ring; the last corner is joined to the first. The area of a hole is
  /// subtracted from `size`. A ring with a coordinate that is not finite is ignored.
  void addRing(std::span<const graphics::Point> corners, bool isHole = false);

  /// Returns whether a point is inside.
  bool contains(graphics::Point point) const;

  /// Returns the bounding rectangle, which is empty and at the origin if there are no edges.
  graphics::Rect bounds() const;
};

/// Returns the area of a shape, such as the floor of a room with walls or the top of a block. It
/// consists of the triangles that face up and lie at one height: the height at which they are
/// largest together, the greater one of equals. If these are less than half of all triangles that
/// face up, as those of stairs and slopes, it consists of all, and `height` is their mean height.
///
/// Edges that two of the triangles share, seen from above, are removed, also if one of them has
/// only a part of the edge. Triangles with a coordinate that is not finite are ignored. Any
/// thread.
ORIVANTA_API LabelArea shapeArea(std::span<const LabelTriangle> triangles);

}  // namespace orivanta
