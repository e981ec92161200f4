// Models of the floors.
#pragma once

#include <filesystem>

#include "Apps/DemoVenue/Plan.hpp"
#include "Apps/Package/Model.hpp"

namespace orivanta::demo {

// Heights in units above the floor's zero level.
inline constexpr double slabTop = 0.2;
inline constexpr double floorTop = 0.4;  ///< the walking surface; the navigation graph is at 0.5

/// Each polygon of the floor has a material with its name; the slab's material is "Ground".
package::Model makeModel(const Plan& plan, const Floor& floor);

/// Writes an OBJ and an MTL file for every floor into the folder, which must exist.
void writeModels(const Plan& plan, const std::filesystem::path& folder);

}  // namespace orivanta::demo
