#include "Apps/Web/VenueJson.hpp"

#include <utility>

#include "Source/Attribution.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

json::value textOrNull(const std::optional<std::string>& text) {
  return text ? json::value(*text) : json::value(nullptr);
}

// Applies `write` to each record of a list that may be absent.
template <class List, class Write>
json::array listed(const std::optional<List>& records, Write write) {
  json::array array;
  if (!records) return array;
  array.reserve(records->size());
  for (const auto& record : *records) array.push_back(write(*record));
  return array;
}

json::array indicesOf(const LoadedVenue& venue, const FloorList& floors) {
  json::array array;
  for (const auto& floor : floors) array.push_back(venue.indexOf(floor));
  return array;
}

json::object placeJson(const LoadedVenue& venue, const Location& place) {
  json::array categories;
  for (const auto& category : place.categories) categories.push_back(json::value(*category->id));
  json::array nodes;
  for (const auto& node : place.nodes) nodes.push_back(venue.indexOf(*node));
  return {{"id", *place.id},
          {"name", *place.name},
          {"type", *place.type},
          {"description", textOrNull(place.description)},
          {"categories", std::move(categories)},
          {"floors", indicesOf(venue, floorsOf(place))},
          {"nodes", std::move(nodes)}};
}

json::object connectorJson(const LoadedVenue& venue, const Vortex& connector) {
  json::object object = placeJson(venue, connector);
  object["accessible"] = connector.accessible;
  return object;
}

json::object floorJson(const Map& floor) {
  return {{"id", *floor.id},
          {"name", floor.name},
          {"shortName", floor.shortName},
          {"elevation", floor.elevation}};
}

}  // namespace

json::object venueJson(const Venue& venue) {
  return {{"id", *venue.id}, {"slug", *venue.slug}, {"name", *venue.name}};
}

json::object recordsJson(const LoadedVenue& loaded) {
  const Venue& venue = loaded.venue();
  json::object object = venueJson(venue);
  object["floors"] = listed(venue.maps, floorJson);
  object["places"] =
      listed(venue.locations, [&](const Location& place) { return placeJson(loaded, place); });
  object["connectors"] =
      listed(venue.vortices, [&](const Vortex& each) { return connectorJson(loaded, each); });
  object["categories"] = listed(venue.categories, [](const Category& category) {
    return json::object{{"id", *category.id}, {"name", *category.name}};
  });
  object["nodes"] = listed(venue.nodes, [](const Node& node) { return json::value(*node.id); });
  object["attribution"] = attributionText(venue);
  object["unitsPerMeter"] = guidance::unitsPerMeterOf(venue).value_or(1);
  return object;
}

json::array foundJson(LoadedVenue& venue, std::string_view text) {
  json::array array;
  for (const FoundGroup& group : venue.search().search(text))
    for (const FoundPlace& found : group.places) {
      const PlaceEntry& entry = *found.entry;
      array.push_back(json::object{{"id", *entry.place->id},
                                   {"name", entry.name},
                                   {"category", entry.category},
                                   {"kind", wordOf(entry.kind)},
                                   {"match", wordOf(found.match)},
                                   {"floors", indicesOf(venue, entry.floors)}});
    }
  return array;
}

}  // namespace orivanta::web
