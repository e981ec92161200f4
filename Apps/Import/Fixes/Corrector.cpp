#include "Apps/Import/Fixes/Corrector.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Import/Fixes/CommonBorder.hpp"
#include "Apps/Import/Fixes/FixValues.hpp"
#include "Apps/Import/Projection.hpp"

namespace orivanta::importer {

namespace json = boost::json;

Corrector::Corrector(Building& building, const std::string& file, Findings& findings)
    : building_(building),
      file_(file),
      findings_(findings),
      storeys_(building.storeys),
      areas_(building.areas),
      doors_(building.doors),
      lines_(building.lines),
      places_(building.places),
      hints_(building.connectorHints),
      links_(building.sourceLinks) {}

bool Corrector::apply(const std::string& id, const json::object& corrections) {
  id_ = id;
  if (!exists()) return false;
  // The kind of an area decides what its name belongs to, and which kind of connector it joins.
  if (const json::value* kind = corrections.if_contains("kind")) applyKind(*kind);
  for (const auto& member : corrections) {
    const std::string_view key(member.key().data(), member.key().size());
    if (key != "note" && key != "kind") applyMember(key, member.value());
  }
  return true;
}

void Corrector::finish() {
  const auto ignored = [&](const auto& record) {
    return ignored_.contains(record.source) || ignored_.contains(record.id);
  };
  std::erase_if(building_.areas, ignored);
  std::erase_if(building_.doors, ignored);
  std::erase_if(building_.lines, ignored);
  std::erase_if(building_.places, ignored);
  std::erase_if(building_.connectorHints, ignored);
  std::erase_if(building_.sourceLinks,
                [&](const SourceLink& link) { return ignored_.contains(link.id); });
}

bool Corrector::exists() const {
  const auto indexes = {&storeys_, &areas_, &doors_, &lines_, &places_, &hints_, &links_};
  return std::any_of(indexes.begin(), indexes.end(),
                     [&](const IdIndex* index) { return index->contains(id_); });
}

std::vector<Area*> Corrector::areasOf(const std::string& id) {
  std::vector<Area*> areas;
  for (const std::size_t i : areas_.of(id)) areas.push_back(&building_.areas[i]);
  return areas;
}

void Corrector::complain(std::string_view field, std::string_view what) {
  addIgnoredFix(findings_, "fix-unusable", file_, id_, field,
                fmt::format("\"{}\" of \"{}\" {}.", field, id_, what),
                "See `orivanta import --help` for what a correction may contain.");
}

void Corrector::applyMember(std::string_view key, const json::value& value) {
  if (key == "ignore") {
    if (!value.is_bool()) return complain(key, "is neither true nor false");
    if (value.get_bool()) ignored_.insert(id_);
  } else if (key == "name") {
    applyName(value);
  } else if (key == "hours") {
    if (!value.is_string()) return complain(key, "is no text");
    for (Place* place : placesMeant()) place->hours = value.get_string();
  } else if (key == "door") {
    applyDoor(value);
  } else if (key == "joins") {
    applyJoins(value);
  } else {
    complain(key, "is no known correction");
  }
}

void Corrector::applyKind(const json::value& value) {
  const auto kind = value.is_string() ? fixedKind(value.get_string()) : std::nullopt;
  if (!kind) return complain("kind", "is no kind of area, such as \"room\" or \"corridor\"");
  for (Area* area : areasOf(id_)) area->kind = *kind;
}

void Corrector::makePlaceOf(Area& area) {
  area.place = area.source.empty() ? area.id : area.source;
  const auto& same = places_.of(area.place);
  if (std::any_of(same.begin(), same.end(),
                  [&](std::size_t i) { return building_.places[i].id == area.place; }))
    return;
  Place place;
  place.id = area.place;
  place.source = area.source;
  place.category = area.category;
  places_.add(place, building_.places.size());
  building_.places.push_back(std::move(place));
}

// The places of the record. A room without one gets its own; a connector has none.
std::vector<Place*> Corrector::placesMeant() {
  std::set<std::size_t> meant;
  for (Area* area : areasOf(id_)) {
    if (isConnector(area->kind)) continue;
    if (area->place.empty()) makePlaceOf(*area);
    for (const std::size_t i : places_.of(area->place))
      if (building_.places[i].id == area->place) meant.insert(i);
  }
  for (const std::size_t i : places_.of(id_)) meant.insert(i);
  std::vector<Place*> places;
  places.reserve(meant.size());
  for (const std::size_t i : meant) places.push_back(&building_.places[i]);
  return places;
}

void Corrector::applyName(const json::value& value) {
  const auto names = namesIn(value);
  if (!names) return complain("name", "is neither a text nor an object of texts by language");
  const auto rename = [&](auto& records, const IdIndex& index) {
    for (const std::size_t i : index.of(id_)) records[i].names = *names;
  };
  rename(building_.storeys, storeys_);
  rename(building_.doors, doors_);
  rename(building_.lines, lines_);
  rename(building_.connectorHints, hints_);
  for (Area* area : areasOf(id_))
    if (isConnector(area->kind)) area->names = *names;
  for (Place* place : placesMeant()) place->names = *names;
}

std::optional<Point> Corrector::pointOf(const json::object& object) const {
  const auto latitude = fixNumber(object, "latitude");
  const auto longitude = fixNumber(object, "longitude");
  if (latitude && longitude && building_.georeference)
    return Projection(*building_.georeference).toPlane(*longitude, *latitude);
  const auto x = fixNumber(object, "x");
  const auto y = fixNumber(object, "y");
  if (x && y) return Point{*x, *y};
  return std::nullopt;
}

void Corrector::addDoor(const Area& area, Point position, std::vector<std::string> areas) {
  Door door;
  door.id = fmt::format("fix-{}", area.id);
  while (doors_.contains(door.id)) door.id += "-2";
  door.source = id_;
  door.level = area.level;
  door.position = position;
  door.areas = std::move(areas);
  doors_.add(door, building_.doors.size());
  building_.doors.push_back(std::move(door));
}

void Corrector::applyDoor(const json::value& value) {
  const std::vector<Area*> areas = areasOf(id_);
  if (areas.empty()) return complain("door", "can only be given to an area");
  bool made = false;
  for (const Area* area : areas) {
    if (value.is_object()) {
      const json::object& object = value.get_object();
      const auto point = pointOf(object);
      const auto level = fixNumber(object, "level");
      if (!point || (level && *level != area->level)) continue;
      addDoor(*area, *point, {area->id});
      made = true;
    } else if (value.is_string()) {
      for (const Area* other : areasOf(std::string(value.get_string()))) {
        if (other->level != area->level) continue;
        const auto point = commonBorder(*area, *other);
        if (!point) continue;
        addDoor(*area, *point, {area->id, other->id});
        made = true;
      }
    }
  }
  if (!made)
    complain("door",
             "is neither a position (\"latitude\" and \"longitude\", or \"x\" and \"y\" in "
             "meters) nor the identifier of a neighboring area");
}

void Corrector::addEnd(const json::value& end, ConnectorHint& hint) {
  if (end.is_string()) {
    const std::vector<Area*> others = areasOf(std::string(end.get_string()));
    if (others.empty())
      complain("joins",
               fmt::format("names the unknown area \"{}\"", std::string_view(end.get_string())));
    for (const Area* other : others) hint.areas.push_back(other->id);
    return;
  }
  if (end.is_object()) {
    const auto level = fixNumber(end.get_object(), "level");
    const auto point = pointOf(end.get_object());
    if (level && point) return hint.spots.push_back({*level, *point});
  }
  complain("joins",
           "contains an end that is neither the identifier of an area nor a "
           "\"level\" with a position");
}

void Corrector::applyJoins(const json::value& value) {
  if (!value.is_array()) return complain("joins", "is no list");
  const std::vector<Area*> areas = areasOf(id_);
  ConnectorHint hint;
  hint.id = fmt::format("fix-{}", id_);
  hint.source = id_;
  if (!areas.empty()) hint.kind = connectorKindOf(areas.front()->kind);
  for (const Area* area : areas) hint.areas.push_back(area->id);
  for (const json::value& end : value.get_array()) addEnd(end, hint);
  std::stable_sort(hint.spots.begin(), hint.spots.end(),
                   [](const Spot& a, const Spot& b) { return a.level < b.level; });
  building_.connectorHints.push_back(std::move(hint));
}

}  // namespace orivanta::importer
