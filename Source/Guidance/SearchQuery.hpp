// What a typed text means in a venue.
// Private header.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Guidance/SearchIndex.hpp"
#include "Source/Guidance/SearchTerm.hpp"

namespace orivanta {

/// How well a place matches: `match` decides, then `penalty`.
struct PlaceScore {
  PlaceMatch match = PlaceMatch::near;
  std::size_t penalty = 0;  ///< the number of words that name the floor or, in other words
                            ///< than the category, the kind, or that match nothing
};

/// A typed text, split into terms and compared with all categories, floors and topics. Compares
/// places in time in proportion to the lengths of their names and descriptions. Immutable.
class SearchQuery {
 public:
  /// The vectors must outlive the object.
  SearchQuery(std::string_view typed, const std::vector<IndexedCategory>& categories,
              const std::vector<IndexedFloor>& floors);

  /// Returns whether the text has neither letters nor digits.
  bool empty() const { return terms_.empty(); }

  /// Returns how well a place matches, or nothing if it does not match.
  std::optional<PlaceScore> scoreOf(const IndexedPlace& place) const;

 private:
  std::optional<PlaceMatch> matchOfWholeText(const IndexedPlace& place) const;
  std::optional<PlaceScore> scoreOfTerms(const IndexedPlace& place) const;
  static PlaceMatch matchOf(TermMatch match);
  TermMatch matchOfTerm(const SearchTerm& term, const IndexedPlace& place) const;
  static bool isInCategories(const SearchTerm& term, const IndexedPlace& place);
  static TermMatch matchOfRest(const SearchTerm& term, const IndexedPlace& place, WordMatch byName);

  struct Compact {
    std::string text;
    bool isLong;
  };
  std::vector<std::string> forms_;  // the whole text
  std::vector<Compact> compacts_;   // the whole text without spaces
  std::vector<SearchTerm> terms_;
};

}  // namespace orivanta
