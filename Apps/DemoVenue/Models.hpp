// The floors in three dimensions.
#pragma once

#include <filesystem>

#include "Apps/DemoVenue/Model.hpp"
#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

// Heights in units above the floor's own zero.
inline constexpr double slabTop = 0.2;
inline constexpr double floorTop = 0.4;  ///< one walks here; the walking network lies at 0.5

/// Every polygon of the floor has a material of its name; the slab is "Ground".
Model makeModel(const Plan& plan, const Floor& floor);

/// Writes an OBJ and an MTL for every floor into the folder, which exists.
void writeModels(const Plan& plan, const std::filesystem::path& folder);

}  // namespace orivanta::demo
