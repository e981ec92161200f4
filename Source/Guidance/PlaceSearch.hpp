// Finds the places of a venue by what somebody types into a search field.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/NameMatch.hpp"

namespace orivanta {

/// Places that belong together in a list.
struct PlaceGroup {
  std::string title;  ///< the category's name, at most 80 columns; empty for no category
  std::vector<std::shared_ptr<Location>> places;  ///< in the order of the list
};

/// An index of the places of a venue, made once and searched as often as needed. Keeps the places.
/// Immutable; any thread.
class ORIVANTA_API PlaceSearch {
 public:
  /// Places without nodes and without polygons are left out. If it is canceled, the index is
  /// empty.
  explicit PlaceSearch(const std::vector<std::shared_ptr<Location>>& places,
                       const foundation::CancellationToken& token = {});

  /// The places that match, in one group: the best match first, then by name. A match with the name
  /// comes before one with a category, and that before a name that is only near the typed text. If
  /// the text has neither letters nor digits, all places, in one group for each category, sorted by
  /// its name; places without a category come last. Empty if nothing matches or if the search is
  /// canceled.
  std::vector<PlaceGroup> find(std::string_view typed,
                               const foundation::CancellationToken& token = {}) const;

 private:
  struct Entry {
    std::shared_ptr<Location> place;
    std::string name;                     // in its search form
    std::vector<std::size_t> categories;  // indices of categories; the first is the group's
  };
  struct CategoryEntry {
    std::string name;  // in its search form
    std::string title;
  };

  void addPlaces(const std::vector<std::shared_ptr<Location>>& places,
                 const foundation::CancellationToken& token);
  void sort();
  std::vector<PlaceGroup> all() const;

  std::vector<CategoryEntry> categories_;
  std::vector<Entry> entries_;           // by name
  std::vector<std::size_t> byCategory_;  // indices of entries, by category, then by name
};

}  // namespace orivanta
