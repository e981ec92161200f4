// Leads lines round what stands in their way.
#pragma once

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Ways.hpp"

namespace orivanta::importer {

/// Moves free nodes that lie in or near an obstacle of at most a few square meters beside it.
void moveOutOfObstacles(Draft& draft, const Space& space);

/// Replaces every line that does not stay in the space by the shortest way round what is in its
/// way, and removes it if there is no such way. Lines in rooms are left alone.
void avoidObstacles(Draft& draft, const Space& space, Ways& ways);

}  // namespace orivanta::importer
