// Detects shapes whose back faces are never visible from above.
#pragma once

#include <cstdint>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Scene/Batch.hpp"

namespace orivanta::scene {

/// Whether the triangles form the surface of bodies that are closed, or open only at the bottom
/// (such as the walls and the ceiling of a room without its floor). All faces must look outward,
/// and only faces at the bottom may look downward (z points up). Then no face is seen from behind
/// by a camera above the highest vertex: a vertical line upward from any point leaves bodies and
/// enters none. Normals must be of length 1 and close to those of the faces, so that light computed
/// at the corners is correct.
///
/// Returns false in doubtful cases: a hole, an overhang, a missing normal, an inverted body, a
/// self-intersecting outline, or more than some million triangles.
///
/// `indices` refer to `vertices`, three per triangle; vertices at the same position count as one.
ORIVANTA_API bool isShell(std::span<const Batch::Vertex> vertices,
                          std::span<const std::uint32_t> indices);

}  // namespace orivanta::scene
