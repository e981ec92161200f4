// Finds places by their identifiers and names, as they are written on a command line or in a link.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// What a text names.
struct NamedPlaces {
  std::vector<std::shared_ptr<Location>> locations;  ///< several if the text is ambiguous
  std::shared_ptr<Node> node;  ///< null if the text names locations or nothing
};

/// What a text names in the first of these ways in which it names anything: the identifier of a
/// location, the identifier of a node, the name of a location, such a name without regard to case
/// and width, a part of such a name without regard to case and width. Both members are empty if the
/// text is empty or names nothing. The venue has been loaded.
ORIVANTA_API NamedPlaces placesNamed(const Venue& venue, std::string_view text);

/// The locations that have the text in their name, without regard to case and width, or in their
/// identifier, in the venue's order. All locations for an empty text. The venue has been loaded.
ORIVANTA_API std::vector<std::shared_ptr<Location>> locationsContaining(const Venue& venue,
                                                                        std::string_view text);

}  // namespace orivanta
