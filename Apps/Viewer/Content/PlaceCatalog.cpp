#include "Apps/Viewer/Content/PlaceCatalog.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "Apps/Viewer/Content/KindGroups.hpp"
#include "Apps/Viewer/Content/KindLookup.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/Sorting.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Guidance/NameMatch.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

constexpr double generatedShare = 0.25;  // of a place with a name on a sign
constexpr double countWeight = 4;

struct SortedPlace {
  bool isGenerated;
  std::string name;  // in its search form
  std::shared_ptr<Location> place;
  double elevation;  // of its lowest floor
};

double elevationOf(const Location& place) {
  const FloorList floors = floorsFromTop(floorsOf(place));
  return floors.empty() ? 0 : floors.back()->elevation;
}

bool comesBefore(const SortedPlace& left, const SortedPlace& right) {
  if (left.isGenerated != right.isGenerated) return right.isGenerated;
  if (left.name == right.name) return left.elevation < right.elevation;
  return nameComesBefore(left.name, right.name);
}

// Collects the places of each group of kinds; the last entry is for those of no kind.
class Collector {
 public:
  Collector(const Venue& venue, const KindWords& words)
      : names_(venue), kinds_(words), places_(kindGroups().size() + 1) {
    if (venue.locations)
      for (const auto& place : *venue.locations)
        if (!place->nodes.empty() || !place->polygons.empty())
          add(place, hasGeneratedName(*place), place->name.value_or(""));
    if (!venue.vortices) return;
    for (const auto& connector : *venue.vortices) {
      if (connector->nodes.empty()) continue;
      const std::string sign = names_.of(*connector);
      add(connector, sign.empty(), sign);
    }
  }

  std::vector<CatalogGroup> groups() {
    std::vector<std::pair<double, CatalogGroup>> ranked;
    ranked.reserve(places_.size());
    for (std::size_t i = 0; i < kindGroups().size(); ++i)
      if (!places_[i].empty())
        ranked.emplace_back(rankOf(i), groupOf(kindGroups()[i].icon, kindGroups()[i].nameKey, i));
    foundation::stableSort(ranked.begin(), ranked.end(),
                           [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<CatalogGroup> groups;
    groups.reserve(ranked.size() + 1);
    for (auto& [rank, group] : ranked) groups.push_back(std::move(group));
    if (!places_.back().empty())
      groups.push_back(groupOf(PlaceKind::other, "interface.search.others", places_.size() - 1));
    return groups;
  }

 private:
  void add(const std::shared_ptr<Location>& place, bool isGenerated, const std::string& name) {
    const auto group = kindGroupOf(kinds_.of(*place)).value_or(places_.size() - 1);
    places_[group].push_back({isGenerated, searchForm(name), place, elevationOf(*place)});
  }

  double rankOf(std::size_t group) const {
    double count = 1;
    for (const SortedPlace& place : places_[group]) count += place.isGenerated ? generatedShare : 1;
    return kindGroups()[group].usefulness + countWeight * std::log2(count);
  }

  CatalogGroup groupOf(PlaceKind icon, std::string_view nameKey, std::size_t index) {
    auto& sorted = places_[index];
    foundation::stableSort(sorted.begin(), sorted.end(), comesBefore);
    CatalogGroup group{icon, nameKey, {}};
    group.places.reserve(sorted.size());
    for (SortedPlace& each : sorted) group.places.push_back(std::move(each.place));
    return group;
  }

  const LabelNames names_;
  KindLookup kinds_;
  std::vector<std::vector<SortedPlace>> places_;
};

}  // namespace

PlaceCatalog::PlaceCatalog(const Venue& venue, const KindWords& words)
    : groups_(Collector(venue, words).groups()) {
  for (const CatalogGroup& group : groups_) size_ += group.places.size();
}

std::vector<PlaceGroup> byCategory(const std::vector<std::shared_ptr<Location>>& places) {
  struct NamedGroup {
    std::string form;
    PlaceGroup group;
  };
  std::map<std::string, NamedGroup> found;  // by title
  for (const auto& place : places) {
    const auto& own = place->categories;
    const std::string title = own.empty() ? "" : foundation::label(own.front()->name.value_or(""));
    NamedGroup& named = found[title];
    if (named.group.places.empty()) named = {searchForm(title), {title, {}}};
    named.group.places.push_back(place);
  }
  if (found.size() < 2 || found.size() * 2 > places.size()) return {{"", places}};
  std::vector<NamedGroup> sorted;
  sorted.reserve(found.size());
  for (auto& [title, named] : found) sorted.push_back(std::move(named));
  foundation::stableSort(sorted.begin(), sorted.end(), [](const auto& left, const auto& right) {
    if (left.group.title.empty() || right.group.title.empty())
      return !left.group.title.empty() && right.group.title.empty();
    return nameComesBefore(left.form, right.form);
  });
  std::vector<PlaceGroup> groups;
  groups.reserve(sorted.size());
  for (NamedGroup& named : sorted) groups.push_back(std::move(named.group));
  return groups;
}

}  // namespace orivanta::viewer
