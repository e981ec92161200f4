// Checks the walking network of a package: paths, connectors, and what they join.
#pragma once

#include "Apps/Check/PackageRecords.hpp"

namespace orivanta::check {

/// Reports paths without a way back or between floors, nodes without paths, and places that no path
/// joins with most others. Takes time proportional to the number of paths.
void checkNetwork(const PackageRecords& records, Findings& findings);

/// Reports connectors that do not join floors, and those that accessible routes do not use because
/// of their position in the file.
void checkConnectors(const PackageRecords& records, Findings& findings);

}  // namespace orivanta::check
