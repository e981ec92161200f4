// The walking network of one storey.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::importer {

/// Makes the network of a storey from the source's own links or from the drawn areas.
Draft makeStoreyNetwork(const Building& building, double level, NetworkChoice choice);

}  // namespace orivanta::importer
