// Reads the nodes and links of a station network.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"

namespace orivanta::importer {

/// Adds the nodes and links of all layers, and releases these, in meters, to `building.sourceNodes`
/// and `building.sourceLinks`. The bends of a link become nodes. All links of an elevator get the
/// best class that one of them has. Links without an end give a finding.
void readStationNetwork(std::vector<StationLayer>& layers, Building& building, Findings& findings);

}  // namespace orivanta::importer
