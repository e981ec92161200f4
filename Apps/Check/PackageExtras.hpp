// Checks the extension fields of a package and its closures.
#pragma once

#include "Apps/Check/PackageRecords.hpp"

namespace orivanta::check {

/// Reports opening hours that cannot be read, a venue without a usable `unitsPerMetre`, and
/// closures that have no effect.
void checkExtras(const PackageRecords& records, Findings& findings);

}  // namespace orivanta::check
