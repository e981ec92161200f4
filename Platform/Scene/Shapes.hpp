// Functions that compute geometries. Each geometry has one element and no material. Triangles are
// counterclockwise as seen from outside.
// Public header.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Scene/Geometry.hpp"

namespace orivanta::scene {

/// Returns a closed outline in the x-y plane, extruded along z from -depth/2 to depth/2, with
/// front, sides and back. `outline` contains the corners in clockwise or counterclockwise order.
/// The outline must be convex, and the depth must not be negative. The texture coordinates of the
/// front and the back are (0, 0) at the smallest corner of the outline's bounding box and (1, 1) at
/// the largest. Those of a side increase along its edge and from the back to the front. If there
/// are fewer than three corners, the geometry has no triangles.
ORIVANTA_API std::shared_ptr<Geometry> makeExtrusion(std::span<const graphics::Point> outline,
                                                     double depth);

/// Returns a cylinder around the y axis from -height/2 to height/2, with both caps. It has 48
/// sides, whose normals make it appear round. Texture coordinates increase once around it and
/// upwards, and across each cap.
ORIVANTA_API std::shared_ptr<Geometry> makeCylinder(double radius, double height);

/// Returns a floor in the x-y plane: a square of 20,000 units around the origin that faces upwards,
/// with texture coordinates from (0, 0) to (1, 1).
ORIVANTA_API std::shared_ptr<Geometry> makeFloor();

}  // namespace orivanta::scene
