// Finds the places of a venue by the text that a user types into a search field.
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

/// A group of places in a list.
struct PlaceGroup {
  std::string title;  ///< the category's name, at most 80 columns; empty if there is no category
  std::vector<std::shared_ptr<Location>> places;  ///< in list order
};

/// An index of the places of a venue, created once for any number of searches. Owns the places.
/// Immutable and thread-safe.
class ORIVANTA_API PlaceSearch {
 public:
  /// Places without nodes and without polygons are excluded. If construction is canceled, the index
  /// is empty.
  explicit PlaceSearch(const std::vector<std::shared_ptr<Location>>& places,
                       const foundation::CancellationToken& token = {});

  /// Returns the matching places in one group: the best match first, then by name. A match with the
  /// name precedes a match with a category, which precedes an approximate match with the name. If
  /// the text has neither letters nor digits, returns all places, in one group per category, sorted
  /// by the category's name; places without a category come last. Returns an empty list if nothing
  /// matches or if the search is canceled.
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
