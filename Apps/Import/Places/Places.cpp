#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Import/Places/GeneratedNames.hpp"
#include "Apps/Import/Stages.hpp"
#include "Source/Guidance/OpeningHours.hpp"

namespace orivanta::importer {

namespace {

// Makes the preferred language the main one of every name that has it.
void preferLanguages(Building& building, const Options& options) {
  std::vector<std::string> languages = options.languages;
  if (!building.language.empty()) languages.push_back(building.language);
  preferLanguage(languages, building.names);
  for (Storey& storey : building.storeys) preferLanguage(languages, storey.names);
  for (Place& place : building.places) preferLanguage(languages, place.names);
  for (Door& door : building.doors) preferLanguage(languages, door.names);
  for (Line& line : building.lines) preferLanguage(languages, line.names);
  for (Area& area : building.areas) preferLanguage(languages, area.names);
  for (ConnectorHint& hint : building.connectorHints) preferLanguage(languages, hint.names);
  if (!options.languages.empty()) building.language = options.languages.front();
}

// Makes `Area::place` and `Place::areas` agree, and forgets areas that do not exist.
void joinAreas(Building& building) {
  std::map<std::string, Area*> areas;
  for (Area& area : building.areas) areas.emplace(area.id, &area);
  std::map<std::string, Place*> places;
  for (Place& place : building.places) {
    places.emplace(place.id, &place);
    std::erase_if(place.areas, [&](const std::string& id) { return !areas.contains(id); });
    for (const std::string& id : place.areas)
      if (areas[id]->place.empty()) areas[id]->place = place.id;
  }
  for (Area& area : building.areas) {
    if (area.place.empty()) continue;
    const auto place = places.find(area.place);
    if (place == places.end()) {
      area.place.clear();
      continue;
    }
    std::vector<std::string>& list = place->second->areas;
    if (std::find(list.begin(), list.end(), area.id) == list.end()) list.push_back(area.id);
  }
}

// Each room is a destination. A room on several levels is one place.
void makePlacesOfRooms(Building& building) {
  std::map<std::string, std::size_t> bySource;
  std::set<std::string> taken;
  for (const Place& place : building.places) taken.insert(place.id);
  for (Area& area : building.areas) {
    if (area.kind != AreaKind::room || !area.place.empty() || area.access == Access::nobody)
      continue;
    const std::string& source = area.source.empty() ? area.id : area.source;
    const auto [entry, added] = bySource.emplace(source, building.places.size());
    if (added) {
      Place place;
      place.id = taken.contains(source) ? area.id : source;
      place.source = source;
      place.category = area.category;
      place.access = area.access;
      place.wheelchair = area.wheelchair;
      taken.insert(place.id);
      building.places.push_back(std::move(place));
    }
    Place& place = building.places[entry->second];
    area.place = place.id;
    place.areas.push_back(area.id);
  }
}

void dropUnplaced(Building& building, Findings& findings) {
  std::set<std::string> dropped;
  for (const Place& place : building.places) {
    if (place.access == Access::nobody) {
      dropped.insert(place.id);
    } else if (place.areas.empty() && place.spots.empty()) {
      dropped.insert(place.id);
      findings.add({.rule = "place-without-position",
                    .source = place.source,
                    .message = fmt::format("The place \"{}\" lies nowhere.", place.names.name),
                    .effect = "It is left out.",
                    .advice = "Give it a position or the room that it is in."});
    }
  }
  std::erase_if(building.places, [&](const Place& place) { return dropped.contains(place.id); });
  for (Area& area : building.areas)
    if (dropped.contains(area.place)) area.place.clear();
}

void completeCategories(Building& building) {
  std::map<std::string, const Area*> areas;
  for (const Area& area : building.areas) areas.emplace(area.id, &area);
  for (Place& place : building.places)
    for (const std::string& id : place.areas)
      if (place.category.empty()) place.category = areas.at(id)->category;
}

void reportUnknownCategories(const Building& building, Findings& findings) {
  std::map<std::string, std::vector<const Place*>> unknown;
  for (const Place& place : building.places)
    if (!matchCategory(place.category).unknown.empty()) unknown[place.category].push_back(&place);
  for (const auto& [value, places] : unknown) {
    const CategoryMatch match = matchCategory(value);
    findings.add({.severity = Severity::info,
                  .rule = "category-unknown",
                  .source = places.front()->source,
                  .message = fmt::format("The category \"{}\" of {} {} is not known.", value,
                                         places.size(), places.size() == 1 ? "place" : "places"),
                  .effect = fmt::format("The category \"{}\" within \"{}\" is made for it.",
                                        match.unknown, match.category->names.front()),
                  .advice = "If the value is misspelled, correct it in the source."});
  }
}

void checkHours(const Building& building, Findings& findings) {
  for (const Place& place : building.places) {
    if (place.hours.empty() || guidance::OpeningHours::parse(place.hours)) continue;
    findings.add({.rule = "hours-unreadable",
                  .source = place.source,
                  .message = fmt::format("The opening hours \"{}\" of \"{}\" cannot be read.",
                                         place.hours, place.names.name),
                  .effect = "The place counts as open at all times.",
                  .advice = "Write them like \"Mo-Fr 09:00-18:00; Sa 10:00-14:00\"."});
  }
}

}  // namespace

void arrangePlaces(Building& building, const Options& options, Findings& findings) {
  preferLanguages(building, options);
  joinAreas(building);
  makePlacesOfRooms(building);
  completeCategories(building);
  dropUnplaced(building, findings);
  for (Place& place : building.places)
    if (place.names.name.empty()) place.names = generatedName(place.category, building.language);
  reportUnknownCategories(building, findings);
  checkHours(building, findings);
}

}  // namespace orivanta::importer
