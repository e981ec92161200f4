// The outlines of the shapes of a floor.
// Private header.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Source/UI/Display/Styled/ShapeRoles.hpp"

namespace orivanta {

/// A shape of a floor. Geometries are immutable, so other threads can use them.
struct OutlinedShape {
  std::shared_ptr<const scene::Geometry> geometry;  ///< may be null
  graphics::Matrix4 toFloor{1.0F};                  ///< from the shape's space to the floor's
  ShapeRole role;
};

/// Returns the children of a floor's model. `roles` has one element for each child.
std::vector<OutlinedShape> outlinedShapes(const scene::Node& floor,
                                          std::span<const ShapeRole> roles);

/// Makes the outlines of a floor, in its space; the color indices are those of `outlineIndex`, for
/// the surfaces on both sides of an edge. Places are outlined on all sides, with gaps where their
/// walls have some. Walkable areas, slabs and openings are outlined where they do not border on
/// a place or on their like. Walls that belong to no place and fixtures have no outlines.
/// `unitsPerMeter`: of the floor, greater than 0. Any thread.
std::shared_ptr<const scene::Ribbons> makeOutlines(std::span<const OutlinedShape> shapes,
                                                   double unitsPerMeter);

}  // namespace orivanta
