#include "Apps/Web/VisitorJson.hpp"

#include <algorithm>
#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/value_to.hpp>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "Apps/Viewer/Content/CardContent.hpp"
#include "Apps/Viewer/Content/CategoryMatch.hpp"
#include "Apps/Viewer/Content/CategoryPlaces.hpp"
#include "Apps/Viewer/Content/KindLookup.hpp"
#include "Apps/Viewer/Content/NearestChoices.hpp"
#include "Apps/Viewer/Content/PlaceCatalog.hpp"
#include "Apps/Viewer/Content/ShownName.hpp"
#include "Apps/Web/IconJson.hpp"
#include "Apps/Web/QueryReading.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::web {

namespace json = boost::json;
using guidance::InterfaceTexts;

namespace {

using Place = std::shared_ptr<Location>;

constexpr std::int64_t pictureSize = 320;  // points

std::string textAt(const json::object& object, const char* name) {
  const json::value* const member = object.if_contains(name);
  return member == nullptr || member->is_null() ? "" : json::value_to<std::string>(*member);
}

guidance::Closures closuresIn(const json::object& object) {
  const json::value* const member = object.if_contains("closed");
  if (member == nullptr || member->is_null()) return {};
  return guidance::Closures(json::value_to<std::vector<std::string>>(*member));
}

Place placeNamed(const Venue& venue, const std::string& identifier) {
  const auto found = [&](const auto& list) -> Place {
    if (!list) return nullptr;
    const auto each = std::find_if(list->begin(), list->end(),
                                   [&](const auto& place) { return place->id == identifier; });
    return each == list->end() ? nullptr : Place(*each);
  };
  Place place = found(venue.locations);
  return place ? place : found(venue.vortices);
}

json::array identifiersOf(const std::vector<Place>& places) {
  json::array array;
  array.reserve(places.size());
  for (const auto& place : places) array.push_back(json::value(*place->id));
  return array;
}

std::string firstCategory(const Location& place) {
  if (place.categories.empty()) return {};
  return foundation::label(place.categories.front()->name.value_or(""));
}

json::object catalogJson(const Venue& venue, const InterfaceTexts& texts) {
  const KindWords words;
  const viewer::PlaceCatalog catalog(venue, words);
  viewer::KindLookup kinds(words);
  json::array groups;
  json::array places;
  places.reserve(catalog.size());
  for (const auto& group : catalog.groups()) {
    json::array sections;
    for (const auto& section : viewer::byCategory(group.places))
      sections.push_back(
          json::object{{"title", section.title}, {"places", identifiersOf(section.places)}});
    groups.push_back(json::object{{"kind", wordOf(group.kind)},
                                  {"name", texts.text(group.nameKey)},
                                  {"places", identifiersOf(group.places)},
                                  {"sections", std::move(sections)}});
    for (const auto& place : group.places)
      places.push_back(json::object{{"id", *place->id},
                                    {"name", viewer::listedName(venue, *place, texts)},
                                    {"kind", wordOf(kinds.of(*place))},
                                    {"category", firstCategory(*place)},
                                    {"floors", floorLabels(floorsOf(*place))}});
  }
  return {{"groups", std::move(groups)}, {"places", std::move(places)}};
}

json::object nearestJson(const viewer::NearestChoice& choice) {
  json::object object{
      {"title", choice.title}, {"label", choice.label}, {"kind", wordOf(choice.kind)}};
  if (const auto* category = std::get_if<std::shared_ptr<Category>>(&choice.stop)) {
    object["key"] = *(*category)->id;
    object["places"] = identifiersOf(viewer::placesOf(**category).places);
  } else {
    object["key"] = wordOf(choice.kind);
    object["places"] = identifiersOf(std::get<guidance::PlaceList>(choice.stop));
  }
  return object;
}

template <class Choices>
json::array nearestList(const Choices& choices) {
  json::array array;
  for (const auto& choice : choices) array.push_back(nearestJson(choice));
  return array;
}

json::value pictureOf(const Location& place) {
  const auto& pictures = place.picture ? place.picture : place.logo;
  return pictures ? json::value((*pictures)[pictureSize].absoluteString()) : json::value(nullptr);
}

json::object cardJson(const Location& place, const viewer::CardContext& context) {
  const viewer::CardContent content = cardContent(place, context);
  json::array week;
  for (const auto& [day, hours] : content.week)
    week.push_back(json::object{{"day", day}, {"hours", hours}});
  return {{"title", content.title},
          {"detail", content.detail},
          {"kind", wordOf(content.kind)},
          {"state", content.state},
          {"isClosed", content.isClosed},
          {"isOutOfOrder", content.isOutOfOrder},
          {"week", std::move(week)},
          {"hours", content.hours},
          {"phone", place._data["phone"].stringValue()},
          {"website", place._data["website"].stringValue()},
          {"description", content.description},
          {"picture", pictureOf(place)}};
}

}  // namespace

json::value visitorJson(LoadedVenue& loaded, std::string_view request) {
  const json::object object = objectIn(request);
  const Venue& venue = loaded.venue();
  if (textAt(object, "what") == "icons") return iconsJson(textAt(object, "theme") == "dark");
  const InterfaceTexts texts(textAt(object, "language"));
  const std::string what = textAt(object, "what");
  if (what == "catalog") return catalogJson(venue, texts);
  if (what == "typed") {
    json::array array;
    for (const auto& category : viewer::categoriesTyped(venue, textAt(object, "text")))
      array.push_back(nearestJson(viewer::nearestOf(category, texts)));
    return array;
  }
  const guidance::Closures closures = closuresIn(object);
  const Place place = placeNamed(venue, textAt(object, "place"));
  if (what == "nearest")
    return nearestList(viewer::nearestChoices(venue, place.get(), closures, texts));
  if (!place) return nullptr;
  const auto now = guidance::LocalTime::parse(textAt(object, "now"));
  const KindWords words;
  return cardJson(*place, {venue, closures, now.value_or(guidance::LocalTime()), texts, words});
}

}  // namespace orivanta::web
