// The main lines of a storey's network.
#pragma once

#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Skeleton.hpp"

namespace orivanta::importer {

/// Takes the skeleton without short twigs and adds its chains, straightened where they stay in
/// sight, to `draft`. Every connected part of the skeleton keeps at least one node.
void addTrunk(const Skeleton& skeleton, const Space& space, Draft& draft);

}  // namespace orivanta::importer
