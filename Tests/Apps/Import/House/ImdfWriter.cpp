#include <fmt/format.h>

#include <algorithm>
#include <boost/json.hpp>
#include <map>

#include "Platform/Foundation/Fnv.hpp"
#include "Tests/Apps/Import/House/Geographic.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer::house {

namespace json = boost::json;

namespace {

std::string uuid(const std::string& id) {
  const auto hash = static_cast<unsigned long>(foundation::Fnv::of(id));
  return fmt::format("{:08x}-0000-4000-8000-{:012x}", hash >> 32U, hash & 0xFFFFFFFFFFFFUL);
}

json::array position(Point meters) {
  const Point degrees = toDegrees(meters);
  return {degrees.x, degrees.y};
}

json::array ring(const Outline& outline) {
  json::array points;
  for (const Point point : outline) points.push_back(position(point));
  points.push_back(position(outline.front()));
  return points;
}

json::object polygon(const Polygon& shape) {
  json::array rings = {ring(shape.outer)};
  for (const Outline& hole : shape.holes) rings.push_back(ring(hole));
  return {{"type", "Polygon"}, {"coordinates", std::move(rings)}};
}

json::object point(Point meters) { return {{"type", "Point"}, {"coordinates", position(meters)}}; }

json::value labels(const Names& names) {
  if (names.byLanguage.empty()) return nullptr;
  json::object object;
  for (const auto& [language, name] : names.byLanguage) object[language] = name;
  return object;
}

json::object feature(const std::string& type, const std::string& id, json::value geometry,
                     json::object properties) {
  return {{"type", "Feature"},
          {"id", uuid(id)},
          {"feature_type", type},
          {"geometry", std::move(geometry)},
          {"properties", std::move(properties)}};
}

std::string unitCategory(const Area& area) {
  static const std::map<std::string, std::string> categories = {
      {"cafe", "foodservice"}, {"library", "library"},     {"toilets", "restroom"},
      {"office", "office"},    {"classroom", "classroom"}, {"room", "room"}};
  switch (area.kind) {
    case AreaKind::walkway:
      return "walkway";
    case AreaKind::opening:
      return "opentobelow";
    case AreaKind::stairs:
      return "stairs";
    case AreaKind::elevator:
      return "elevator";
    case AreaKind::escalator:
      return "escalator";
    default:
      return categories.at(area.category);
  }
}

json::object reference(const std::string& id, const char* type) {
  return {{"id", uuid(id)}, {"feature_type", type}};
}

std::string levelOf(const Building& building, double ordinal) {
  for (const Storey& storey : building.storeys)
    if (storey.ordinal == ordinal) return storey.id;
  return {};
}

Point middle(const Polygon& shape) { return (shape.outer[0] + shape.outer[2]) * 0.5; }

}  // namespace

std::vector<SourceFile> asImdf(const Building& building) {
  std::map<std::string, json::array> files;
  const auto add = [&](const std::string& type, const std::string& id, json::value geometry,
                       json::object properties) {
    files[type].push_back(feature(type, id, std::move(geometry), std::move(properties)));
  };
  const Polygon footprint = building.storeys.front().footprint.front();
  add("address", "address", nullptr,
      {{"address", "1 Example Street"}, {"locality", "Example"}, {"country", "DE"}});
  add("venue", "venue", polygon(footprint),
      {{"category", "university"},
       {"name", labels(building.names)},
       {"restriction", nullptr},
       {"display_point", point({15, 7})},
       {"address_id", uuid("address")}});
  add("building", "building", nullptr,
      {{"category", "unspecified"},
       {"name", labels(building.names)},
       {"restriction", nullptr},
       {"display_point", point({15, 7})},
       {"address_id", nullptr}});
  add("footprint", "footprint", polygon(footprint),
      {{"category", "ground"},
       {"name", nullptr},
       {"building_ids", json::array{json::string(uuid("building"))}}});
  for (const Storey& storey : building.storeys)
    add("level", storey.id, polygon(storey.footprint.front()),
        {{"category", "unspecified"},
         {"outdoor", false},
         {"ordinal", static_cast<int>(storey.ordinal)},
         {"name", labels(storey.names)},
         {"short_name", json::object{{"en", storey.shortName}}},
         {"restriction", nullptr},
         {"building_ids", json::array{json::string(uuid("building"))}}});
  for (const Area& area : building.areas) {
    json::value names = nullptr;
    for (const Place& place : building.places)
      if (place.id == area.place) names = labels(place.names);
    add("unit", area.id, polygon(area.shape.front()),
        {{"category", unitCategory(area)},
         {"name", names},
         {"alt_name", nullptr},
         {"restriction", nullptr},
         {"accessibility", nullptr},
         {"level_id", uuid(levelOf(building, area.level))},
         {"display_point", point(middle(area.shape.front()))}});
  }
  for (const Door& door : building.doors) {
    json::array line;
    for (const Point end : openingOf(building, door)) line.push_back(position(end));
    add("opening", door.id, json::object{{"type", "LineString"}, {"coordinates", line}},
        {{"category", door.kind == DoorKind::entrance ? "pedestrian.principal" : "pedestrian"},
         {"level_id", uuid(levelOf(building, door.level))},
         {"name", nullptr},
         {"door", json::object{{"type", "swinging"}, {"automatic", false}, {"material", "wood"}}}});
  }
  for (const Place& place : building.places)
    if (!place.hours.empty()) {
      const auto area = std::find_if(building.areas.begin(), building.areas.end(),
                                     [&](const Area& one) { return one.place == place.id; });
      add("anchor", place.id + "-anchor", point(middle(area->shape.front())),
          {{"unit_id", uuid(area->id)}, {"address_id", nullptr}});
      add("occupant", place.id + "-occupant", nullptr,
          {{"category", "cafe"},
           {"name", labels(place.names)},
           {"hours", place.hours},
           {"anchor_id", uuid(place.id + "-anchor")}});
    }
  add("relationship", "up", nullptr,
      {{"category", "escalator"},
       {"direction", "directed"},
       {"origin", reference("escalator@0", "unit")},
       {"intermediary", nullptr},
       {"destination", reference("escalator@1", "unit")}});

  std::vector<SourceFile> result = {
      {"manifest.json",
       R"({"version": "1.0.0", "created": "2026-01-01T00:00:00Z", "language": "en"})"}};
  for (auto& [type, features] : files) {
    const json::object collection = {
        {"type", "FeatureCollection"}, {"name", type}, {"features", std::move(features)}};
    result.push_back({type + ".geojson", json::serialize(collection)});
  }
  return result;
}

}  // namespace orivanta::importer::house
