#include "Source/Guidance/PlaceSearch.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "Source/Guidance/SearchIndexBuilder.hpp"
#include "Source/Guidance/SearchQuery.hpp"

namespace orivanta {

namespace {

constexpr std::size_t stride = 256;       // places between two checks for cancellation
constexpr std::size_t mostPenalties = 8;  // that are distinguished
constexpr std::size_t matchCount = static_cast<std::size_t>(PlaceMatch::near) + 1;

// Returns all places without the connectors, in one group per category. `make` makes what a group
// lists.
template <class Group, class Make>
std::vector<Group> allGroups(const SearchIndex& index, const Make& make) {
  const std::string none;
  const auto titleOf = [&](std::uint32_t position) -> const std::string& {
    const auto& categories = index.places[position].categories;
    return categories.empty() ? none : index.categories[categories.front()].title;
  };
  std::vector<Group> groups;
  const auto end = index.byCategory.end();
  for (auto first = index.byCategory.begin(); first != end;) {
    const std::string& title = titleOf(*first);
    const auto last = std::find_if(
        first, end, [&](std::uint32_t position) { return titleOf(position) != title; });
    Group& group = groups.emplace_back(Group{title, {}});
    group.places.reserve(static_cast<std::size_t>(last - first));
    for (; first != last; ++first)
      group.places.push_back(make(index.places[*first], PlaceMatch::category));
  }
  return groups;
}

// Returns the places that match, in one group.
template <class Group, class Make>
std::vector<Group> groupsOf(const SearchIndex& index, std::string_view typed,
                            const foundation::CancellationToken& token, const Make& make) {
  const SearchQuery query(typed, index.categories, index.floors);
  if (query.empty()) return allGroups<Group>(index, make);
  std::array<std::vector<const IndexedPlace*>, matchCount * mostPenalties> found;
  std::size_t count = 0;
  for (std::size_t i = 0; i < index.places.size(); ++i) {
    if (i % stride == 0 && token.isCanceled()) return {};
    const auto score = query.scoreOf(index.places[i]);
    if (!score) continue;
    found[static_cast<std::size_t>(score->match) * mostPenalties +
          std::min(score->penalty, mostPenalties - 1)]
        .push_back(&index.places[i]);
    ++count;
  }
  if (count == 0) return {};
  std::vector<Group> groups(1);
  groups.front().places.reserve(count);
  for (std::size_t rank = 0; rank < found.size(); ++rank)
    for (const IndexedPlace* const place : found[rank])
      groups.front().places.push_back(make(*place, static_cast<PlaceMatch>(rank / mostPenalties)));
  return groups;
}

}  // namespace

struct PlaceSearch::Index {
  SearchIndex contents;
};

PlaceSearch::PlaceSearch(const SearchedPlaces& searched, const foundation::CancellationToken& token,
                         const KindWords& kinds)
    : index_(std::make_shared<const Index>(Index{indexOf(searched, kinds, token)})) {}

PlaceSearch::PlaceSearch(const std::vector<std::shared_ptr<Location>>& places,
                         const foundation::CancellationToken& token) {
  SearchedPlaces searched;
  searched.places = places;
  *this = PlaceSearch(searched, token);
}

std::vector<FoundGroup> PlaceSearch::search(std::string_view typed,
                                            const foundation::CancellationToken& token) const {
  return groupsOf<FoundGroup>(index_->contents, typed, token,
                              [](const IndexedPlace& place, PlaceMatch match) {
                                return FoundPlace{place.entry, match};
                              });
}

std::vector<PlaceGroup> PlaceSearch::find(std::string_view typed,
                                          const foundation::CancellationToken& token) const {
  return groupsOf<PlaceGroup>(index_->contents, typed, token,
                              [](const IndexedPlace& place, PlaceMatch) { return place.record; });
}

}  // namespace orivanta
