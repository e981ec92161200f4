// Reads the material libraries of Wavefront models (MTL).
#pragma once

#include <string_view>
#include <vector>

#include "Platform/Scene/Obj/Model.hpp"

namespace orivanta::scene::obj {

/// Returns the materials of a library in their order, with texture paths relative to the model's
/// folder. If a name occurs several times, the first material is kept. Materials without a name or
/// beyond the first `mostMaterials`, unknown statements and unreadable values are ignored.
std::vector<Material> parseMaterials(std::string_view text);

}  // namespace orivanta::scene::obj
