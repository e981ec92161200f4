// Which shapes are connectors.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "Source/Fwd.hpp"

namespace orivanta {

/// Connectors by the identifiers of their polygons.
using ConnectorShapes = std::unordered_map<std::string, std::shared_ptr<Vortex>>;

/// Returns the connectors that have polygons. The records of polygons refer only to locations.
ConnectorShapes connectorShapes(const Venue& venue);

}  // namespace orivanta
