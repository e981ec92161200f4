// Connectors that end a few meters beside the space in which people walk.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Connectors/Stops.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Returns paths from stops to the walkable space if nothing is drawn between them, and reports
/// them
/// (`connector-beside-walkway`).
std::vector<Line> bridgeGaps(const Building& building, const std::vector<Connector>& connectors,
                             const Surroundings& surroundings, Findings& findings);

}  // namespace orivanta::importer
