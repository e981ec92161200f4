// Destinations that are no rooms and that nobody reaches.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Report/Summary.hpp"

namespace orivanta::importer {

/// Reports the places that are no rooms, such as car parks and symbols, and that are not joined
/// with most of the building. One finding for each storey.
void reviewPlaces(const Building& building, const NetworkParts& parts, Findings& findings);

}  // namespace orivanta::importer
