// Matching of names with typed text, and the order of names in a list.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

/// The quality of a match; a smaller value is better.
enum class NameMatch {
  beginning,  ///< the name begins with the whole text
  word,       ///< each typed word begins a word of the name
  inside,     ///< each typed word occurs somewhere in the name
  near,       ///< like `inside`, with one or two letters changed, added, removed or swapped
  none        ///< the name does not match
};

/// A typed text, prepared for comparison with many names. Immutable.
class ORIVANTA_API TypedText {
 public:
  /// Prepares a text in UTF-8.
  explicit TypedText(std::string_view text);

  /// Returns whether the text has neither letters nor digits.
  bool empty() const { return spellings_.front().form.empty(); }

  /// Returns the match with a name in its search form (see `searchForm`). An empty text matches
  /// every name with `beginning`. "ae", "oe" and "ue" match "ä", "ö" and "ü" as well.
  NameMatch match(std::string_view name) const;

 private:
  struct Word {
    std::string text;
    std::vector<std::int32_t> letters;  // its code points
  };
  struct Spelling {
    std::string form;  // in its search form
    std::vector<Word> words;
  };
  static Spelling spellingOf(std::string form);
  static NameMatch matchWord(std::string_view name, const std::vector<std::string_view>& words,
                             const Word& typed);
  static NameMatch matchSpelling(std::string_view name, const std::vector<std::string_view>& words,
                                 const Spelling& typed);

  std::vector<Spelling> spellings_;  // as typed, and with umlauts if it differs
};

/// Returns whether one name precedes another in a list, both in their search form. A run of digits
/// is compared as a number: "1f 14" precedes "1f 139".
ORIVANTA_API bool nameComesBefore(std::string_view left, std::string_view right);

}  // namespace orivanta
