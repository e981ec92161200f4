// Finds the places of a venue by the text that a user types into a search field.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/FoundPlace.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Guidance/SearchedPlaces.hpp"

namespace orivanta {

/// A group of places in a list.
struct PlaceGroup {
  std::string title;  ///< the category's name, at most 80 columns; empty if there is no category
  std::vector<std::shared_ptr<Location>> places;  ///< in list order
};

/// An index of the places and connectors of a venue, created once for any number of searches. Owns
/// the places. Immutable and thread-safe; copies share the index.
///
/// Each word of a text must match the name, a category, the kind, a floor or the description of a
/// place: "toilet 2. OG" finds the toilets on that floor. Words for kinds ("elevator", "wc",
/// "cash machine") may be in any language of the library, whatever the language of the venue is.
/// Words such as "the" and "floor" may match nothing if another word does.
///
/// A text for exits finds emergency exits only by name and last, and a text for toilets for women
/// never finds those for men, or the reverse. Of a text, the first 300 bytes and 16 different words
/// are used; of names, categories and descriptions, the first 300 bytes, and of a place, the first
/// 16 categories.
class ORIVANTA_API PlaceSearch {
 public:
  /// Creates the index of a loaded venue's places and connectors. Those without nodes and without
  /// polygons are excluded. Takes time in proportion to the number of places. If construction is
  /// canceled, the index is empty.
  explicit PlaceSearch(const SearchedPlaces& searched,
                       const foundation::CancellationToken& token = {},
                       const KindWords& kinds = {});

  /// Creates the index of places without connectors.
  explicit PlaceSearch(const std::vector<std::shared_ptr<Location>>& places,
                       const foundation::CancellationToken& token = {});

  /// Returns the matching places and connectors in one group: the best match first, then places
  /// with real names before those with generated ones (see `hasGeneratedName`), then by name as
  /// people count. If the text has neither letters nor digits, returns all places without the
  /// connectors, in one group per category, sorted by the category's name; places without a
  /// category come last. Returns an empty list if nothing matches or if the search is canceled.
  std::vector<FoundGroup> search(std::string_view typed,
                                 const foundation::CancellationToken& token = {}) const;

  /// Returns the same places as `search`, without what a list shows of them.
  std::vector<PlaceGroup> find(std::string_view typed,
                               const foundation::CancellationToken& token = {}) const;

 private:
  struct Index;
  std::shared_ptr<const Index> index_;
};

}  // namespace orivanta
