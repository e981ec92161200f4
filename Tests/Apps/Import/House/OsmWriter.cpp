#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/json.hpp>
#include <cmath>
#include <map>
#include <set>

#include "Tests/Apps/Import/House/Geographic.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer::house {

namespace json = boost::json;

namespace {

using Tags = std::map<std::string, std::string>;

struct Way {
  long id;
  std::vector<long> nodes;
  Tags tags;
};

struct Relation {
  long id;
  long outer;
  std::vector<long> inner;
  Tags tags;
};

// The house as an OpenStreetMap extract: doors are nodes of the outlines. Identifiers are written
// as negative numbers, as editors do for what is not on the map.
struct Extract {
  std::vector<Point> points;  // longitude and latitude; the identifier is the index + 1
  std::map<std::pair<long, long>, long> known;  // by position in millimeters
  std::map<long, Tags> nodeTags;
  std::vector<Way> ways;
  std::vector<Relation> relations;

  long node(Point point) {
    const auto key = std::pair(std::lround(point.x * 1000), std::lround(point.y * 1000));
    const auto [entry, added] = known.emplace(key, static_cast<long>(points.size()) + 1);
    if (added) points.push_back(toDegrees(point));
    return entry->second;
  }
};

std::string levelText(const std::vector<double>& levels) {
  std::string text;
  for (const double level : levels) text += fmt::format("{}{}", text.empty() ? "" : ";", level);
  return text;
}

void addNames(Tags& tags, const Names& names) {
  if (!names.name.empty()) tags["name"] = names.name;
  for (const auto& [language, name] : names.byLanguage) tags["name:" + language] = name;
}

// The outline with the doors that lie on it.
std::vector<long> ring(Extract& extract, const Outline& outline, const std::vector<Door>& doors,
                       const std::set<double>& levels) {
  std::vector<long> nodes;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point from = outline[i];
    const Point to = outline[(i + 1) % outline.size()];
    nodes.push_back(extract.node(from));
    std::map<double, Point> between;
    for (const Door& door : doors)
      if (levels.contains(door.level) && package::distanceToSegment(from, to, door.position) < 1e-6)
        between[package::distance(from, door.position)] = door.position;
    for (const auto& [distance, position] : between) nodes.push_back(extract.node(position));
  }
  nodes.push_back(nodes.front());
  return nodes;
}

Tags categoryTags(const std::string& category) {
  if (category == "cafe") return {{"amenity", "cafe"}};
  if (category == "library") return {{"amenity", "library"}};
  if (category == "toilets") return {{"room", "toilet"}};
  if (category == "office" || category == "classroom") return {{"room", category}};
  return {};
}

Tags areaTags(const Building& building, const Area& area, const std::vector<double>& levels) {
  Tags tags = {{"level", levelText(levels)}};
  switch (area.kind) {
    case AreaKind::walkway:
      tags["indoor"] = "corridor";
      break;
    case AreaKind::opening:
      tags["indoor"] = "void";
      break;
    case AreaKind::stairs:
      tags.insert({{"indoor", "room"}, {"stairs", "yes"}});
      break;
    case AreaKind::elevator:
      tags.insert({{"indoor", "room"},
                   {"room", "elevator"},
                   {"highway", "elevator"},
                   {"wheelchair", "yes"}});
      break;
    default:
      tags["indoor"] = "room";
  }
  for (const Place& place : building.places)
    if (place.id == area.place) {
      addNames(tags, place.names);
      tags.merge(categoryTags(place.category));
      if (!place.hours.empty()) tags["opening_hours"] = place.hours;
    }
  return tags;
}

void addArea(Extract& extract, const Building& building, const Area& area,
             const std::vector<double>& levels) {
  const std::set<double> on(levels.begin(), levels.end());
  Tags tags = areaTags(building, area, levels);
  const Polygon& shape = area.shape.front();
  const auto add = [&](const Outline& outline, Tags own) {
    const long id = static_cast<long>(extract.ways.size()) + 1;
    extract.ways.push_back({id, ring(extract, outline, building.doors, on), std::move(own)});
    return id;
  };
  if (shape.holes.empty()) {
    add(shape.outer, std::move(tags));
    return;
  }
  tags["type"] = "multipolygon";
  Relation relation = {
      static_cast<long>(extract.relations.size()) + 1, add(shape.outer, {}), {}, std::move(tags)};
  for (const Outline& hole : shape.holes) relation.inner.push_back(add(hole, {}));
  extract.relations.push_back(std::move(relation));
}

Extract makeExtract(const Building& building) {
  Extract extract;
  std::map<std::string, std::vector<double>> connectors;
  for (const Area& area : building.areas)
    if (!area.connector.empty()) connectors[area.connector].push_back(area.level);
  for (const Area& area : building.areas) {
    if (area.kind == AreaKind::escalator) continue;
    if (area.connector.empty()) {
      addArea(extract, building, area, {area.level});
    } else if (connectors.at(area.connector).front() == area.level) {
      addArea(extract, building, area, connectors.at(area.connector));
    }
  }
  const long start = extract.node({30, 15});
  const long end = extract.node({36, 15});
  extract.ways.push_back({static_cast<long>(extract.ways.size()) + 1,
                          {start, end},
                          {{"highway", "steps"}, {"conveying", "forward"}, {"level", "0;1"}}});
  for (const Door& door : building.doors) {
    Tags& tags = extract.nodeTags[extract.node(door.position)];
    if (door.kind == DoorKind::entrance)
      tags.insert({{"entrance", "main"}, {"level", "0"}});
    else
      tags["door"] = "yes";
  }
  Tags outline = {{"building", "yes"}};
  addNames(outline, building.names);
  const long id = static_cast<long>(extract.ways.size()) + 1;
  extract.ways.push_back({id,
                          ring(extract, building.storeys.front().footprint.front().outer, {}, {}),
                          std::move(outline)});
  for (const Storey& storey : building.storeys) {
    Tags tags = {{"indoor", "level"},
                 {"level", levelText({storey.ordinal})},
                 {"level:ref", storey.shortName}};
    addNames(tags, storey.names);
    const long level = static_cast<long>(extract.ways.size()) + 1;
    extract.ways.push_back(
        {level, ring(extract, storey.footprint.front().outer, {}, {}), std::move(tags)});
  }
  return extract;
}

std::string xmlTags(const Tags& tags) {
  std::string text;
  for (const auto& [key, value] : tags) text += fmt::format("<tag k='{}' v='{}'/>", key, value);
  return text;
}

json::object jsonTags(const Tags& tags) {
  json::object object;
  for (const auto& [key, value] : tags) object[key] = value;
  return object;
}

json::array negative(const std::vector<long>& ids) {
  json::array array;
  for (const long id : ids) array.push_back(-id);
  return array;
}

json::array position(const Extract& extract, long node) {
  const Point point = extract.points[static_cast<std::size_t>(node) - 1];
  return {point.x, point.y};
}

json::array positions(const Extract& extract, const std::vector<long>& nodes) {
  json::array array;
  for (const long node : nodes) array.push_back(position(extract, node));
  return array;
}

}  // namespace

std::vector<SourceFile> asOsmXml(const Building& building) {
  const Extract extract = makeExtract(building);
  std::string text = "<?xml version='1.0' encoding='UTF-8'?>\n<osm version='0.6'>\n";
  for (std::size_t i = 0; i < extract.points.size(); ++i) {
    const long id = static_cast<long>(i) + 1;
    const auto tags = extract.nodeTags.find(id);
    text += fmt::format("<node id='-{}' lat='{:.9f}' lon='{:.9f}'>{}</node>\n", id,
                        extract.points[i].y, extract.points[i].x,
                        tags == extract.nodeTags.end() ? "" : xmlTags(tags->second));
  }
  for (const Way& way : extract.ways) {
    text += fmt::format("<way id='-{}'>", way.id);
    for (const long node : way.nodes) text += fmt::format("<nd ref='-{}'/>", node);
    text += xmlTags(way.tags) + "</way>\n";
  }
  for (const Relation& relation : extract.relations) {
    text += fmt::format("<relation id='-{}'><member type='way' ref='-{}' role='outer'/>",
                        relation.id, relation.outer);
    for (const long inner : relation.inner)
      text += fmt::format("<member type='way' ref='-{}' role='inner'/>", inner);
    text += xmlTags(relation.tags) + "</relation>\n";
  }
  return {{"house.osm", text + "</osm>\n"}};
}

std::vector<SourceFile> asOverpassJson(const Building& building) {
  const Extract extract = makeExtract(building);
  json::array elements;
  for (std::size_t i = 0; i < extract.points.size(); ++i) {
    const long id = static_cast<long>(i) + 1;
    json::object node = {
        {"type", "node"}, {"id", -id}, {"lat", extract.points[i].y}, {"lon", extract.points[i].x}};
    if (const auto tags = extract.nodeTags.find(id); tags != extract.nodeTags.end())
      node["tags"] = jsonTags(tags->second);
    elements.push_back(std::move(node));
  }
  for (const Way& way : extract.ways)
    elements.push_back(json::object{{"type", "way"},
                                    {"id", -way.id},
                                    {"nodes", negative(way.nodes)},
                                    {"tags", jsonTags(way.tags)}});
  for (const Relation& relation : extract.relations) {
    json::array members = {
        json::object{{"type", "way"}, {"ref", -relation.outer}, {"role", "outer"}}};
    for (const long inner : relation.inner)
      members.push_back(json::object{{"type", "way"}, {"ref", -inner}, {"role", "inner"}});
    elements.push_back(json::object{{"type", "relation"},
                                    {"id", -relation.id},
                                    {"members", std::move(members)},
                                    {"tags", jsonTags(relation.tags)}});
  }
  const json::object all = {
      {"version", 0.6}, {"generator", "Overpass API"}, {"elements", std::move(elements)}};
  return {{"house.json", json::serialize(all)}};
}

std::vector<SourceFile> asOsmGeoJson(const Building& building) {
  const Extract extract = makeExtract(building);
  json::array features;
  const auto add = [&](const std::string& id, const Tags& tags, json::object geometry) {
    json::object properties = jsonTags(tags);
    properties["id"] = id;
    features.push_back(json::object{{"type", "Feature"},
                                    {"id", id},
                                    {"properties", std::move(properties)},
                                    {"geometry", std::move(geometry)}});
  };
  const auto wayOf = [&](long id) -> const Way& {
    return extract.ways[static_cast<std::size_t>(id) - 1];
  };
  for (const Relation& relation : extract.relations) {
    json::array rings = {positions(extract, wayOf(relation.outer).nodes)};
    for (const long inner : relation.inner) rings.push_back(positions(extract, wayOf(inner).nodes));
    Tags tags = relation.tags;
    tags.erase("type");
    add(fmt::format("relation/-{}", relation.id), tags,
        {{"type", "Polygon"}, {"coordinates", std::move(rings)}});
  }
  for (const Way& way : extract.ways) {
    if (way.tags.empty()) continue;
    const bool closed = way.nodes.front() == way.nodes.back();
    json::array coordinates = positions(extract, way.nodes);
    add(fmt::format("way/-{}", way.id), way.tags,
        closed ? json::object{{"type", "Polygon"}, {"coordinates", json::array{coordinates}}}
               : json::object{{"type", "LineString"}, {"coordinates", coordinates}});
  }
  for (const auto& [node, tags] : extract.nodeTags)
    add(fmt::format("node/-{}", node), tags,
        {{"type", "Point"}, {"coordinates", position(extract, node)}});
  const json::object all = {{"type", "FeatureCollection"}, {"features", std::move(features)}};
  return {{"house.geojson", json::serialize(all)}};
}

}  // namespace orivanta::importer::house
