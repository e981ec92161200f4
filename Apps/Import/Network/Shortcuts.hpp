// Lines across open spaces.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Joins nodes in sight of each other if the way between them is much longer than the straight
/// line, beginning with the shortest lines. Across open spaces, much longer is 1.4 times and 10 m.
/// From doors and connectors to each other, and near connectors, less is enough; such lines cross
/// others without meeting them, so that only routes that begin or end there become shorter.
void addShortcuts(const Space& space, Draft& draft);

}  // namespace orivanta::importer
