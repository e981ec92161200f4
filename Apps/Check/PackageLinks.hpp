// Checks the references from records to other records.
#pragma once

#include "Apps/Check/PackageRecords.hpp"

namespace orivanta::check {

/// Reports references to records that do not exist, entrances on another floor than their polygon,
/// places without nodes and polygons, and places that lose all their nodes because these are
/// entrances of their polygons.
void checkLinks(const PackageRecords& records, Findings& findings);

}  // namespace orivanta::check
