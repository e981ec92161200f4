// Which shapes nobody who looks from above sees from behind.
#pragma once

#include <cstdint>
#include <span>

#include "Platform/Scene/Batch.hpp"

namespace orivanta::scene {

/// Whether the triangles, and the normals of their vertices, face outward from bodies that are
/// closed but for what they stand on: a room's walls and ceiling without its floor, say. From
/// anywhere above the highest vertex (z upwards) no face then is seen from behind, so whoever draws
/// need not draw those that are turned away. In doubt it is none: a hole, a normal that is missing
/// or points inward, a body inside out. An outline that crosses itself is found out where its
/// ceiling faces down.
///
/// `indices` refer to `vertices`, three a triangle; vertices at one place count as one.
bool isShell(std::span<const Batch::Vertex> vertices, std::span<const std::uint32_t> indices);

}  // namespace orivanta::scene
