#include "Apps/Import/Fixes/Fixes.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json.hpp>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Projection.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Package/Records.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

std::optional<double> numberIn(const json::object& object, std::string_view key) {
  const json::value* value = object.if_contains(key);
  if (value == nullptr || !value->is_number()) return std::nullopt;
  return value->to_number<double>();
}

std::optional<AreaKind> areaKindOf(std::string_view word) {
  constexpr std::pair<std::string_view, AreaKind> words[] = {
      {"room", AreaKind::room},
      {"corridor", AreaKind::walkway},
      {"walkway", AreaKind::walkway},
      {"stairs", AreaKind::stairs},
      {"escalator", AreaKind::escalator},
      {"elevator", AreaKind::elevator},
      {"lift", AreaKind::elevator},
      {"ramp", AreaKind::ramp},
      {"moving-walkway", AreaKind::movingWalkway},
      {"opening", AreaKind::opening},
      {"wall", AreaKind::wall},
      {"obstacle", AreaKind::obstacle}};
  for (const auto& [name, kind] : words)
    if (name == word) return kind;
  return std::nullopt;
}

ConnectorKind connectorKindOf(AreaKind kind) {
  switch (kind) {
    case AreaKind::escalator:
      return ConnectorKind::escalator;
    case AreaKind::elevator:
      return ConnectorKind::elevator;
    case AreaKind::ramp:
      return ConnectorKind::ramp;
    case AreaKind::movingWalkway:
      return ConnectorKind::movingWalkway;
    default:
      return ConnectorKind::stairs;
  }
}

// The middle of the border that two areas share.
std::optional<Point> commonBorder(const Area& area, const Area& other) {
  constexpr double step = 0.2;
  constexpr double close = 0.4;
  std::vector<Point> shared;
  for (const Polygon& polygon : area.shape)
    for (std::size_t i = 0; i < polygon.outer.size(); ++i) {
      const Point a = polygon.outer[i];
      const Point way = polygon.outer[(i + 1) % polygon.outer.size()] - a;
      const int count = std::clamp(static_cast<int>(package::length(way) / step), 1, 1000);
      for (int k = 0; k < count; ++k) {
        const Point point = a + way * ((k + 0.5) / count);
        if (std::any_of(other.shape.begin(), other.shape.end(), [&](const Polygon& candidate) {
              return package::distanceToBorder(candidate.outer, point) < close;
            }))
          shared.push_back(point);
      }
    }
  if (shared.empty()) return std::nullopt;
  Point sum;
  for (const Point point : shared) sum = sum + point;
  const Point mean = sum * (1.0 / static_cast<double>(shared.size()));
  return *std::min_element(shared.begin(), shared.end(), [&](Point a, Point b) {
    return package::distance(a, mean) < package::distance(b, mean);
  });
}

// Applies the corrections of one file.
class Corrector {
 public:
  Corrector(Building& building, const std::string& file, Findings& findings)
      : building_(building), file_(file), findings_(findings) {}

  void apply(const std::string& id, const json::value& value) {
    id_ = id;
    if (!value.is_object()) return complain("", "is no object with corrections");
    if (!exists()) {
      add("fix-unknown-id", "", fmt::format("The source has no record \"{}\".", id),
          "Check whether the source has changed, and correct or remove the entry.");
      return;
    }
    // The kind of an area decides which kind of connector it joins.
    if (const json::value* kind = value.get_object().if_contains("kind")) applyKind(*kind);
    for (const auto& member : value.get_object()) {
      const std::string_view key(member.key().data(), member.key().size());
      if (key != "note" && key != "kind") applyMember(key, member.value());
    }
  }

  void finish() {
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

 private:
  template <class Record>
  bool isMeant(const Record& record) const {
    return record.source == id_ || record.id == id_;
  }

  bool exists() const {
    const auto any = [&](const auto& records) {
      return std::any_of(records.begin(), records.end(),
                         [&](const auto& record) { return isMeant(record); });
    };
    return any(building_.areas) || any(building_.doors) || any(building_.lines) ||
           any(building_.places) || any(building_.connectorHints) ||
           std::any_of(building_.storeys.begin(), building_.storeys.end(),
                       [&](const Storey& storey) { return storey.id == id_; }) ||
           std::any_of(building_.sourceLinks.begin(), building_.sourceLinks.end(),
                       [&](const SourceLink& link) { return link.id == id_; });
  }

  std::vector<Area*> areasOf(const std::string& id) {
    std::vector<Area*> areas;
    for (Area& area : building_.areas)
      if (area.source == id || area.id == id) areas.push_back(&area);
    return areas;
  }

  void add(const char* rule, std::string_view field, std::string message, std::string advice) {
    Finding finding = makeFinding(Severity::warning, rule, id_,
                                  {.message = std::move(message),
                                   .effect = "The correction is ignored.",
                                   .advice = std::move(advice)});
    finding.file = file_;
    finding.field = std::string(field);
    findings_.add(std::move(finding));
  }

  void complain(std::string_view field, std::string_view what) {
    add("fix-unusable", field,
        field.empty() ? fmt::format("The correction of \"{}\" {}.", id_, what)
                      : fmt::format("\"{}\" of \"{}\" {}.", field, id_, what),
        "See `orivanta import --help` for what a correction may contain.");
  }

  void applyMember(std::string_view key, const json::value& value) {
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

  void applyKind(const json::value& value) {
    const auto kind = value.is_string() ? areaKindOf(value.get_string()) : std::nullopt;
    if (!kind) return complain("kind", "is no kind of area, such as \"room\" or \"corridor\"");
    for (Area* area : areasOf(id_)) area->kind = *kind;
  }

  // The places of the record. A room without one gets its own.
  std::vector<Place*> placesMeant() {
    std::set<std::string> ids;
    for (Area* area : areasOf(id_)) {
      if (area->place.empty()) {
        area->place = area->source.empty() ? area->id : area->source;
        if (std::none_of(building_.places.begin(), building_.places.end(),
                         [&](const Place& place) { return place.id == area->place; })) {
          Place place;
          place.id = area->place;
          place.source = area->source;
          place.category = area->category;
          building_.places.push_back(std::move(place));
        }
      }
      ids.insert(area->place);
    }
    std::vector<Place*> places;
    for (Place& place : building_.places)
      if (isMeant(place) || ids.contains(place.id)) places.push_back(&place);
    return places;
  }

  void applyName(const json::value& value) {
    Names names;
    if (value.is_string()) {
      names.name = value.get_string();
    } else if (value.is_object()) {
      for (const auto& member : value.get_object())
        if (member.value().is_string())
          names.byLanguage[member.key()] = member.value().get_string();
    } else {
      return complain("name", "is neither a text nor an object of texts by language");
    }
    for (Storey& storey : building_.storeys)
      if (storey.id == id_) storey.names = names;
    for (Door& door : building_.doors)
      if (isMeant(door)) door.names = names;
    for (Line& line : building_.lines)
      if (isMeant(line)) line.names = names;
    for (ConnectorHint& hint : building_.connectorHints)
      if (isMeant(hint)) hint.names = names;
    for (Place* place : placesMeant()) place->names = names;
  }

  std::optional<Point> pointOf(const json::object& object) const {
    const auto latitude = numberIn(object, "latitude");
    const auto longitude = numberIn(object, "longitude");
    if (latitude && longitude && building_.georeference)
      return Projection(*building_.georeference).toPlane(*longitude, *latitude);
    const auto x = numberIn(object, "x");
    const auto y = numberIn(object, "y");
    if (x && y) return Point{*x, *y};
    return std::nullopt;
  }

  void addDoor(const Area& area, Point position, std::vector<std::string> areas) {
    Door door;
    door.id = fmt::format("fix-{}", area.id);
    while (std::any_of(building_.doors.begin(), building_.doors.end(),
                       [&](const Door& other) { return other.id == door.id; }))
      door.id += "-2";
    door.source = id_;
    door.level = area.level;
    door.position = position;
    door.areas = std::move(areas);
    building_.doors.push_back(std::move(door));
  }

  void applyDoor(const json::value& value) {
    const std::vector<Area*> areas = areasOf(id_);
    if (areas.empty()) return complain("door", "can only be given to an area");
    bool made = false;
    for (const Area* area : areas) {
      if (value.is_object()) {
        const json::object& object = value.get_object();
        const auto point = pointOf(object);
        const auto level = numberIn(object, "level");
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

  void applyJoins(const json::value& value) {
    if (!value.is_array()) return complain("joins", "is no list");
    const std::vector<Area*> areas = areasOf(id_);
    ConnectorHint hint;
    hint.id = fmt::format("fix-{}", id_);
    hint.source = id_;
    if (!areas.empty()) hint.kind = connectorKindOf(areas.front()->kind);
    for (const Area* area : areas) hint.areas.push_back(area->id);
    for (const json::value& end : value.get_array()) {
      if (end.is_string()) {
        const std::vector<Area*> others = areasOf(std::string(end.get_string()));
        if (others.empty())
          complain("joins", fmt::format("names the unknown area \"{}\"",
                                        std::string_view(end.get_string())));
        for (const Area* other : others) hint.areas.push_back(other->id);
      } else if (end.is_object() && numberIn(end.get_object(), "level") &&
                 pointOf(end.get_object())) {
        hint.spots.push_back({*numberIn(end.get_object(), "level"), *pointOf(end.get_object())});
      } else {
        complain("joins",
                 "contains an end that is neither the identifier of an area nor a "
                 "\"level\" with a position");
      }
    }
    std::stable_sort(hint.spots.begin(), hint.spots.end(),
                     [](const Spot& a, const Spot& b) { return a.level < b.level; });
    building_.connectorHints.push_back(std::move(hint));
  }

  Building& building_;
  const std::string& file_;
  Findings& findings_;
  std::string id_;
  std::set<std::string> ignored_;
};

}  // namespace

void applyFixes(Building& building, const std::string& text, const std::string& name,
                Findings& findings) {
  json::error_code error;
  const json::value value = json::parse(text, error);
  if (error)
    throw SourceError(
        fmt::format("{}: not JSON: {}; corrections are a JSON object from "
                    "identifiers to objects",
                    name, error.message()));
  if (!value.is_object())
    throw SourceError(fmt::format("{}: not a JSON object from identifiers to corrections", name));
  Corrector corrector(building, name, findings);
  for (const auto& member : value.get_object()) corrector.apply(member.key(), member.value());
  corrector.finish();
}

std::string fixesSkeleton(const std::vector<Finding>& findings) {
  std::string text = "{\n";
  std::set<std::string> done;
  for (const Finding& finding : findings) {
    if (finding.source.empty() || !done.insert(finding.source).second) continue;
    if (done.size() > 1) text += ",\n";
    text += fmt::format("  {}: {}", json::serialize(json::value(finding.source)),
                        package::jsonLine(json::object{{"note", finding.message}}));
  }
  return text + (done.empty() ? "}\n" : "\n}\n");
}

}  // namespace orivanta::importer
