#include "Source/Guidance/SearchQuery.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/TextFolding.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostTyped = 16;      // words
constexpr std::size_t leastLongBytes = 4;  // of a text that may be inside a name without spaces
std::string withoutSpaces(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
  return text;
}

bool endsWithWords(std::string_view name, std::string_view words) {
  return name.size() > words.size() && name.ends_with(words) &&
         name[name.size() - words.size() - 1] == ' ';
}

// Returns whether a term means the opposite of a place, such as men of a toilet for women.
bool isExcluded(const SearchTerm& term, const IndexedPlace& place) {
  if (term.meansExits && place.isEmergency) return true;
  return (term.opposites & place.topics) != 0 &&
         (term.exact & narrowingTopics() & place.topics) == 0;
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
    for (const std::string_view part : partsOfWord(word, floors))
      if (words.size() < mostTyped && std::find(words.begin(), words.end(), part) == words.end())
        words.push_back(part);
  compacts_.reserve(forms_.size());
  for (const std::string& form : forms_) {
    std::string compact = withoutSpaces(form);
    const bool isLong = compact.size() >= leastLongBytes;
    compacts_.push_back({std::move(compact), isLong});
  }
  terms_ = searchTermsOf(words, categories, floors);
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
  if (std::any_of(terms_.begin(), terms_.end(),
                  [&](const SearchTerm& term) { return isExcluded(term, place); }))
    return std::nullopt;
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
  for (const SearchTerm& term : terms_) {
    const TermMatch match = matchOfTerm(term, place);
    if (match == TermMatch::none && !term.isOptional) return std::nullopt;
    if (match == TermMatch::none || match == TermMatch::floor || match == TermMatch::kind)
      ++score.penalty;
    if (match == TermMatch::wholeWord) isWholeWord = true;
    if (match == TermMatch::otherKind) score.penalty += 2;
    if (match <= TermMatch::otherKind) hasKind = true;
    score.match = std::max(score.match, matchOf(match));
  }
  if (isWholeWord)
    score.match =
        std::max(score.match, hasKind ? PlaceMatch::kind : matchOfName(PlaceMatch::word, place));
  if (score.match == PlaceMatch::word || score.match == PlaceMatch::inside)
    score.match = matchOfName(score.match, place);
  if (score.match == PlaceMatch::name) score.match = PlaceMatch::category;  // only floors
  return score;
}

PlaceMatch SearchQuery::matchOf(TermMatch match) {
  switch (match) {
    case TermMatch::kindByName:
    case TermMatch::kind:
    case TermMatch::otherKind:
      return PlaceMatch::kind;
    case TermMatch::word:
      return PlaceMatch::word;
    case TermMatch::inside:
      return PlaceMatch::inside;
    case TermMatch::category:
      return PlaceMatch::category;
    case TermMatch::description:
      return PlaceMatch::description;
    case TermMatch::near:
      return PlaceMatch::near;
    case TermMatch::wholeWord:
    case TermMatch::floor:
    case TermMatch::none:
      break;
  }
  return PlaceMatch::name;
}

TermMatch SearchQuery::matchOfTerm(const SearchTerm& term, const IndexedPlace& place) const {
  const WordMatch byName = worstMatch(term.words, place.name);
  if (isExcluded(term, place))
    return term.meansExits && byName != WordMatch::none ? TermMatch::near : TermMatch::none;
  if ((term.exact & facilityTopics() & place.topics) != 0)
    return isInCategories(term, place)                               ? TermMatch::kindByName
           : (term.exact & facilityTopics() & place.kindTopics) != 0 ? TermMatch::kind
                                                                     : TermMatch::otherKind;
  if (terms_.size() > 1 && (term.exact & narrowingTopics() & place.topics) != 0)
    return TermMatch::kindByName;
  if (byName == WordMatch::whole) return TermMatch::wholeWord;
  const FloorList& floors = place.entry->floors;
  if (!term.floors.empty() && std::any_of(floors.begin(), floors.end(), [&](const auto& floor) {
        return std::find(term.floors.begin(), term.floors.end(), floor.get()) != term.floors.end();
      }))
    return TermMatch::floor;
  if (byName == WordMatch::beginning) return TermMatch::word;
  if (byName == WordMatch::inside) return TermMatch::inside;
  return matchOfRest(term, place, byName);
}

bool SearchQuery::isInCategories(const SearchTerm& term, const IndexedPlace& place) {
  return std::any_of(place.categories.begin(), place.categories.end(), [&](std::uint32_t category) {
    return term.categories[category] == TermMatch::category;
  });
}

// Returns what a term has in common with a place whose name does not contain it.
TermMatch SearchQuery::matchOfRest(const SearchTerm& term, const IndexedPlace& place,
                                   WordMatch byName) {
  if (((term.exact | term.begun) & (place.topics | place.namedTopics)) != 0)
    return TermMatch::category;
  if (isInCategories(term, place)) return TermMatch::category;
  if (term.isDescriptive && !place.description.form.empty()) {
    const WordMatch match = worstMatch(term.words, place.description, Mistakes::none);
    const bool isInside = static_cast<unsigned char>(term.text.front()) >= 0x80;
    if (match <= (isInside ? WordMatch::inside : WordMatch::beginning))
      return TermMatch::description;
  }
  const bool isNear =
      byName == WordMatch::near || (term.near & place.topics) != 0 ||
      std::any_of(place.categories.begin(), place.categories.end(), [&](std::uint32_t category) {
        return term.categories[category] == TermMatch::near;
      });
  return isNear ? TermMatch::near : TermMatch::none;
}

}  // namespace orivanta
