// Looks up what the words of a search mean.
// Private header.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Source/Guidance/Kinds/SearchTopicTable.hpp"
#include "Source/Guidance/NameMatch.hpp"

namespace orivanta {

/// A set of rows of the table: a bit for each.
using Topics = std::uint64_t;

/// The table of topics, prepared for searches. All texts are in the search form. Immutable,
/// thread-safe.
class SearchTopics {
 public:
  /// Returns the only object, which is created by the first call.
  static const SearchTopics& instance();

  /// Returns the topics that a phrase means. The Arabic article makes no difference.
  Topics named(std::string_view phrase) const;

  /// Returns the topics with a phrase that begins with the text. Returns none if the text is too
  /// short, see `standsForWord`.
  Topics begunWith(std::string_view text) const;

  /// Returns the topics with a word that differs from the word in one or two letters.
  Topics near(std::string_view word) const;

  /// Returns the topics with a phrase in a text, also at the end of a compound word.
  Topics within(std::string_view text) const;

  /// Returns the topics of all places of a kind.
  Topics ofKind(PlaceKind kind) const { return ofKind_[static_cast<std::size_t>(kind)]; }

  /// Returns the topics with a scope.
  Topics withScope(TopicScope scope) const;

  /// Returns the topics that exclude those: places for men only are excluded if places for women
  /// are searched, and the reverse.
  Topics opposites(Topics topics) const;

  /// Returns the topics of the kinds to which topics of the scope `named` belong.
  Topics related(Topics topics) const;

  /// Returns the phrases of the first row for a kind or, without a kind, of emergency exits, in the
  /// order of the table.
  std::vector<std::string> phrasesOf(const PlaceKind* kind) const;

 private:
  SearchTopics();

  /// Returns how many words a phrase can have that begins with a word; 0 if there is none.
  std::size_t mostWordsFrom(std::string_view word) const;

  struct Phrase {
    std::string form;
    std::size_t topic;
  };
  std::vector<Phrase> phrases_;
  std::unordered_map<std::string_view, Topics> byPhrase_;         // views of `phrases_`
  std::unordered_map<std::string_view, std::size_t> wordCounts_;  // most words, by first words
  std::unordered_set<std::string_view> endings_;  // of phrases that end compound words
  std::vector<Topics> ofKind_;
};

}  // namespace orivanta
