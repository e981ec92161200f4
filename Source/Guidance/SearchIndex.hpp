// The places of a venue, prepared for searches.
// Private header.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Guidance/FoundPlace.hpp"
#include "Source/Guidance/Kinds/SearchTopics.hpp"
#include "Source/Guidance/NameMatch.hpp"

namespace orivanta {

/// A category.
struct IndexedCategory {
  SearchableText name;
  std::string title;       ///< see `FoundGroup::title`
  Topics topics = 0;       ///< of its kind
  Topics namedTopics = 0;  ///< of words in its name
  PlaceKind kind = PlaceKind::other;
  bool isEmergency = false;  ///< whether its places are emergency exits
};

/// A place or connector.
struct IndexedPlace {
  std::shared_ptr<const PlaceEntry> entry;
  std::shared_ptr<Location> record;  ///< that of the entry
  SearchableText name;               ///< empty for a connector without a sign
  std::string compact;               ///< the name without spaces; empty if it has none
  SearchableText description;
  std::vector<std::uint32_t> categories;  ///< indices of categories; the first is the group's
  Topics kindTopics = 0;                  ///< of its kind
  Topics topics = 0;                      ///< of its kind and those of its categories
  Topics namedTopics = 0;                 ///< of words in its name and its categories
  bool isConnector = false;
  bool isGenerated = false;  ///< whether no sign shows the name
  bool isEmergency = false;  ///< whether it is an emergency exit
};

/// A floor.
struct IndexedFloor {
  const Map* floor;
  std::vector<std::string> names;  ///< its name and its short name, in the search form
};

/// Everything that searches read.
struct SearchIndex {
  std::vector<IndexedCategory> categories;
  std::vector<IndexedPlace> places;       ///< in list order
  std::vector<std::uint32_t> byCategory;  ///< indices of places without connectors, by category
  std::vector<IndexedFloor> floors;       ///< in no order
};

}  // namespace orivanta
