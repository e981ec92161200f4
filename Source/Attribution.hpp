// The attribution that applications must show with a venue's data.
#pragma once

#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// The origin of a venue's data, from its record. Most licenses for map data require that
/// applications show both texts near the map.
struct Attribution {
  std::string credit;   ///< the record's "attribution": the authors and their conditions
  std::string license;  ///< the record's "license": the name of the license
};

/// Returns the attribution of a venue, which need not be loaded. A text is empty if it is missing
/// or not a string. The texts come from the server, so control characters are replaced with spaces,
/// characters that change the writing direction are removed, consecutive spaces are merged, and a
/// text of more than 1,000 bytes is truncated and ends in an ellipsis. Thread-safe.
ORIVANTA_API Attribution attributionOf(const Venue& venue);

/// Returns both texts as one line, such as "© OpenStreetMap contributors · ODbL 1.0". Returns an
/// empty text if the venue has neither. Thread-safe.
ORIVANTA_API std::string attributionText(const Venue& venue);

}  // namespace orivanta
