// Connectors of pieces that belong together.
#pragma once

#include <vector>

#include "Apps/Import/Connectors/Piece.hpp"
#include "Apps/Import/Connectors/Surroundings.hpp"

namespace orivanta::importer {

/// The connector that consists of one or more pieces, from bottom to top. Its identifier is made
/// from the source's identifier of the first; it has no names.
Connector connectorOf(const std::vector<const Piece*>& members, const Surroundings& surroundings);

}  // namespace orivanta::importer
