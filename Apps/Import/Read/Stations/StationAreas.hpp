// Reads the floors, spaces, openings, facilities and fixtures of a station network.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"

namespace orivanta::importer {

/// Adds all layers except nodes and links, in meters, to the building. The source's network must be
/// there: a space of unknown use that it leads through is a hall. Takes the shapes out of the
/// layers, and releases the features that it has read. Throws `SourceError` if there is neither a
/// space nor a node.
void readStationAreas(std::vector<StationLayer>& layers, const Options& options, Building& building,
                      Findings& findings);

}  // namespace orivanta::importer
