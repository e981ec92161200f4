// Connectors that run in one direction.
#pragma once

#include <cstdint>
#include <map>

#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Makes the lines of stops that are only entered or only left one-way. `entered` tells for each of
/// these nodes whether it is entered.
void orientStops(const std::map<std::uint32_t, bool>& entered, Draft& draft);

}  // namespace orivanta::importer
