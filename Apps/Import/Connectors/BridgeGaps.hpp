// Connectors and places that lie a few meters beside the space in which people walk.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Connectors/Surroundings.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Returns paths from stops, and from places without areas, to the walkable space if nothing is
/// drawn between them. Reports those of stops (`connector-beside-walkway`).
std::vector<Line> bridgeGaps(const Building& building, const std::vector<Connector>& connectors,
                             const Surroundings& surroundings, Findings& findings);

}  // namespace orivanta::importer
