// Stairs of several flights with a landing on the level of a storey.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Makes one connector of stairs that join two storeys and of stairs that go on where they end, on
/// the same storey, and are drawn as lines. The landing between them stays a stop.
void joinFlights(std::vector<Connector>& connectors);

}  // namespace orivanta::importer
