// Places that are connectors.
#pragma once

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Removes places that are only a connector, which would be listed twice.
void dropPlacesOfConnectors(Building& building);

}  // namespace orivanta::importer
