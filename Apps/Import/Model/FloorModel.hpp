// Builds the model of a storey: rooms as open boxes with their doors cut, stairs as steps.
#pragma once

#include "Apps/Import/PackageLayout.hpp"
#include "Apps/Package/Model.hpp"

namespace orivanta::importer {

/// Each area that can be tapped has a material named by its polygon, which all of its faces have;
/// the slab's is "Ground". The storey must be one of the layout.
package::Model makeFloorModel(const PackageLayout& layout, const Storey& storey);

/// The color of an area in models and plans.
package::Color colorOf(const Area& area, const Place* place);

}  // namespace orivanta::importer
