// Material libraries of Wavefront models (MTL).
#pragma once

#include <string_view>
#include <vector>

#include "Platform/Scene/Obj/Model.hpp"

namespace orivanta::scene::obj {

/// The materials of a library in their order, textures as paths relative to the model's folder. Of
/// materials named alike the first is kept; those without a name or beyond the first
/// `mostMaterials`, statements that are unknown and values that are unreadable are passed over.
std::vector<Material> parseMaterials(std::string_view text);

}  // namespace orivanta::scene::obj
