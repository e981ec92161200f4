#include "Source/Guidance/Kinds/SearchTopics.hpp"

#include <algorithm>

#include "Source/Guidance/TextFolding.hpp"

namespace orivanta {

namespace {

constexpr std::size_t leastNearBytes = 5;      // of a word with near matches
constexpr std::size_t leastCompoundBytes = 5;  // of the end of a compound word
constexpr std::string_view article = "ال";

Topics bitAt(std::size_t topic) { return Topics{1} << topic; }

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }

}  // namespace

const SearchTopics& SearchTopics::instance() {
  static const SearchTopics topics;
  return topics;
}

SearchTopics::SearchTopics() : ofKind_(placeKindCount, 0) {
  const auto rows = topicTable();
  for (std::size_t topic = 0; topic < rows.size(); ++topic) {
    for (const std::string_view word : rows[topic].words)
      if (std::string form = searchForm(word); !form.empty())
        phrases_.push_back({std::move(form), topic});
    for (std::size_t kind = 0; kind < placeKindCount; ++kind)
      if (rows[topic].scope != TopicScope::named &&
          (rows[topic].kinds & bit(static_cast<PlaceKind>(kind))) != 0)
        ofKind_[kind] |= bitAt(topic);
  }
  for (const Phrase& phrase : phrases_) {
    const std::string_view form = phrase.form;
    byPhrase_[form] |= bitAt(phrase.topic);
    const auto words = wordsOfForm(form);
    std::size_t& most = wordCounts_[words.front()];
    most = std::max(most, words.size());
    if (form.size() >= leastCompoundBytes)
      endings_.insert(form.substr(form.size() - leastCompoundBytes));
  }
}

Topics SearchTopics::named(std::string_view phrase) const {
  const auto find = [this](std::string_view text) {
    const auto found = byPhrase_.find(text);
    return found == byPhrase_.end() ? Topics{0} : found->second;
  };
  const Topics topics = find(phrase);
  return topics == 0 && phrase.starts_with(article) ? find(phrase.substr(article.size())) : topics;
}

std::size_t SearchTopics::mostWordsFrom(std::string_view word) const {
  const auto find = [this](std::string_view text) {
    const auto found = wordCounts_.find(text);
    return found == wordCounts_.end() ? std::size_t{0} : found->second;
  };
  return std::max(find(word), word.starts_with(article) ? find(word.substr(article.size())) : 0);
}

Topics SearchTopics::begunWith(std::string_view text) const {
  Topics topics = 0;
  if (!standsForWord(text)) return topics;
  for (const Phrase& phrase : phrases_)
    if (phrase.form.starts_with(text)) topics |= bitAt(phrase.topic);
  return topics;
}

Topics SearchTopics::near(std::string_view word) const {
  Topics topics = 0;
  if (word.size() < leastNearBytes) return topics;
  const TypedWord typed(word);
  for (const Phrase& phrase : phrases_)
    if (phrase.form.size() >= leastNearBytes && phrase.form.find(' ') == std::string::npos &&
        typed.match(SearchableText(phrase.form)) == WordMatch::near)
      topics |= bitAt(phrase.topic);
  return topics;
}

Topics SearchTopics::within(std::string_view text) const {
  Topics topics = 0;
  const auto words = wordsOfForm(text);
  for (std::size_t first = 0; first < words.size(); ++first) {
    const std::string_view word = words[first];
    const std::size_t most = std::min(first + mostWordsFrom(word), words.size());
    for (std::size_t last = first; last < most; ++last) {
      const char* const end = words[last].data() + words[last].size();
      topics |= named({word.data(), static_cast<std::size_t>(end - word.data())});
    }
    if (word.size() <= leastCompoundBytes ||
        !endings_.contains(word.substr(word.size() - leastCompoundBytes)))
      continue;
    for (std::size_t at = 1; at + leastCompoundBytes <= word.size(); ++at)
      if (!isContinuation(word[at])) {
        const auto found = byPhrase_.find(word.substr(at));
        if (found != byPhrase_.end() && standsForWord(found->first)) topics |= found->second;
      }
  }
  return topics;
}

Topics SearchTopics::withScope(TopicScope scope) const {
  Topics topics = 0;
  const auto rows = topicTable();
  for (std::size_t topic = 0; topic < rows.size(); ++topic)
    if (rows[topic].scope == scope) topics |= bitAt(topic);
  return topics;
}

Topics SearchTopics::opposites(Topics topics) const {
  Topics excluded = 0;
  const auto rows = topicTable();
  for (std::size_t topic = 0; topic < rows.size(); ++topic) {
    if ((topics & bitAt(topic)) == 0) continue;
    if (rows[topic].kinds == bit(PlaceKind::toiletWomen)) excluded |= ofKind(PlaceKind::toiletMen);
    if (rows[topic].kinds == bit(PlaceKind::toiletMen)) excluded |= ofKind(PlaceKind::toiletWomen);
  }
  return excluded & withScope(TopicScope::narrowing);
}

Topics SearchTopics::related(Topics topics) const {
  Topics related = 0;
  const auto rows = topicTable();
  for (std::size_t topic = 0; topic < rows.size(); ++topic)
    for (std::size_t kind = 0; kind < placeKindCount; ++kind)
      if ((topics & bitAt(topic)) != 0 && rows[topic].scope == TopicScope::named &&
          (rows[topic].kinds & bit(static_cast<PlaceKind>(kind))) != 0)
        related |= ofKind_[kind];
  return related;
}

std::vector<std::string> SearchTopics::phrasesOf(const PlaceKind* kind) const {
  const auto rows = topicTable();
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const TopicRow& each) {
    return kind == nullptr ? each.scope == TopicScope::emergency : (each.kinds & bit(*kind)) != 0;
  });
  std::vector<std::string> forms;
  for (const Phrase& phrase : phrases_)
    if (row != rows.end() && phrase.topic == static_cast<std::size_t>(row - rows.begin()))
      forms.push_back(phrase.form);
  return forms;
}

}  // namespace orivanta
