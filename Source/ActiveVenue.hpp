// The venue that `getVenue` loaded last.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// The venue most recently passed to `getVenue`, or null before the first call. Owns what was
/// loaded. Never destroyed, so that a load may still be under way when the program ends.
extern ORIVANTA_API std::shared_ptr<Venue>& activeVenue;

}  // namespace orivanta
