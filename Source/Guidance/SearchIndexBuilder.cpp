#include "Source/Guidance/SearchIndexBuilder.hpp"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/Sorting.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Kinds/SearchWords.hpp"
#include "Source/Guidance/Network/ConnectorSign.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Map.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostCategories = 16;  // per place
constexpr std::size_t stride = 256;         // places between two checks for cancellation

// Returns what `namesEmergencyExit` returns. Most names lack letters of all of its words.
bool isEmergencyName(const SearchableText& name) {
  static const auto letters = [] {
    std::vector<std::uint64_t> found;
    for (std::string& word : emergencyExitWords())
      found.push_back(SearchableText(std::move(word)).letters);
    return found;
  }();
  return std::any_of(letters.begin(), letters.end(),
                     [&](std::uint64_t word) { return (word & ~name.letters) == 0; }) &&
         namesEmergencyExit(name.form);
}

// Sorts in a stable way. Moves each element only once.
template <class Element, class Before>
void sortLarge(std::vector<Element>& elements, const Before& before) {
  std::vector<std::uint32_t> order(elements.size());
  std::iota(order.begin(), order.end(), 0U);
  foundation::stableSort(order.begin(), order.end(), [&](std::uint32_t left, std::uint32_t right) {
    return before(elements[left], elements[right]);
  });
  std::vector<Element> sorted;
  sorted.reserve(elements.size());
  for (const std::uint32_t index : order) sorted.push_back(std::move(elements[index]));
  elements = std::move(sorted);
}

class IndexBuilder {
 public:
  IndexBuilder(const SearchedPlaces& searched, const KindWords& kinds)
      : signs_(searched.categories), kinds_(kinds) {
    for (const auto& category : searched.categories)
      byIdentifier_.emplace(category->id.value_or(""), category.get());
  }

  // Returns false if it is canceled.
  template <class Record>
  bool add(const std::vector<std::shared_ptr<Record>>& records,
           const foundation::CancellationToken& token) {
    index_.places.reserve(index_.places.size() + records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
      if (i % stride == 0 && token.isCanceled()) return false;
      if (!records[i]->nodes.empty() || !records[i]->polygons.empty()) add(records[i]);
    }
    return true;
  }

  SearchIndex finish();

 private:
  void add(const std::shared_ptr<Location>& record);
  void addCategories(IndexedPlace& place, const Location& record, const Vortex* connector);
  void addTopics(IndexedPlace& place, PlaceEntry& entry);
  void addFloors(const FloorList& floors);
  std::uint32_t indexOf(const Category& category);
  PlaceKind kindOf(const IndexedPlace& place, const Location& record, bool isConnector);
  PlaceKind kindOfType(const std::string& type);

  guidance::ConnectorSigns signs_;
  const KindWords& kinds_;
  std::unordered_map<std::string, const Category*> byIdentifier_;
  std::unordered_map<const Category*, std::uint32_t> known_;
  std::vector<std::string> names_;  // of `index_.categories`
  std::unordered_map<std::string, PlaceKind> types_;
  std::unordered_set<const Map*> floors_;
  SearchIndex index_;
};

std::uint32_t IndexBuilder::indexOf(const Category& category) {
  const auto [known, isNew] =
      known_.try_emplace(&category, static_cast<std::uint32_t>(index_.categories.size()));
  if (!isNew) return known->second;
  const SearchTopics& topics = SearchTopics::instance();
  const std::string name = category.name.value_or("");
  IndexedCategory entry;
  entry.name = SearchableText(searchForm(name));
  entry.title = foundation::label(name);
  entry.kind = kinds_.kindOf(category);
  entry.isEmergency = isEmergencyName(entry.name);
  const Topics named = topics.within(entry.name.form);
  entry.topics = topics.ofKind(entry.kind);
  entry.namedTopics =
      named & (topics.withScope(TopicScope::named) | topics.withScope(TopicScope::passage));
  index_.categories.push_back(std::move(entry));
  names_.push_back(name);
  return known->second;
}

void IndexBuilder::addCategories(IndexedPlace& place, const Location& record,
                                 const Vortex* connector) {
  const auto add = [&](const Category& category) {
    if (place.categories.size() < mostCategories) place.categories.push_back(indexOf(category));
  };
  for (const auto& category : record.categories)
    if (category) add(*category);
  if (connector == nullptr || !record.categories.empty()) return;
  for (const RawData& identifier : record._data["categories"].arrayValue()) {
    const auto found = byIdentifier_.find(identifier.string().value_or(""));
    if (found != byIdentifier_.end()) add(*found->second);
  }
}

PlaceKind IndexBuilder::kindOfType(const std::string& type) {
  const auto [known, isNew] = types_.try_emplace(type, PlaceKind::other);
  if (isNew) known->second = kinds_.kindOf(type);
  return known->second;
}

// Returns what `KindWords::kindOf` returns for the place.
PlaceKind IndexBuilder::kindOf(const IndexedPlace& place, const Location& record,
                               bool isConnector) {
  const std::string type = record.type.value_or("");
  const PlaceKind byType = kindOfType(type);
  if (isConnector && byType != PlaceKind::other) return byType;
  for (const std::uint32_t category : place.categories)
    if (const PlaceKind kind = index_.categories[category].kind; kind != PlaceKind::other)
      return kind;
  return byType == PlaceKind::other && type == "tenant" ? PlaceKind::shop : byType;
}

void IndexBuilder::addTopics(IndexedPlace& place, PlaceEntry& entry) {
  const SearchTopics& topics = SearchTopics::instance();
  place.kindTopics = topics.ofKind(entry.kind);
  place.topics = place.kindTopics;
  place.isEmergency = isEmergencyName(place.name);
  for (const std::uint32_t category : place.categories) {
    place.topics |= index_.categories[category].topics;
    place.namedTopics |= index_.categories[category].namedTopics;
    place.isEmergency = place.isEmergency || index_.categories[category].isEmergency;
  }
  if (place.isEmergency) {
    place.topics &= ~topics.withScope(TopicScope::passage);
    place.namedTopics &= ~topics.withScope(TopicScope::passage);
    place.topics |= topics.withScope(TopicScope::emergency);
    place.kindTopics = place.topics;
  }
  if (place.isConnector || place.isGenerated) return;
  place.namedTopics |= topics.within(place.name.form) &
                       (entry.kind == PlaceKind::other ? ~topics.withScope(TopicScope::narrowing)
                                                       : topics.withScope(TopicScope::named));
}

void IndexBuilder::addFloors(const FloorList& floors) {
  for (const auto& floor : floors) {
    if (!floors_.insert(floor.get()).second) continue;
    IndexedFloor entry{floor.get(), {}};
    for (const std::string* const name : {&floor->shortName, &floor->name})
      if (std::string form = searchForm(*name); !form.empty())
        entry.names.push_back(std::move(form));
    index_.floors.push_back(std::move(entry));
  }
}

void IndexBuilder::add(const std::shared_ptr<Location>& record) {
  const auto* const connector = dynamic_cast<const Vortex*>(record.get());
  IndexedPlace place;
  PlaceEntry entry;
  place.isConnector = connector != nullptr;
  entry.place = record;
  place.record = record;
  FloorList floors = floorsOf(*record);
  std::erase(floors, nullptr);
  entry.floors = floorsFromTop(std::move(floors));
  std::reverse(entry.floors.begin(), entry.floors.end());
  addFloors(entry.floors);
  addCategories(place, *record, connector);
  if (!place.categories.empty()) entry.category = names_[place.categories.front()];
  entry.kind = kindOf(place, *record, place.isConnector);
  entry.name = connector != nullptr ? signs_.signOf(*connector) : record->name.value_or("");
  place.isGenerated = connector != nullptr ? entry.name.empty() : hasGeneratedName(*record);
  if (connector != nullptr && entry.name.empty()) entry.name = entry.category;
  if (entry.name.empty()) entry.name = record->name.value_or("");
  if (connector == nullptr || !place.isGenerated)
    place.name = SearchableText(searchForm(entry.name));
  if (place.name.form.find(' ') != std::string::npos)
    std::copy_if(place.name.form.begin(), place.name.form.end(), std::back_inserter(place.compact),
                 [](char letter) { return letter != ' '; });
  place.description = SearchableText(searchForm(record->description.value_or("")));
  addTopics(place, entry);
  place.entry = std::make_shared<const PlaceEntry>(std::move(entry));
  index_.places.push_back(std::move(place));
}

SearchIndex IndexBuilder::finish() {
  auto& places = index_.places;
  sortLarge(places, [](const IndexedPlace& a, const IndexedPlace& b) {
    if (a.isGenerated != b.isGenerated) return b.isGenerated;
    return nameComesBefore(a.name.form, b.name.form);
  });
  for (std::uint32_t i = 0; i < places.size(); ++i)
    if (!places[i].isConnector) index_.byCategory.push_back(i);
  const auto groupOf = [&](std::uint32_t index) -> const IndexedCategory* {
    const auto& own = places[index].categories;
    return own.empty() ? nullptr : &index_.categories[own.front()];
  };
  const auto comesBefore = [&](std::uint32_t a, std::uint32_t b) {
    const IndexedCategory* const left = groupOf(a);
    const IndexedCategory* const right = groupOf(b);
    if (left == nullptr || right == nullptr) return left != nullptr && right == nullptr;
    if (nameComesBefore(left->name.form, right->name.form)) return true;
    if (nameComesBefore(right->name.form, left->name.form)) return false;
    return std::tie(left->name.form, left->title) < std::tie(right->name.form, right->title);
  };
  foundation::stableSort(index_.byCategory.begin(), index_.byCategory.end(), comesBefore);
  return std::move(index_);
}

}  // namespace

SearchIndex indexOf(const SearchedPlaces& searched, const KindWords& kinds,
                    const foundation::CancellationToken& token) {
  IndexBuilder builder(searched, kinds);
  if (!builder.add(searched.places, token) || !builder.add(searched.connectors, token)) return {};
  return builder.finish();
}

}  // namespace orivanta
