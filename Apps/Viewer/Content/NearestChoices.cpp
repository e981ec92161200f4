#include "Apps/Viewer/Content/NearestChoices.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Content/CategoryMatch.hpp"
#include "Apps/Viewer/Content/CategoryPlaces.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

// A facility, and the keys of its texts.
struct Facility {
  PlaceKind kind;
  const char* title;
  const char* label;
};

constexpr Facility toilets{PlaceKind::toilet, "interface.nearest.toilet",
                           "interface.nearest.label.toilet"};
constexpr Facility exits{PlaceKind::exit, "interface.nearest.exit", "interface.nearest.label.exit"};
constexpr Facility elevators{PlaceKind::lift, "interface.nearest.elevator",
                             "interface.nearest.label.elevator"};

// Facilities that are recognized by the words of their categories.
constexpr Facility others[] = {
    {PlaceKind::cash, "interface.nearest.cash", "interface.nearest.label.cash"},
    {PlaceKind::information, "interface.nearest.information",
     "interface.nearest.label.information"},
    {PlaceKind::firstAid, "interface.nearest.firstAid", "interface.nearest.label.firstAid"}};

guidance::PlaceList elevatorsOf(const Venue& venue) {
  guidance::PlaceList places;
  for (const auto& connector : *venue.vortices)
    if (!connector->nodes.empty() &&
        guidance::connectorKindOf(connector->type.value_or("")) == guidance::ConnectorKind::lift)
      places.push_back(connector);
  return places;
}

guidance::PlaceList placesOfKind(const Venue& venue, PlaceKind kind) {
  const KindWords words;
  guidance::PlaceList places;
  if (!venue.categories) return places;
  for (const auto& category : *venue.categories) {
    if (words.kindOf(*category) != kind) continue;
    for (const auto& place : placesOf(*category).places)
      if (std::find(places.begin(), places.end(), place) == places.end()) places.push_back(place);
  }
  return places;
}

// Adds what can be chosen.
class ChoiceMaker {
 public:
  ChoiceMaker(const Location* from, const guidance::Closures& closures,
              const guidance::InterfaceTexts& texts)
      : from_(from), closures_(closures), texts_(texts) {}

  // Adds the categories of a facility, unless the route begins at a place of theirs.
  void add(const Facility& facility, const KindCategories& kind) {
    const auto& all = kind.categories;
    if (std::any_of(all.begin(), all.end(),
                    [this](const auto& category) { return isStart(placesOf(*category).places); }))
      return;
    for (const auto& category : all) choices.push_back(nearestOf(category, texts_));
    if (kind.isWholeKind) name(choices.back(), facility);
  }

  // Adds places, unless the route begins at one of them or all are closed.
  void add(const Facility& facility, guidance::PlaceList places) {
    const bool isAnyOpen = std::any_of(places.begin(), places.end(), [this](const auto& place) {
      return !closures_.contains(place->id.value_or(""));
    });
    if (!isAnyOpen || isStart(places)) return;
    choices.push_back({"", std::move(places)});
    name(choices.back(), facility);
  }

  std::vector<NearestChoice> choices;

 private:
  void name(NearestChoice& choice, const Facility& facility) const {
    choice.title = texts_.text(facility.title);
    choice.label = texts_.text(facility.label);
    choice.kind = facility.kind;
  }

  bool isStart(const guidance::PlaceList& places) const {
    return std::any_of(places.begin(), places.end(),
                       [this](const auto& place) { return place.get() == from_; });
  }

  const Location* from_;
  const guidance::Closures& closures_;
  const guidance::InterfaceTexts& texts_;
};

}  // namespace

NearestChoice nearestOf(const std::shared_ptr<Category>& category,
                        const guidance::InterfaceTexts& texts) {
  NearestChoice choice{
      texts.text("interface.nearest", {{"category", texts.name(category->name.value_or(""))}}),
      category, foundation::label(category->name.value_or("")), KindWords().kindOf(*category)};
  if (auto found = placesOf(*category); found.omitsExits) choice.stop = std::move(found.places);
  return choice;
}

std::vector<NearestChoice> nearestChoices(const Venue& venue, const Location* from,
                                          const guidance::Closures& closures,
                                          const guidance::InterfaceTexts& texts) {
  ChoiceMaker maker(from, closures, texts);
  maker.add(toilets, categoriesOfKind(venue, NamedKind::toilet));
  auto ways = categoriesOfKind(venue, NamedKind::exit);
  if (ways.categories.empty()) ways = categoriesOfKind(venue, NamedKind::entrance);
  maker.add(exits, ways);
  maker.add(elevators, elevatorsOf(venue));
  for (const Facility& each : others) maker.add(each, placesOfKind(venue, each.kind));
  return std::move(maker.choices);
}

}  // namespace orivanta::viewer
