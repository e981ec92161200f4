// The active venue.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// The venue most recently passed to `getVenue`, or null before the first call. Owns the loaded
/// records. Never destroyed, because a load may still be running when the program ends.
extern ORIVANTA_API std::shared_ptr<Venue>& activeVenue;

}  // namespace orivanta
