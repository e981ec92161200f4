// Which shapes nobody who looks from above sees from behind.
#pragma once

#include <cstdint>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Scene/Batch.hpp"

namespace orivanta::scene {

/// Whether the triangles are the surface of bodies, closed or without what they stand on (a room's
/// walls and ceiling without its floor, say), with faces that look outward and nowhere but
/// at the bottom downward (z upwards). From anywhere above the highest vertex no face then is seen
/// from behind: going straight up from any point, one leaves bodies and enters none. Normals are of
/// length 1 and lie close to those of the faces, so that light decided at the corners is right.
///
/// In doubt it is none: a hole, an overhang, a normal that is missing, a body inside out, an
/// outline that crosses itself, more than some million triangles.
///
/// `indices` refer to `vertices`, three a triangle; vertices at one place count as one.
ORIVANTA_API bool isShell(std::span<const Batch::Vertex> vertices,
                          std::span<const std::uint32_t> indices);

}  // namespace orivanta::scene
