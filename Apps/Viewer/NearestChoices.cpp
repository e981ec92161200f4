#include "Apps/Viewer/NearestChoices.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/CategoryMatch.hpp"
#include "Apps/Viewer/CategoryPlaces.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

bool isElevator(const Vortex& connector) {
  return guidance::connectorKindOf(connector.type.value_or("")) == guidance::ConnectorKind::lift;
}

// Returns the elevators, or nothing if all are closed.
guidance::PlaceList elevatorsOf(const Venue& venue, const guidance::Closures& closures) {
  guidance::PlaceList elevators;
  bool isAnyOpen = false;
  for (const auto& connector : *venue.vortices) {
    if (!isElevator(*connector) || connector->nodes.empty()) continue;
    elevators.push_back(connector);
    isAnyOpen = isAnyOpen || !closures.contains(connector->id.value_or(""));
  }
  if (!isAnyOpen) elevators.clear();
  return elevators;
}

bool isAmong(const Location& place, const Category& category) {
  const auto places = placesOf(category).places;
  return std::any_of(places.begin(), places.end(),
                     [&](const auto& other) { return other.get() == &place; });
}

}  // namespace

NearestChoice nearestOf(const std::shared_ptr<Category>& category,
                        const guidance::InterfaceTexts& texts) {
  NearestChoice choice{
      texts.text("interface.nearest", {{"category", texts.name(category->name.value_or(""))}}),
      category};
  if (auto found = placesOf(*category); found.omitsExits) choice.stop = std::move(found.places);
  return choice;
}

std::vector<NearestChoice> nearestChoices(const Venue& venue, const Location& place,
                                          const guidance::Closures& closures,
                                          const guidance::InterfaceTexts& texts) {
  std::vector<NearestChoice> choices;
  const auto offer = [&](const KindCategories& kind, const char* titleKey) {
    const auto& all = kind.categories;
    if (std::any_of(all.begin(), all.end(),
                    [&](const auto& each) { return isAmong(place, *each); }))
      return;
    for (const auto& category : all) choices.push_back(nearestOf(category, texts));
    if (kind.isWholeKind) choices.back().title = texts.text(titleKey);
  };
  offer(categoriesOfKind(venue, NamedKind::toilet), "interface.nearest.toilet");
  auto exits = categoriesOfKind(venue, NamedKind::exit);
  if (exits.categories.empty()) exits = categoriesOfKind(venue, NamedKind::entrance);
  offer(exits, "interface.nearest.exit");
  if (auto elevators = elevatorsOf(venue, closures); !elevators.empty())
    choices.push_back({texts.text("interface.nearest.elevator"), std::move(elevators)});
  return choices;
}

}  // namespace orivanta::viewer
