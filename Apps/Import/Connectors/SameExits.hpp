// Exits that signs name on two storeys, such as "A5" at the foot of stairs and in the street. The
// way out leads from one to the other.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Connectors/Pairing.hpp"

namespace orivanta::importer {

/// Where one exit is on two heights.
struct ExitPair {
  Spot lower;
  Spot upper;
};

/// Exits with the same name on different heights, less than 40 m apart, the nearest ones first.
/// Each is in one pair at most.
std::vector<ExitPair> pairsOfExits(const Building& building, const Heights& heights);

}  // namespace orivanta::importer
