#include "Apps/Import/Network/Straighten.hpp"

#include "Apps/Import/Network/Obstacles.hpp"
#include "Apps/Import/Network/SharpTurns.hpp"
#include "Apps/Import/Network/Shortcuts.hpp"
#include "Apps/Import/Network/Smooth.hpp"
#include "Apps/Import/Network/Tidy.hpp"

namespace orivanta::importer {

// Nodes that were moved may be near others.
void straightenWays(const Space& space, Ways& ways, Draft& draft) {
  addShortcuts(space, draft);
  joinCrossings(draft);
  mergeNearNodes(space, draft);
  cutSharpTurns(space, draft);
  smoothBends(space, draft);
  mergeNearNodes(space, draft);
  avoidObstacles(draft, space, ways);
}

}  // namespace orivanta::importer
