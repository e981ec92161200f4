// Which parts of a batch are drawn over others that lie in the same plane.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Scene/Batch.hpp"

namespace orivanta::scene {

/// Where faces of several parts lie over one another in a plane, depth alone does not tell which of
/// them is seen. The face of each part then belongs to the layer above those that the earlier parts
/// have there. Everything else belongs to layer 0.
///
/// Returns a layer for each triangle, or an empty list if all of them belong to layer 0. Faces of
/// two shells that look in opposite directions are never both seen and need no layers. The time is
/// limited: where a great many parts lie over one another, some stay in too low a layer.
std::vector<std::uint8_t> findLayers(std::span<const Batch::Vertex> vertices,
                                     std::span<const std::uint32_t> indices,
                                     std::span<const Batch::Part> parts);

inline constexpr std::uint8_t highestLayer = 31;

}  // namespace orivanta::scene
