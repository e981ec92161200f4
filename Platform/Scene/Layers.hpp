// Determines which parts of a batch are drawn over others in the same plane.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Scene/Batch.hpp"

namespace orivanta::scene {

/// Where faces of several parts overlap in a plane, depth alone does not determine which one is
/// visible. The faces of each part are then assigned to the layer above those of the earlier parts.
/// All other faces belong to layer 0.
///
/// Returns a layer for each triangle, or an empty list if all of them belong to layer 0. Faces of
/// two shells with opposite directions are never visible at the same time and need no layers. The
/// time is limited: if very many parts overlap, some are assigned to a layer that is too low.
std::vector<std::uint8_t> findLayers(std::span<const Batch::Vertex> vertices,
                                     std::span<const std::uint32_t> indices,
                                     std::span<const Batch::Part> parts);

inline constexpr std::uint8_t highestLayer = 31;

}  // namespace orivanta::scene
