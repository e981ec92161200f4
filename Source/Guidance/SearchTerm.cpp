#include "Source/Guidance/SearchTerm.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace orivanta {

namespace {

constexpr std::size_t mostInTerm = 4;      // words
constexpr std::size_t leastInside = 4;     // bytes of a Latin word inside the name of a category
constexpr std::size_t leastDescribed = 3;  // bytes of a word that may be in a description

// Words in their search form that may match nothing.
constexpr std::array fillers = {
    "the",       "a",     "an",       "of",  "in",      "on",      "at",       "to",       "and",
    "for",       "with",  "next",     "my",  "nearest", "near",    "me",       "floor",    "level",
    "storey",    "story", "und",      "der", "die",     "das",     "dem",      "im",       "am",
    "auf",       "zum",   "zur",      "fur", "mit",     "nachste", "nachster", "nachstes", "stock",
    "stockwerk", "etage", "geschoss", "le",  "la",      "les",     "l",        "de",       "du",
    "des",       "d",     "au",       "et",  "dans",    "pour",    "avec",     "proche",   "niveau",
    "フロア",    "階",    "في",       "و",   "طابق",    "الطابق"};

bool isFiller(std::string_view word) {
  return std::find(fillers.begin(), fillers.end(), word) != fillers.end();
}

bool isNumber(std::string_view word) {
  return word.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string joined(const std::vector<std::string_view>& words, std::size_t first,
                   std::size_t count) {
  std::string text;
  for (std::size_t i = first; i < first + count; ++i) {
    if (!text.empty()) text += ' ';
    text += words[i];
  }
  return text;
}

// Returns the number of an English ordinal such as "2nd", or else the text.
std::string_view withoutOrdinalEnding(std::string_view text) {
  for (const std::string_view ending : {"st", "nd", "rd", "th"})
    if (text.size() > ending.size() && text.ends_with(ending) &&
        isNumber(text.substr(0, text.size() - ending.size())))
      return text.substr(0, text.size() - ending.size());
  return text;
}

// Returns the floors with a name. Together with other words, "b1" stands for "B1F", and "2nd" for
// "2".
std::vector<const Map*> floorsNamed(std::string_view text, bool isAlone,
                                    const std::vector<IndexedFloor>& floors) {
  std::vector<const Map*> found;
  if (isAlone && isNumber(text)) return found;
  const std::string_view number = isAlone ? text : withoutOrdinalEnding(text);
  const auto isName = [&](const std::string& name) {
    if (name == text || name == number) return true;
    return !isAlone && name.size() == number.size() + 1 && name.back() == 'f' &&
           name.starts_with(number);
  };
  for (const IndexedFloor& each : floors)
    if (std::any_of(each.names.begin(), each.names.end(), isName)) found.push_back(each.floor);
  return found;
}

Topics topicsNamed(const std::string& text) {
  Topics topics = 0;
  for (const std::string& spelling : spellingsOf(text))
    topics |= SearchTopics::instance().named(spelling);
  return topics;
}

Topics topicsBegunWith(const std::string& text) {
  Topics topics = 0;
  for (const std::string& spelling : spellingsOf(text))
    topics |= SearchTopics::instance().begunWith(spelling);
  return topics;
}

bool isAnyFormOf(const std::string& text, const std::string& singular) {
  const auto words = wordsOfForm(text);
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return isFormOf(word, singular); });
}

bool isInCategory(const std::string& text) {
  return static_cast<unsigned char>(text.front()) >= 0x80 ? standsForWord(text)
                                                          : text.size() >= leastInside;
}

// Returns the number of words of the longest phrase that begins with a word.
std::size_t lengthOfTerm(const std::vector<std::string_view>& words, std::size_t first,
                         const std::vector<IndexedFloor>& floors) {
  for (std::size_t count = std::min(mostInTerm, words.size() - first); count > 1; --count) {
    const std::string text = joined(words, first, count);
    const bool isLast = first + count == words.size();
    if (topicsNamed(text) != 0 || (isLast && topicsBegunWith(text) != 0) ||
        !floorsNamed(text, false, floors).empty())
      return count;
  }
  return 1;
}

SearchTerm termOf(const std::vector<std::string_view>& words, std::size_t first, std::size_t count,
                  const std::vector<IndexedFloor>& floors) {
  const SearchTopics& topics = SearchTopics::instance();
  SearchTerm term;
  term.text = joined(words, first, count);
  term.isDescriptive = true;
  for (std::size_t i = first; i < first + count; ++i) {
    term.words.emplace_back(words[i]);
    term.isDescriptive =
        term.isDescriptive && words[i].size() >= leastDescribed && !isNumber(words[i]);
  }
  term.exact = topicsNamed(term.text);
  term.begun = topicsBegunWith(term.text) & ~term.exact;
  if (term.exact == 0 && term.begun == 0 && count == 1) term.near = topics.near(term.text);
  term.near |= topics.related(term.exact);
  term.opposites = topics.opposites(term.exact);
  const Topics exits = topics.named("exit");
  const Topics emergencies = topics.withScope(TopicScope::emergency);
  term.meansExits =
      ((term.exact == 0 ? term.begun : term.exact) & exits) != 0 && (term.exact & emergencies) == 0;
  term.floors = floorsNamed(term.text, words.size() == 1, floors);
  term.isOptional = count == 1 && isFiller(term.text);
  return term;
}

void compareCategories(SearchTerm& term, const std::vector<IndexedCategory>& categories) {
  const bool isFacility = (term.exact & facilityTopics()) != 0;
  const auto matchOfCategory = [&](const IndexedCategory& category) {
    if (term.meansExits && category.isEmergency) return TermMatch::none;
    const WordMatch match = worstMatch(term.words, category.name);
    if (match == WordMatch::whole) return TermMatch::category;
    if (isFacility)
      return isAnyFormOf(category.name.form, term.text) ? TermMatch::category : TermMatch::none;
    if (match == WordMatch::near) return TermMatch::near;
    const bool matches =
        match == WordMatch::beginning || (match == WordMatch::inside && isInCategory(term.text));
    return matches ? TermMatch::category : TermMatch::none;
  };
  term.categories.reserve(categories.size());
  for (const IndexedCategory& each : categories) term.categories.push_back(matchOfCategory(each));
}

// Whether a byte belongs to a character of Japanese, Chinese or Korean; they begin with 0xE3 to
// 0xED.
bool isEastAsian(std::string_view text, std::size_t at) {
  while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80) --at;
  const auto lead = static_cast<unsigned char>(text[at]);
  return lead >= 0xE3 && lead <= 0xED;
}

}  // namespace

std::vector<std::string_view> partsOfWord(std::string_view word,
                                          const std::vector<IndexedFloor>& floors) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  for (std::size_t i = 1; i <= word.size(); ++i)
    if (i == word.size() || isEastAsian(word, i) != isEastAsian(word, i - 1)) {
      parts.push_back(word.substr(start, i - start));
      start = i;
    }
  const auto isKnown = [&](std::string_view part) {
    return isEastAsian(part, 0) ? topicsNamed(std::string(part)) != 0
                                : !isNumber(part) && !floorsNamed(part, false, floors).empty();
  };
  if (parts.size() < 2 || std::none_of(parts.begin(), parts.end(), isKnown)) return {word};
  return parts;
}

Topics facilityTopics() {
  static const Topics topics = SearchTopics::instance().withScope(TopicScope::facility) |
                               SearchTopics::instance().withScope(TopicScope::passage) |
                               SearchTopics::instance().withScope(TopicScope::emergency);
  return topics;
}

Topics narrowingTopics() {
  static const Topics topics = SearchTopics::instance().withScope(TopicScope::narrowing);
  return topics;
}

WordMatch worstMatch(const std::vector<TypedWord>& words, const SearchableText& text,
                     Mistakes mistakes) {
  WordMatch worst = WordMatch::whole;
  for (const TypedWord& word : words) {
    worst = std::max(worst, word.match(text, mistakes));
    if (worst == WordMatch::none) break;
  }
  return worst;
}

std::vector<SearchTerm> searchTermsOf(const std::vector<std::string_view>& words,
                                      const std::vector<IndexedCategory>& categories,
                                      const std::vector<IndexedFloor>& floors) {
  std::vector<SearchTerm> terms;
  for (std::size_t first = 0; first < words.size();) {
    const std::size_t count = lengthOfTerm(words, first, floors);
    terms.push_back(termOf(words, first, count, floors));
    compareCategories(terms.back(), categories);
    first += count;
  }
  if (std::all_of(terms.begin(), terms.end(), [](const auto& term) { return term.isOptional; }))
    for (SearchTerm& term : terms) term.isOptional = false;
  return terms;
}

}  // namespace orivanta
