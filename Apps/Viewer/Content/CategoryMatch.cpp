#include "Apps/Viewer/Content/CategoryMatch.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "Apps/Viewer/Content/CategoryFit.hpp"
#include "Apps/Viewer/Content/CategoryPlaces.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

using Categories = std::vector<std::shared_ptr<Category>>;

constexpr std::size_t mostOfAKind = 3;

// A category, prepared for comparisons.
struct Entry {
  std::shared_ptr<Category> category;
  CategoryForms forms;
};

std::vector<Entry> entriesOf(const Venue& venue) {
  std::vector<Entry> entries;
  if (!venue.categories) return entries;
  for (const auto& category : *venue.categories) entries.push_back({category, formsOf(*category)});
  return entries;
}

KindCategories ofKind(const std::vector<Entry>& entries, NamedKind kind) {
  const Words& names = namesOf(kind);
  for (const std::string& name : names)
    for (const Entry& entry : entries)
      if ((entry.forms.name == name || entry.forms.identifier == name) &&
          hasPlaces(*entry.category))
        return {{entry.category}, true};
  Categories found;
  for (const Entry& entry : entries) {
    const auto isAfter = [&](const auto& name) { return isNamedAfter(entry.forms, name); };
    if (std::any_of(names.begin(), names.end(), isAfter) && !isEmergencyExit(entry.forms) &&
        hasPlaces(*entry.category))
      found.push_back(entry.category);
  }
  found = outermost(std::move(found));
  found.resize(std::min(found.size(), mostOfAKind));
  return {std::move(found), false};
}

// Returns the category that best fits a search form, at least as well as `worst`.
Categories bestFit(const std::vector<Entry>& entries, const std::string& form, Fit worst) {
  const bool meansExits = meanExits(split(form, ' '));
  const Entry* found = nullptr;
  for (const Entry& entry : entries) {
    const Fit fit = fitOf(entry.forms, form);
    if (fit > worst) continue;
    if (fit == worst && found && found->forms.name.size() <= entry.forms.name.size()) continue;
    if ((meansExits && isEmergencyExit(entry.forms)) || !hasPlaces(*entry.category)) continue;
    found = &entry;
    worst = fit;
  }
  return found == nullptr ? Categories() : Categories{found->category};
}

}  // namespace

KindCategories categoriesOfKind(const Venue& venue, NamedKind kind) {
  return ofKind(entriesOf(venue), kind);
}

std::vector<std::shared_ptr<Category>> categoriesTyped(const Venue& venue, std::string_view typed) {
  const std::string form = searchForm(typed);
  if (form.empty()) return {};
  const auto entries = entriesOf(venue);
  if (auto found = bestFit(entries, form, Fit::name); !found.empty()) return found;
  for (const NamedKind kind : {NamedKind::toilet, NamedKind::exit, NamedKind::entrance}) {
    const Words& names = namesOf(kind);
    if (std::find(names.begin(), names.end(), form) != names.end())
      return ofKind(entries, kind).categories;
  }
  return bestFit(entries, form, Fit::beginnings);
}

}  // namespace orivanta::viewer
