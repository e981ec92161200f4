// Ways that only staff may use.
#pragma once

#include <set>
#include <string>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Gives nodes in walkways and on paths for staff the weight of such ways. `walkable` are the
/// identifiers of the areas of the storey in which people walk.
void weighStaffOnly(const Building& building, double level, const std::set<std::string>& walkable,
                    Draft& draft);

}  // namespace orivanta::importer
