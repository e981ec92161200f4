// The records of connectors.
#pragma once

#include <boost/json/array.hpp>

#include "Apps/Import/PackageLayout.hpp"
#include "Apps/Import/Write/PlaceRecords.hpp"

namespace orivanta::importer {

/// Connectors for everybody come first. One that joins nothing is left out.
boost::json::array connectorRecords(const PackageLayout& layout, const NodeLookup& lookup,
                                    UsedCategories& categories);

}  // namespace orivanta::importer
