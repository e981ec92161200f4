#include "Apps/Command/SearchPlaces.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Command/Table.hpp"
#include "Apps/Text/Json.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/PlaceSearch.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

using Places = std::vector<FoundPlace>;

Places placesIn(const Venue& venue, const std::string& typed, std::size_t most) {
  Places places;
  for (FoundGroup& group : PlaceSearch(venue).search(typed))
    places.insert(places.end(), group.places.begin(), group.places.end());
  if (most > 0) places.resize(std::min(places.size(), most));
  return places;
}

std::string textOf(const Places& places) {
  Table table({Alignment::left, Alignment::left, Alignment::left, Alignment::left});
  for (const FoundPlace& found : places) {
    const PlaceEntry& entry = *found.entry;
    table.add({foundation::printable(entry.place->id.value_or("")), foundation::label(entry.name),
               std::string(wordOf(entry.kind)), floorLabels(entry.floors)});
  }
  return table.text();
}

boost::json::array jsonOf(const Places& places) {
  boost::json::array array;
  for (const FoundPlace& found : places) {
    const PlaceEntry& entry = *found.entry;
    boost::json::array floors;
    for (const auto& floor : entry.floors) floors.emplace_back(floor->id.value_or(""));
    array.push_back({{"id", entry.place->id.value_or("")},
                     {"name", entry.name},
                     {"category", entry.category},
                     {"kind", wordOf(entry.kind)},
                     {"floors", std::move(floors)},
                     {"match", wordOf(found.match)}});
  }
  return array;
}

}  // namespace

ExitCode searchPlaces(const SearchPlacesOptions& options) {
  Session session(options.connection);
  const auto venue = session.loadVenue(
      options.slug, false, {"location", "category", "map", "node", "vortex", "polygon"});
  const std::string typed = fmt::format("{}", fmt::join(options.words, " "));
  const Places places = placesIn(*venue, typed, options.most);
  writeOutput(options.json ? text::jsonText(jsonOf(places)) + '\n' : textOf(places));
  if (!places.empty()) return ExitCode::success;
  complain(fmt::format("nothing found for \"{}\"", typed));
  return ExitCode::notFound;
}

}  // namespace orivanta::command
