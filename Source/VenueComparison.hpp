// Compares the records of venues.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Returns whether two loaded venues have the same records, in the same order. Takes time that
/// grows with the size of the venues. Do not call it while one of them is loaded.
ORIVANTA_API bool haveSameRecords(const Venue& left, const Venue& right);

}  // namespace orivanta
