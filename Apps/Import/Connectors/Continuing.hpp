// Flights that are drawn in parts on one storey.
#pragma once

#include <cstddef>
#include <vector>

#include "Apps/Import/Connectors/Piece.hpp"

namespace orivanta::importer {

/// Makes one piece of flights that continue each other. Returns for each piece given its index
/// among those that are left.
std::vector<std::size_t> joinContinuing(std::vector<Piece>& pieces);

}  // namespace orivanta::importer
