// Makes a network from lines that cross each other and nodes that lie close together.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Puts a node where two lines cross.
void joinCrossings(Draft& draft);

/// Merges free nodes that are joined by a line shorter than 0.9 m, if all lines stay in the space.
void mergeNearNodes(const Space& space, Draft& draft);

/// Removes free nodes with one line, again and again.
void removeDeadEnds(Draft& draft);

/// Removes repeated lines and free nodes without lines.
void removeUnused(Draft& draft);

}  // namespace orivanta::importer
