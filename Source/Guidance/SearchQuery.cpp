#include "Source/Guidance/SearchQuery.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "Source/Guidance/TextFolding.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostTyped = 16;      // words
constexpr std::size_t mostInTerm = 4;      // words
constexpr std::size_t leastLongBytes = 4;  // of a text that may be inside a name without spaces
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

std::string withoutSpaces(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
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

Topics facilities() {
  static const Topics topics = SearchTopics::instance().withScope(TopicScope::facility) |
                               SearchTopics::instance().withScope(TopicScope::passage) |
                               SearchTopics::instance().withScope(TopicScope::emergency);
  return topics;
}

Topics narrowing() {
  static const Topics topics = SearchTopics::instance().withScope(TopicScope::narrowing);
  return topics;
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

WordMatch worstMatch(const std::vector<TypedWord>& words, const SearchableText& text,
                     Mistakes mistakes = Mistakes::few) {
  WordMatch worst = WordMatch::whole;
  for (const TypedWord& word : words) {
    worst = std::max(worst, word.match(text, mistakes));
    if (worst == WordMatch::none) break;
  }
  return worst;
}

bool isAnyFormOf(const std::string& text, const std::string& singular) {
  const auto words = wordsOfForm(text);
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return isFormOf(word, singular); });
}

bool isInCategory(const std::string& text) {
  return static_cast<unsigned char>(text.front()) >= 0x80 ? standsForWord(text)
                                                          : text.size() >= leastLongBytes;
}

bool endsWithWords(std::string_view name, std::string_view words) {
  return name.size() > words.size() && name.ends_with(words) &&
         name[name.size() - words.size() - 1] == ' ';
}

// A generated name begins with the name of a category.
PlaceMatch matchOfName(PlaceMatch match, const IndexedPlace& place) {
  return place.isGenerated ? std::max(match, PlaceMatch::category) : match;
}

}  // namespace

SearchQuery::SearchQuery(std::string_view typed, const std::vector<IndexedCategory>& categories,
                         const std::vector<IndexedFloor>& floors)
    : forms_(spellingsOf(searchForm(typed))) {
  std::vector<std::string_view> words;
  for (const std::string_view word : wordsOfForm(forms_.front()))
    if (words.size() < mostTyped && std::find(words.begin(), words.end(), word) == words.end())
      words.push_back(word);
  for (const std::string& form : forms_) {
    std::string compact = withoutSpaces(form);
    const bool isLong = compact.size() >= leastLongBytes;
    compacts_.push_back({std::move(compact), isLong});
  }
  addTerms(words, floors);
  for (Term& term : terms_) compareCategories(term, categories);
}

void SearchQuery::addTerms(const std::vector<std::string_view>& words,
                           const std::vector<IndexedFloor>& floors) {
  bool isAnyNeeded = false;
  for (std::size_t first = 0; first < words.size();) {
    const std::size_t count = lengthOfTerm(words, first, floors);
    addTerm(words, first, count, floors);
    isAnyNeeded = isAnyNeeded || !terms_.back().isOptional;
    first += count;
  }
  if (!isAnyNeeded)
    for (Term& term : terms_) term.isOptional = false;
}

// Returns the number of words of the longest phrase that begins with a word.
std::size_t SearchQuery::lengthOfTerm(const std::vector<std::string_view>& words, std::size_t first,
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

void SearchQuery::addTerm(const std::vector<std::string_view>& words, std::size_t first,
                          std::size_t count, const std::vector<IndexedFloor>& floors) {
  const SearchTopics& topics = SearchTopics::instance();
  Term term;
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
  terms_.push_back(std::move(term));
}

void SearchQuery::compareCategories(Term& term, const std::vector<IndexedCategory>& categories) {
  const bool isFacility = (term.exact & facilities()) != 0;
  const auto partOfCategory = [&](const IndexedCategory& category) {
    if (term.meansExits && category.isEmergency) return Part::none;
    const WordMatch match = worstMatch(term.words, category.name);
    if (match == WordMatch::whole) return Part::category;
    if (isFacility) return isAnyFormOf(category.name.form, term.text) ? Part::category : Part::none;
    if (match == WordMatch::near) return Part::near;
    const bool matches =
        match == WordMatch::beginning || (match == WordMatch::inside && isInCategory(term.text));
    return matches ? Part::category : Part::none;
  };
  term.categories.reserve(categories.size());
  for (const IndexedCategory& each : categories) term.categories.push_back(partOfCategory(each));
}

std::optional<PlaceScore> SearchQuery::scoreOf(const IndexedPlace& place) const {
  const auto whole = matchOfWholeText(place);
  if (whole == PlaceMatch::name) return PlaceScore{*whole, 0};
  auto score = scoreOfTerms(place);
  if (whole && (!score || *whole < score->match)) score = PlaceScore{*whole, 0};
  return score;
}

std::optional<PlaceMatch> SearchQuery::matchOfWholeText(const IndexedPlace& place) const {
  const std::string& name = place.name.form;
  const std::string& compactName = place.compact.empty() ? name : place.compact;
  if (std::find(forms_.begin(), forms_.end(), name) != forms_.end()) return PlaceMatch::name;
  if (terms_.size() == 1 && isExcluded(terms_.front(), place)) return std::nullopt;
  std::optional<PlaceMatch> best;
  for (const Compact& typed : compacts_) {
    const std::size_t at = typed.isLong || compactName.starts_with(typed.text)
                               ? compactName.find(typed.text)
                               : std::string::npos;
    if (at == std::string::npos) continue;
    if (typed.text.size() == compactName.size()) return PlaceMatch::name;
    const PlaceMatch match = at == 0 ? PlaceMatch::beginning : PlaceMatch::inside;
    best = best ? std::min(*best, match) : match;
  }
  if (place.isGenerated && endsWithWords(name, forms_.front())) return PlaceMatch::word;
  return best ? std::optional(matchOfName(*best, place)) : std::nullopt;
}

std::optional<PlaceScore> SearchQuery::scoreOfTerms(const IndexedPlace& place) const {
  PlaceScore score{PlaceMatch::name, 0};
  bool isWholeWord = false;
  bool hasKind = false;
  for (const Term& term : terms_) {
    const Part part = partOf(term, place);
    if (part == Part::none && !term.isOptional) return std::nullopt;
    if (part == Part::none || part == Part::floor || part == Part::kind) ++score.penalty;
    if (part == Part::wholeWord) isWholeWord = true;
    if (part == Part::otherKind) score.penalty += 2;
    if (part <= Part::otherKind) hasKind = true;
    score.match = std::max(score.match, matchOf(part));
  }
  if (isWholeWord)
    score.match =
        std::max(score.match, hasKind ? PlaceMatch::kind : matchOfName(PlaceMatch::word, place));
  if (score.match == PlaceMatch::word || score.match == PlaceMatch::inside)
    score.match = matchOfName(score.match, place);
  if (score.match == PlaceMatch::name) score.match = PlaceMatch::category;  // only floors
  return score;
}

PlaceMatch SearchQuery::matchOf(Part part) {
  switch (part) {
    case Part::kindByName:
    case Part::kind:
    case Part::otherKind:
      return PlaceMatch::kind;
    case Part::word:
      return PlaceMatch::word;
    case Part::inside:
      return PlaceMatch::inside;
    case Part::category:
      return PlaceMatch::category;
    case Part::description:
      return PlaceMatch::description;
    case Part::near:
      return PlaceMatch::near;
    case Part::wholeWord:
    case Part::floor:
    case Part::none:
      break;
  }
  return PlaceMatch::name;
}

bool SearchQuery::isExcluded(const Term& term, const IndexedPlace& place) {
  return (term.opposites & place.topics) != 0 && (term.exact & narrowing() & place.topics) == 0;
}

SearchQuery::Part SearchQuery::partOf(const Term& term, const IndexedPlace& place) const {
  if (isExcluded(term, place)) return Part::none;
  const WordMatch byName = worstMatch(term.words, place.name);
  if (term.meansExits && place.isEmergency)
    return byName == WordMatch::none ? Part::none : Part::near;
  if ((term.exact & facilities() & place.topics) != 0)
    return isInCategories(term, place)                           ? Part::kindByName
           : (term.exact & facilities() & place.kindTopics) != 0 ? Part::kind
                                                                 : Part::otherKind;
  if (terms_.size() > 1 && (term.exact & narrowing() & place.topics) != 0) return Part::kindByName;
  if (byName == WordMatch::whole) return Part::wholeWord;
  const FloorList& floors = place.entry->floors;
  if (!term.floors.empty() && std::any_of(floors.begin(), floors.end(), [&](const auto& floor) {
        return std::find(term.floors.begin(), term.floors.end(), floor.get()) != term.floors.end();
      }))
    return Part::floor;
  if (byName == WordMatch::beginning) return Part::word;
  if (byName == WordMatch::inside) return Part::inside;
  return partOfRest(term, place, byName);
}

bool SearchQuery::isInCategories(const Term& term, const IndexedPlace& place) {
  return std::any_of(place.categories.begin(), place.categories.end(), [&](std::uint32_t category) {
    return term.categories[category] == Part::category;
  });
}

// Returns what a term has in common with a place whose name does not contain it.
SearchQuery::Part SearchQuery::partOfRest(const Term& term, const IndexedPlace& place,
                                          WordMatch byName) {
  if (((term.exact | term.begun) & (place.topics | place.namedTopics)) != 0) return Part::category;
  if (isInCategories(term, place)) return Part::category;
  if (term.isDescriptive && !place.description.form.empty()) {
    const WordMatch match = worstMatch(term.words, place.description, Mistakes::none);
    const bool isInside = static_cast<unsigned char>(term.text.front()) >= 0x80;
    if (match <= (isInside ? WordMatch::inside : WordMatch::beginning)) return Part::description;
  }
  const bool isNear =
      byName == WordMatch::near || (term.near & place.topics) != 0 ||
      std::any_of(place.categories.begin(), place.categories.end(),
                  [&](std::uint32_t category) { return term.categories[category] == Part::near; });
  return isNear ? Part::near : Part::none;
}

}  // namespace orivanta
