// Checks the walking network of a package: paths, connectors, and what they join.
#pragma once

#include "Apps/Check/PackageRecords.hpp"

namespace orivanta::check {

/// Reports paths without a way back, nodes without paths, connectors that lead nowhere, and places
/// that no path joins with the others. Takes time proportional to the number of paths.
void checkNetwork(const PackageRecords& records, Findings& findings);

}  // namespace orivanta::check
