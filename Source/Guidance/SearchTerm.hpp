// The parts of a typed text that must match a place.
// Private header.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Source/Guidance/SearchIndex.hpp"

namespace orivanta {

/// What a term has in common with a place; a smaller value is better.
enum class TermMatch {
  kindByName,   ///< the kind, which the category has the term's name for
  kind,         ///< the kind
  otherKind,    ///< the kind of a category, but not that of the place
  wholeWord,    ///< a word of the name
  floor,        ///< the floor
  word,         ///< the beginning of a word of the name
  inside,       ///< a part of the name
  category,     ///< the category, a word for it in another language, or the beginning of the kind
  description,  ///< the beginning of a word of the description
  near,         ///< one of the above with one or two mistakes, or a similar kind
  none          ///< nothing
};

/// A word, or several that mean something together, such as "cash machine" and "2. OG".
struct SearchTerm {
  std::string text;                   ///< in the search form
  std::vector<TypedWord> words;       ///< all must match the same text
  Topics exact = 0;                   ///< the topics that the term means
  Topics begun = 0;                   ///< those with a phrase that begins with the term
  Topics near = 0;                    ///< those with a word like the term, or of a similar kind
  Topics opposites = 0;               ///< those of places that do not match
  std::vector<const Map*> floors;     ///< the floors that the term names
  std::vector<TermMatch> categories;  ///< `category`, `near` or `none` for each category
  bool meansExits = false;            ///< whether the term means exits but not emergency exits
  bool isDescriptive = false;         ///< whether descriptions may match
  bool isOptional = false;            ///< whether a place may match without it
};

/// Returns a word, or its parts if it consists of a word and a floor without a space between:
/// "トイレb1f". `word` is in the search form and must outlive the result.
std::vector<std::string_view> partsOfWord(std::string_view word,
                                          const std::vector<IndexedFloor>& floors);

/// Splits a text into terms and compares them with all categories and floors.
std::vector<SearchTerm> searchTermsOf(const std::vector<std::string_view>& words,
                                      const std::vector<IndexedCategory>& categories,
                                      const std::vector<IndexedFloor>& floors);

/// Returns the topics of facilities, exits and entrances.
Topics facilityTopics();

/// Returns the topics that tell whom toilets are for.
Topics narrowingTopics();

/// Returns the worst match of the words with a text.
WordMatch worstMatch(const std::vector<TypedWord>& words, const SearchableText& text,
                     Mistakes mistakes = Mistakes::few);

}  // namespace orivanta
