#include "Apps/Viewer/Panels/BrowsePages.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "Apps/Viewer/Content/ShownName.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

using Look = ChoiceSection::Look;
using Sections = std::vector<ChoiceSection>;

constexpr std::size_t foldedRows = 3;  // of tiles

Icon listSign() { return {{{{7, 8}, {17, 8}}, {{7, 12}, {17, 12}}, {{7, 16}, {17, 16}}}, 2}; }

Icon dotsSign() { return {{{{7, 12}, {7, 12}}, {{12, 12}, {12, 12}}, {{17, 12}, {17, 12}}}, 3}; }

std::string categoryOf(const Location& place) {
  if (place.categories.empty()) return {};
  return foundation::label(place.categories.front()->name.value_or(""));
}

ChoiceSection rowsFor(const std::vector<std::shared_ptr<Location>>& places, bool showsCategories) {
  ChoiceSection section;
  section.choices.reserve(places.size());
  for (const auto& place : places)
    section.choices.push_back(
        {.detail = showsCategories ? categoryOf(*place) : "", .place = place});
  return section;
}

bool haveOneCategory(const std::vector<std::shared_ptr<Location>>& places) {
  return std::all_of(places.begin(), places.end(), [&](const auto& place) {
    return categoryOf(*place) == categoryOf(*places.front());
  });
}

}  // namespace

BrowsePages::BrowsePages(const Venue& venue, const guidance::InterfaceTexts& texts, Actions actions)
    : venue_(venue), texts_(texts), actions_(std::move(actions)) {}

const PlaceCatalog& BrowsePages::catalog() {
  if (!catalog_) catalog_.emplace(venue_, words_);
  return *catalog_;
}

Sections BrowsePages::sections(const Page& page, const std::vector<NearestChoice>& nearest,
                               const std::vector<std::shared_ptr<Location>>& recent) {
  if (page.show == Show::group) return groupPage(catalog().groups().at(page.group));
  if (page.show == Show::all) return allPlaces();
  Sections sections;
  addNearest(sections, nearest);
  if (catalog().size() > 0) {
    sections.push_back({Look::heading, texts_.text("interface.browse.kinds")});
    sections.push_back(tiles(page.showsKinds));
  }
  addRecent(sections, recent);
  return sections;
}

void BrowsePages::addNearest(Sections& sections, const std::vector<NearestChoice>& nearest) const {
  if (nearest.empty()) return;
  sections.push_back({Look::heading, texts_.text("interface.browse.nearest")});
  ChoiceSection tiles{Look::flatTiles};
  tiles.choices.reserve(nearest.size());
  for (const NearestChoice& choice : nearest)
    tiles.choices.push_back({.title = choice.label, .kind = choice.kind, .action = [this, choice] {
                               actions_.nearest(choice);
                             }});
  sections.push_back(std::move(tiles));
}

ChoiceSection BrowsePages::tiles(bool showsAll) {
  ChoiceSection section{Look::tallTiles};
  const auto add = [&](std::string title, std::size_t count, Page page) -> Choice& {
    return section.choices.emplace_back(Choice{.title = std::move(title),
                                               .detail = count > 0 ? fmt::to_string(count) : "",
                                               .action = [this, page] { actions_.turn(page); }});
  };
  const auto& groups = catalog().groups();
  for (std::size_t i = 0; i < groups.size(); ++i)
    if (groups[i].kind != PlaceKind::other)
      add(texts_.text(groups[i].nameKey), groups[i].places.size(), {Show::group, i, showsAll})
          .kind = groups[i].kind;
  add(texts_.text("interface.browse.all"), catalog().size(), {Show::all, 0, showsAll}).sign =
      listSign();
  if (showsAll) return section;
  section.foldedRows = foldedRows;
  add(texts_.text("interface.browse.more"), 0, {Show::start, 0, true}).sign = dotsSign();
  return section;
}

void BrowsePages::addRecent(Sections& sections,
                            const std::vector<std::shared_ptr<Location>>& recent) const {
  if (recent.empty()) return;
  sections.push_back(
      {Look::heading,
       texts_.text("interface.browse.recent"),
       {{.title = texts_.text("interface.browse.clear"), .action = actions_.clearRecent}}});
  sections.push_back(rowsFor(recent, false));
}

ChoiceSection BrowsePages::wayBack(const std::string& title, std::size_t count) const {
  return {Look::back, title, {{.trailing = fmt::to_string(count), .action = actions_.back}}};
}

Sections BrowsePages::groupPage(const CatalogGroup& group) const {
  Sections sections{wayBack(texts_.text(group.nameKey), group.places.size())};
  auto groups = byCategory(group.places);
  if (groups.size() == 1) {
    sections.push_back(rowsFor(group.places, !haveOneCategory(group.places)));
    return sections;
  }
  auto rows = rowsOf(groups);
  std::move(rows.begin(), rows.end(), std::back_inserter(sections));
  return sections;
}

Sections BrowsePages::allPlaces() {
  Sections sections{wayBack(texts_.text("interface.browse.all"), catalog().size())};
  for (const CatalogGroup& group : catalog().groups()) {
    if (catalog().groups().size() > 1)
      sections.push_back({Look::heading, texts_.text(group.nameKey)});
    sections.push_back(rowsFor(group.places, false));
  }
  return sections;
}

Sections BrowsePages::rowsOf(const std::vector<PlaceGroup>& groups) const {
  Sections sections;
  for (const PlaceGroup& group : groups) {
    if (groups.size() > 1)
      sections.push_back({Look::heading, group.title.empty()
                                             ? texts_.text("interface.search.others")
                                             : group.title});
    sections.push_back(rowsFor(group.places, groups.size() == 1));
  }
  return sections;
}

void BrowsePages::describe(Choice& choice) const {
  choice.title = listedName(venue_, *choice.place, texts_);
  choice.trailing = floorLabels(floorsOf(*choice.place));
  choice.kind = words_.kindOf(*choice.place);
}

}  // namespace orivanta::viewer
