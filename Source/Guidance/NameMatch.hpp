// Matching of names with typed text, and the order of names in a list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

struct SoundKey;

/// The quality of a match; a smaller value is better.
enum class NameMatch {
  beginning,  ///< the name begins with the whole text
  word,       ///< each typed word begins a word of the name
  inside,     ///< each typed word occurs somewhere in the name
  near,       ///< like `inside`, with one or two letters changed, added, removed or swapped
  none        ///< the name does not match
};

/// The quality of the match with one typed word; a smaller value is better.
enum class WordMatch {
  whole,      ///< the word is a word of the text
  beginning,  ///< the word begins a word of the text
  inside,     ///< the word occurs somewhere in the text
  near,       ///< the word nearly begins a word of the text, see `NameMatch::near`
  none        ///< the text does not match
};

/// Whether a match with a typed word may have mistakes.
enum class Mistakes {
  none,  ///< `WordMatch::near` counts as `WordMatch::none`
  few    ///< see `NameMatch::near`
};

/// A text, prepared for comparison with many typed words. A value.
struct ORIVANTA_API SearchableText {
  SearchableText() = default;  ///< creates an empty text

  /// Prepares a text in its search form (see `searchForm`).
  explicit SearchableText(std::string searchForm);

  std::string form;           ///< the text in its search form
  std::uint64_t letters = 0;  ///< a bit for each letter of the text; several letters share a bit
};

/// A typed word, prepared for comparison with many texts. Immutable.
class ORIVANTA_API TypedWord {
 public:
  /// Prepares a word in its search form.
  explicit TypedWord(std::string_view word);

  /// Returns the best match with any word of a text. "ae", "oe" and "ue" match "ä", "ö" and "ü" as
  /// well. A word of fewer than four or more than 32 letters has no match `near`, except that a
  /// word in katakana matches the same name in Latin letters, and the reverse.
  WordMatch match(const SearchableText& text, Mistakes mistakes = Mistakes::few) const;

 private:
  struct Spelling {
    std::string text;
    std::vector<std::int32_t> codePoints;
    std::uint64_t letters = 0;
    std::size_t mistakes = 0;  // that a near match may have
  };
  static Spelling spellingOf(std::string text);
  static WordMatch match(const SearchableText& text, const Spelling& typed, Mistakes mistakes);

  bool soundsLike(const SearchableText& text) const;

  std::vector<Spelling> spellings_;        // as typed, and with umlauts if it differs
  std::shared_ptr<const SoundKey> sound_;  // never null
};

/// A typed text, prepared for comparison with many names. Immutable.
class ORIVANTA_API TypedText {
 public:
  /// Prepares a text in UTF-8.
  explicit TypedText(std::string_view text);

  /// Returns whether the text has neither letters nor digits.
  bool empty() const { return forms_.front().empty(); }

  /// Returns the match with a name in its search form (see `searchForm`). An empty text matches
  /// every name with `beginning`. "ae", "oe" and "ue" match "ä", "ö" and "ü" as well.
  NameMatch match(std::string_view name) const;

 private:
  std::vector<std::string> forms_;  // in the search form: as typed, and with umlauts if it differs
  std::vector<TypedWord> words_;
};

/// Returns the ways in which people may have spelled a word or text in its search form: as it is,
/// and with "a", "o" and "u" for "ae", "oe" and "ue" if that differs.
ORIVANTA_API std::vector<std::string> spellingsOf(std::string_view form);

/// Returns the words of a text in its search form, which must outlive the result.
ORIVANTA_API std::vector<std::string_view> wordsOfForm(std::string_view form);

/// Returns whether a beginning of a word, in its search form, is long enough to stand for the word:
/// it has at least three letters, or two in Japanese and Chinese. The result is false in Arabic,
/// Hebrew and related scripts, where another ending is often another word.
ORIVANTA_API bool standsForWord(std::string_view beginning);

/// Returns whether a word is another one or its plural in English, German or French. Both are in
/// the search form.
ORIVANTA_API bool isFormOf(std::string_view word, std::string_view singular);

/// Returns whether one name precedes another in a list, both in their search form. A run of digits
/// is compared as a number: "1f 14" precedes "1f 139".
ORIVANTA_API bool nameComesBefore(std::string_view left, std::string_view right);

}  // namespace orivanta
