// Determines the kinds of places from the words of their categories.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta {

/// Words that names of categories contain, and the kinds that they mean. The built-in words are
/// those of English, German, French, Spanish, Japanese, Korean and Arabic. Identifiers of
/// categories are never used. A value. Reading is thread-safe.
class ORIVANTA_API KindWords {
 public:
  /// Creates the built-in words.
  KindWords();

  /// Adds a word, which precedes all earlier ones. Case, width and accents do not matter. The word
  /// may occur anywhere in a name; "_" stands for the beginning or the end of a word of the name:
  /// "_bus_" does not match "Business". Returns false if the text has neither letters nor digits.
  bool add(PlaceKind kind, std::string_view word);

  /// Returns the kind that a text means, such as the name of a category or the type of a connector.
  /// Returns `PlaceKind::other` if it contains none of the words.
  PlaceKind kindOf(std::string_view text) const;

  /// Returns the kind of a category by its name, or else by the names of the categories that
  /// contain it.
  PlaceKind kindOf(const Category& category) const;

  /// Returns the kind of a place. The first of these that means a kind decides: the type, if the
  /// place is a connector; the categories in their order; the type. Places of the type "tenant" are
  /// shops.
  PlaceKind kindOf(const Location& place) const;

 private:
  struct Word {
    std::string form;  // in the search form; blanks stand for beginnings and ends of words
    PlaceKind kind;
  };
  std::vector<Word> added_;  // the last one precedes the others
};

}  // namespace orivanta
