#include "Apps/Import/Read/Stations/StationPlaces.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace orivanta::importer {

Names namesOf(const StationFeature& feature) {
  constexpr std::array<std::string_view, 5> unknown = {"不明", "なし", "-", "－", "null"};
  const std::string name(feature["name"]);
  if (name.empty() || std::find(unknown.begin(), unknown.end(), name) != unknown.end()) return {};
  return {name, {{"ja", name}}};
}

void StationPlaces::add(Place place) {
  byName_[place.names.name].push_back(building_.places.size());
  building_.places.push_back(std::move(place));
}

void StationPlaces::addOf(const Door& door, const char* code) {
  constexpr double near = 30.0;
  const std::vector<std::size_t>& same = byName_[door.names.name];
  // A name that very many places have says nothing.
  constexpr std::size_t mostNamesakes = 64;
  const auto end = same.begin() + static_cast<std::ptrdiff_t>(std::min(same.size(), mostNamesakes));
  if (std::any_of(same.begin(), end, [&](std::size_t each) {
        const std::vector<Spot>& spots = building_.places[each].spots;
        return !spots.empty() && spots.front().level == door.level &&
               package::distance(spots.front().position, door.position) < near;
      }))
    return;
  Place place;
  place.id = door.id;
  place.source = door.source;
  place.names = door.names;
  place.category = code;
  place.spots = {{door.level, door.position}};
  add(std::move(place));
}

}  // namespace orivanta::importer
