// Whom to name wherever a venue's data is shown.
#pragma once

#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// What the record of a venue says about the origin of its data. Most licenses for map data require
/// that applications show both texts near the map.
struct Attribution {
  std::string credit;   ///< the record's "attribution": the authors, with their conditions
  std::string license;  ///< the record's "license": its name
};

/// The attribution of a venue, loaded or not. A text that is missing, or that is not a string, is
/// empty. The texts come from the server: control characters become blanks, marks that change the
/// direction of writing are left out, runs of blanks become one, and a text of more than 1,000
/// bytes is cut and ends in an ellipsis. Any thread.
ORIVANTA_API Attribution attributionOf(const Venue& venue);

/// Both texts as one line, such as "© OpenStreetMap contributors · ODbL 1.0"; empty if the venue
/// has neither. Any thread.
ORIVANTA_API std::string attributionText(const Venue& venue);

}  // namespace orivanta
