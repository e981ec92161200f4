// Finds places by the identifiers and names in a command line or a link.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// The places that a text refers to.
struct NamedPlaces {
  std::vector<std::shared_ptr<Location>> locations;  ///< several if the text is ambiguous
  std::shared_ptr<Node> node;  ///< null if the text refers to locations or to nothing
};

/// Finds the places that a text refers to. The following are tried in order, until one matches: the
/// identifier of a location, the identifier of a node, the name of a location, such a name ignoring
/// case and width, and a part of such a name ignoring case and width. Both members are empty if the
/// text is empty or nothing matches. The venue must be loaded.
ORIVANTA_API NamedPlaces placesNamed(const Venue& venue, std::string_view text);

/// Returns the locations that have the text in their name, ignoring case and width, or in their
/// identifier, in the venue's order. Returns all locations if the text is empty. The venue must be
/// loaded.
ORIVANTA_API std::vector<std::shared_ptr<Location>> locationsContaining(const Venue& venue,
                                                                        std::string_view text);

/// Returns whether a converter invented the name of a place or connector (`nameGenerated` in the
/// record). No sign shows such a name.
ORIVANTA_API bool hasGeneratedName(const Location& place);

}  // namespace orivanta
