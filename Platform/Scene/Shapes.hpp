// Geometries computed from a few numbers. Each has one element and no material yet; triangles run
// counter-clockwise as seen from outside.
// Public header.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Scene/Geometry.hpp"

namespace orivanta::scene {

/// A closed outline in the x-y plane, given by its corners in either sense, extruded along z from
/// -depth/2 to depth/2: front, sides and back. The outline must be convex, the depth not negative.
/// Texture coordinates of the two faces run from (0, 0) at the smallest corner of the outline's box
/// to (1, 1) at its largest, those of a side along its edge and from the back to the front. Fewer
/// than three corners give a geometry without triangles.
ORIVANTA_API std::shared_ptr<Geometry> makeExtrusion(std::span<const graphics::Point> outline,
                                                     double depth);

/// Around the y axis, from -height/2 to height/2, with both caps; round to the eye by the normals
/// of its 48 sides. Texture coordinates run once around and upwards, and across each cap.
ORIVANTA_API std::shared_ptr<Geometry> makeCylinder(double radius, double height);

/// An x-y plane without end: a square of 20,000 units around the origin that faces upwards,
/// with texture coordinates from (0, 0) to (1, 1).
ORIVANTA_API std::shared_ptr<Geometry> makeFloor();

}  // namespace orivanta::scene
