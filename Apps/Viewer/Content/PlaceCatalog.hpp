// The places of a venue by kind, for browsing.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Guidance/PlaceSearch.hpp"

namespace orivanta::viewer {

/// The places of one kind, or of several kinds that visitors take as one, such as all toilets.
struct CatalogGroup {
  PlaceKind kind = PlaceKind::other;  ///< for the icon; `other` if the places belong to no kind
  std::string_view nameKey;           ///< of the group's name in `InterfaceTexts`

  /// In list order: first those whose names are on signs, then those with generated names. Numbers
  /// in names are compared as numbers.
  std::vector<std::shared_ptr<Location>> places;
};

/// Contains all places and connectors that are somewhere on a floor. Owns them. Immutable.
class PlaceCatalog {
 public:
  /// The venue must be loaded.
  PlaceCatalog(const Venue& venue, const KindWords& words);

  /// Returns the groups, none of which is empty: the most useful ones first, judged by what they
  /// are and how many places they have, and the places of no kind last.
  const std::vector<CatalogGroup>& groups() const { return groups_; }

  /// Returns the number of all places.
  std::size_t size() const { return size_; }

 private:
  std::vector<CatalogGroup> groups_;
  std::size_t size_ = 0;
};

/// Returns the places by their first category, sorted by its name, those without a category last.
/// Returns one group without a title if there is only one category, or if most categories have only
/// one place.
std::vector<PlaceGroup> byCategory(const std::vector<std::shared_ptr<Location>>& places);

}  // namespace orivanta::viewer
