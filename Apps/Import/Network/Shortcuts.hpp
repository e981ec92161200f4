// Lines across open spaces.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Joins nodes in sight of each other if the way between them is more than 1.25 times as long as
/// the straight line and at least 10 m longer, beginning with the shortest lines.
void addShortcuts(const Space& space, Draft& draft);

}  // namespace orivanta::importer
