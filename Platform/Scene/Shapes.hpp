// Geometries computed from a few numbers. None has a material yet.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Scene/Geometry.hpp"

namespace orivanta::scene {

/// A closed outline in the x-y plane, given by its corners in either sense, extruded along z from
/// -depth/2 to depth/2. The outline must be convex. One element: front, back and sides. Texture
/// coordinates of the two faces run from (0, 0) at the outline's smallest corner to (1, 1) at its
/// largest. Fewer than three corners give a geometry without triangles.
ORIVANTA_API std::shared_ptr<Geometry> makeExtrusion(std::span<const graphics::Point> outline,
                                                     double depth);

/// Around the y axis, from -height/2 to height/2, with both caps.
ORIVANTA_API std::shared_ptr<Geometry> makeCylinder(double radius, double height);

/// An x-y plane without end: a square of 20,000 units around the origin.
ORIVANTA_API std::shared_ptr<Geometry> makeFloor();

}  // namespace orivanta::scene
