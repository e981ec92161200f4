#include "Source/Guidance/PlaceSearch.hpp"

#include <algorithm>
#include <numeric>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostCategories = 16;  // per place
constexpr std::size_t stride = 256;         // places between two checks for cancellation

std::string_view textOf(const std::optional<std::string>& name) {
  return name ? std::string_view(*name) : std::string_view();
}

// Ranks names before categories, and categories before approximate matches. Returns nothing if
// neither matches.
std::optional<int> rankOf(NameMatch byName, bool categoryMatches) {
  constexpr int category = static_cast<int>(NameMatch::near);
  if (byName < NameMatch::near) return static_cast<int>(byName);
  if (categoryMatches) return category;
  return byName == NameMatch::near ? std::optional(category + 1) : std::nullopt;
}

}  // namespace

PlaceSearch::PlaceSearch(const std::vector<std::shared_ptr<Location>>& places,
                         const foundation::CancellationToken& token) {
  addPlaces(places, token);
  sort();
}

void PlaceSearch::addPlaces(const std::vector<std::shared_ptr<Location>>& places,
                            const foundation::CancellationToken& token) {
  std::unordered_map<const Category*, std::size_t> known;
  const auto indexOf = [&](const Category& category) {
    const auto [entry, isNew] = known.try_emplace(&category, categories_.size());
    const std::string_view name = textOf(category.name);
    if (isNew) categories_.push_back({searchForm(name), foundation::label(name)});
    return entry->second;
  };
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (i % stride == 0 && token.isCanceled()) return entries_.clear();
    const Location& place = *places[i];
    if (place.nodes.empty() && place.polygons.empty()) continue;
    Entry entry{places[i], searchForm(textOf(place.name)), {}};
    for (const auto& category : place.categories) {
      if (entry.categories.size() == mostCategories) break;
      entry.categories.push_back(indexOf(*category));
    }
    entries_.push_back(std::move(entry));
  }
}

void PlaceSearch::sort() {
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const Entry& a, const Entry& b) { return nameComesBefore(a.name, b.name); });
  byCategory_.resize(entries_.size());
  std::iota(byCategory_.begin(), byCategory_.end(), std::size_t{0});
  const auto groupOf = [this](std::size_t index) -> const CategoryEntry* {
    const auto& own = entries_[index].categories;
    return own.empty() ? nullptr : &categories_[own.front()];
  };
  std::stable_sort(byCategory_.begin(), byCategory_.end(), [&](std::size_t a, std::size_t b) {
    const CategoryEntry* const left = groupOf(a);
    const CategoryEntry* const right = groupOf(b);
    if (left == nullptr || right == nullptr) return left != nullptr && right == nullptr;
    if (nameComesBefore(left->name, right->name)) return true;
    if (nameComesBefore(right->name, left->name)) return false;
    return std::tie(left->name, left->title) < std::tie(right->name, right->title);
  });
}

std::vector<PlaceGroup> PlaceSearch::all() const {
  std::vector<PlaceGroup> groups;
  for (const std::size_t index : byCategory_) {
    const Entry& entry = entries_[index];
    const std::string title =
        entry.categories.empty() ? "" : categories_[entry.categories.front()].title;
    if (groups.empty() || groups.back().title != title) groups.push_back({title, {}});
    groups.back().places.push_back(entry.place);
  }
  return groups;
}

std::vector<PlaceGroup> PlaceSearch::find(std::string_view typed,
                                          const foundation::CancellationToken& token) const {
  const TypedText text(typed);
  if (text.empty()) return all();
  std::vector<bool> matching;  // per category
  for (const CategoryEntry& category : categories_)
    matching.push_back(text.match(category.name) <= NameMatch::word);
  std::vector<std::pair<int, const Entry*>> ranked;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (i % stride == 0 && token.isCanceled()) return {};
    const Entry& entry = entries_[i];
    const bool byCategory = std::any_of(entry.categories.begin(), entry.categories.end(),
                                        [&](std::size_t category) { return matching[category]; });
    if (const auto rank = rankOf(text.match(entry.name), byCategory))
      ranked.emplace_back(*rank, &entry);
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  if (ranked.empty()) return {};
  PlaceGroup found;
  for (const auto& [rank, entry] : ranked) found.places.push_back(entry->place);
  return {std::move(found)};
}

}  // namespace orivanta
