// Tells names on signs from names that a converter of map data invented.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::guidance {

/// Returns whether no sign in the building shows the name of a place: the record has
/// `"nameGenerated": true`, or the place is a connector whose name is only the name of one of its
/// categories and a number after a space, such as "Escalator 2".
ORIVANTA_API bool hasGeneratedName(const Location& place);

}  // namespace orivanta::guidance
