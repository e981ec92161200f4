#include <fmt/format.h>

#include <boost/json.hpp>
#include <map>

#include "Tests/Apps/Import/House/Geographic.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer::house {

namespace json = boost::json;

namespace {

json::array ring(const Outline& outline) {
  json::array points;
  for (const Point point : outline) points.push_back(json::array{point.x, point.y});
  points.push_back(points.front());
  return points;
}

json::object polygon(const Polygon& shape) {
  json::array rings = {ring(shape.outer)};
  for (const Outline& hole : shape.holes) rings.push_back(ring(hole));
  return {{"type", "Polygon"}, {"coordinates", std::move(rings)}};
}

const char* spaceCategory(const Area& area) {
  switch (area.kind) {
    case AreaKind::walkway:
      return "B029";
    case AreaKind::opening:
      return "B020";
    case AreaKind::stairs:
      return "B021";
    case AreaKind::elevator:
      return "B022";
    case AreaKind::escalator:
      return "B023";
    default:
      return area.category == "cafe"      ? "B001"
             : area.category == "toilets" ? "B010"
             : area.category == "office"  ? "B002"
                                          : "B019";
  }
}

const char* routeType(LinkKind kind) {
  return kind == LinkKind::elevator    ? "4"
         : kind == LinkKind::escalator ? "5"
         : kind == LinkKind::stairs    ? "6"
                                       : "1";
}

}  // namespace

std::vector<SourceFile> asStations(const Building& building) {
  std::map<std::string, json::array> files;
  const auto add = [&](const std::string& layer, json::object properties, json::object geometry) {
    files["House_" + layer].push_back(json::object{{"type", "Feature"},
                                                   {"properties", std::move(properties)},
                                                   {"geometry", std::move(geometry)}});
  };
  for (const Storey& storey : building.storeys) {
    const std::string number = fmt::format("{}", storey.ordinal + 1);
    add(number + "_Floor",
        {{"id", storey.id},
         {"category", "1"},
         {"name", storey.names.name},
         {"ordinal", storey.ordinal + 1},
         {"short_name", storey.shortName}},
        polygon(storey.footprint.front()));
    for (const Area& area : building.areas) {
      if (area.level != storey.ordinal) continue;
      json::value name = nullptr;
      for (const Place& place : building.places)
        if (place.id == area.place) name = place.names.name;
      add(number + "_Space",
          {{"id", area.id},
           {"category", spaceCategory(area)},
           {"floor_id", storey.id},
           {"name", name},
           {"restricted", "2"},
           {"nonpublic", "2"}},
          polygon(area.shape.front()));
    }
    for (const Door& door : building.doors) {
      if (door.level != storey.ordinal) continue;
      json::array line;
      for (const Point end : openingOf(building, door)) line.push_back(json::array{end.x, end.y});
      add(number + "_Opening", {{"id", door.id}, {"floor_id", storey.id}, {"name", nullptr}},
          {{"type", "LineString"}, {"coordinates", std::move(line)}});
    }
  }
  std::map<std::string, Point> positions;
  for (const SourceNode& node : building.sourceNodes) {
    const Point at = positions[node.id] = node.spot.position;
    add("node", {{"node_id", node.id}, {"ordinal", node.spot.level + 1}, {"in_out", "3"}},
        {{"type", "Point"}, {"coordinates", json::array{at.x, at.y}}});
  }
  for (const SourceLink& link : building.sourceLinks) {
    const Point from = positions.at(link.from);
    const Point to = positions.at(link.to);
    add("link",
        {{"link_id", link.id},
         {"start_id", link.from},
         {"end_id", link.to},
         {"route_type", routeType(link.kind)},
         {"direction", link.direction == Direction::forward ? "2" : "1"},
         {"elevator", "3"}},
        {{"type", "LineString"},
         {"coordinates", json::array{json::array{from.x, from.y}, json::array{to.x, to.y}}}});
  }
  std::vector<SourceFile> result;
  for (auto& [name, features] : files) {
    const json::object crs = {{"type", "name"},
                              {"properties", {{"name", "urn:ogc:def:crs:EPSG::6677"}}}};
    const json::object collection = {{"type", "FeatureCollection"},
                                     {"name", name},
                                     {"crs", crs},
                                     {"features", std::move(features)}};
    result.push_back({name + ".geojson", json::serialize(collection)});
  }
  return result;
}

}  // namespace orivanta::importer::house
