// Leads lines round what stands in their way.
#pragma once

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Ways.hpp"

namespace orivanta::importer {

/// Moves free nodes out of obstacles, and replaces every line that does not stay in the space by the
/// shortest way round the obstacles. A line without such a way is removed.

void avoidObstacles(Draft& draft, const Space& space, Ways& ways);

}  // namespace orivanta::importer
