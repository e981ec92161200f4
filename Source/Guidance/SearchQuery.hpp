// What a typed text means in a venue.
// Private header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Guidance/SearchIndex.hpp"

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
  // What a term has in common with a place; a smaller value is better.
  enum class Part {
    kindByName,
    kind,
    otherKind,
    wholeWord,
    floor,
    word,
    inside,
    category,
    description,
    near,
    none
  };

  // Words that match together.
  struct Term {
    std::string text;
    std::vector<TypedWord> words;
    Topics exact = 0;                // that the term means
    Topics begun = 0;                // with a phrase that begins with the term
    Topics near = 0;                 // with a word like the term, or of a similar kind
    Topics opposites = 0;            // of places that never match
    std::vector<const Map*> floors;  // that the term names
    std::vector<Part> categories;    // of each category
    bool meansExits = false;         // but not emergency exits
    bool isDescriptive = false;      // whether descriptions may match
    bool isOptional = false;
  };

  void addTerms(const std::vector<std::string_view>& words,
                const std::vector<IndexedFloor>& floors);
  static std::size_t lengthOfTerm(const std::vector<std::string_view>& words, std::size_t first,
                                  const std::vector<IndexedFloor>& floors);
  void addTerm(const std::vector<std::string_view>& words, std::size_t first, std::size_t count,
               const std::vector<IndexedFloor>& floors);
  static void compareCategories(Term& term, const std::vector<IndexedCategory>& categories);

  std::optional<PlaceMatch> matchOfWholeText(const IndexedPlace& place) const;
  std::optional<PlaceScore> scoreOfTerms(const IndexedPlace& place) const;
  static PlaceMatch matchOf(Part part);
  static bool isExcluded(const Term& term, const IndexedPlace& place);
  Part partOf(const Term& term, const IndexedPlace& place) const;
  static bool isInCategories(const Term& term, const IndexedPlace& place);
  static Part partOfRest(const Term& term, const IndexedPlace& place, WordMatch byName);

  struct Compact {
    std::string text;
    bool isLong;
  };
  std::vector<std::string> forms_;  // the whole text
  std::vector<Compact> compacts_;   // the whole text without spaces
  std::vector<Term> terms_;
};

}  // namespace orivanta
