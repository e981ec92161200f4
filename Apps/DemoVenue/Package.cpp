#include "Apps/DemoVenue/Package.hpp"

#include <fmt/format.h>

#include <boost/json.hpp>
#include <map>
#include <set>

#include "Apps/DemoVenue/Pictures.hpp"
#include "Apps/DemoVenue/Units.hpp"
#include "Apps/Package/Records.hpp"
#include "Apps/Package/Symbols.hpp"
#include "Apps/Package/TextFile.hpp"

namespace orivanta::demo {

namespace json = boost::json;

namespace {

json::string text(std::string_view view) { return json::string(view.data(), view.size()); }

json::object namesOf(const Names& names) {
  json::object object = {{"en", text(names.english)}};
  if (!names.german.empty()) object["de"] = text(names.german);
  object["ja"] = text(names.japanese);
  object["ar"] = text(names.arabic);
  return object;
}

// The first members of every record with a name.
json::object named(const std::string& id, const Names& names) {
  return {{"id", id}, {"name", text(names.english)}, {"names", namesOf(names)}};
}

json::object venueRecord(const Plan& plan) {
  json::object venue = named("venue-" + std::string(plan.slug), plan.names);
  venue["slug"] = text(plan.slug);
  venue["description"] = text(plan.description);
  venue["logo"] = {{"xxsmall", "images/logo-64.png"},
                   {"xsmall", "images/logo-128.png"},
                   {"small", "images/logo-256.png"},
                   {"original", "images/logo-256.png"}};
  venue["cover-image"] = "images/cover.png";
  venue["unitsPerMetre"] = unitsPerMeter;
  venue["synthetic"] = true;
  return venue;
}

json::array mapRecords(const Plan& plan) {
  json::array records;
  for (const Floor& floor : plan.floors) {
    json::object map = named(mapId(floor.id), floor.names);
    map["shortName"] = text(floor.shortName);
    map["elevation"] = toUnits(floor.elevation);
    map["venue"] = text(plan.slug);
    if (floor.outdoor) map["outdoor"] = true;
    const std::string model = "maps/" + std::string(floor.id);
    json::array images;
    for (const std::string_view image : {"tiles.png", "deck.png", "steps.png"})
      images.push_back(json::object{{"url", "maps/" + std::string(image)}});
    map["scene"] = {
        {"obj", model + ".obj"}, {"mtl", model + ".mtl"}, {"images", std::move(images)}};
    records.push_back(std::move(map));
  }
  return records;
}

json::array categoryRecords(const Plan& plan) {
  json::array records;
  for (const Category& category : plan.categories) {
    json::object record = named("cat-" + std::string(category.id), category.names);
    if (!category.parent.empty())
      record["parents"] = json::array{"cat-" + std::string(category.parent)};
    records.push_back(std::move(record));
  }
  return records;
}

json::array nodeRecords(const Network& network) {
  json::array records;
  for (const NetworkNode& node : network.nodes) {
    json::object record = {{"id", node.id},
                           {"map", mapId(node.floor)},
                           {"x", toUnits(node.position.x)},
                           {"y", toUnits(node.position.y)},
                           {"z", 0.5}};
    if (node.weight > 0.0) record["weight"] = node.weight;
    json::array paths;
    for (const std::string& target : node.paths) paths.push_back(json::object{{"node", target}});
    record["paths"] = std::move(paths);
    records.push_back(std::move(record));
  }
  return records;
}

json::object polygonRecord(const std::string& id, std::string_view floor,
                           const std::vector<std::string>& doors) {
  json::array entrances;
  for (const std::string& door : doors) entrances.push_back(json::object{{"id", door}});
  return {{"id", id}, {"map", mapId(floor)}, {"entrances", std::move(entrances)}};
}

json::array polygonRecords(const Plan& plan, const Network& network) {
  json::array records;
  for (const Floor& floor : plan.floors) {
    for (const Walkway& walkway : floor.walkways)
      records.push_back(polygonRecord(polygonId(floor.id, walkway.id), floor.id, {}));
    for (const Place& place : floor.places)
      records.push_back(polygonRecord(polygonId(floor.id, place.id), floor.id,
                                      network.places.at({floor.id, place.id}).doors));
    for (const Connector& connector : plan.connectors)
      for (const Stop& stop : connector.stops)
        if (stop.floor == floor.id && !stop.outline.empty())
          records.push_back(polygonRecord(polygonId(floor.id, connector.id), floor.id, {}));
  }
  return records;
}

json::object pictureOf(const Category& category) {
  json::object picture;
  for (const Rendition& rendition : renditions) {
    const std::string file = "images/places/" + signName(category.id, rendition);
    picture[rendition.key] = file;
    picture["original"] = file;  // the largest, which comes last
  }
  return picture;
}

json::object locationRecord(const Place& place, const Category& category) {
  json::object record = named(std::string(place.id), place.names);
  record["type"] = text(category.type);
  record["description"] = text(place.description);
  record["categories"] = json::array{"cat-" + std::string(category.id)};
  if (!package::symbolOf(category.id).empty()) record["picture"] = pictureOf(category);
  if (!category.openingHours.empty()) record["hours"] = text(category.openingHours);
  record["nodes"] = json::array();
  record["polygons"] = json::array();
  return record;
}

json::array locationRecords(const Plan& plan, const Network& network) {
  std::map<std::string_view, const Category*> categories;
  for (const Category& category : plan.categories) categories[category.id] = &category;
  json::array records;
  std::map<std::string_view, std::size_t> known;
  for (const Floor& floor : plan.floors)
    for (const Place& place : floor.places) {
      const auto [entry, added] = known.emplace(place.id, records.size());
      if (added) records.push_back(locationRecord(place, *categories.at(place.category)));
      json::object& record = records[entry->second].as_object();
      const PlaceNodes& nodes = network.places.at({floor.id, place.id});
      const std::string map = mapId(floor.id);
      json::array& list = record["nodes"].as_array();
      list.push_back(json::object{{"node", nodes.inside}, {"map", map}});
      for (const std::string& door : nodes.doors)
        list.push_back(json::object{{"node", door}, {"map", map}});
      record["polygons"].as_array().push_back(
          json::object{{"id", polygonId(floor.id, place.id)}, {"map", map}});
    }
  return records;
}

std::pair<std::string_view, std::string_view> typeAndCategory(ConnectorKind kind) {
  switch (kind) {
    case ConnectorKind::elevator:
      return {"elevator", "cat-lifts"};
    case ConnectorKind::escalator:
      return {"escalator", "cat-escalators"};
    case ConnectorKind::stairs:
      return {"stairs", "cat-stairs"};
    case ConnectorKind::ramp:
      return {"ramp", "cat-ramps"};
  }
  return {};
}

json::array vortexRecords(const Plan& plan, const Network& network) {
  json::array records;
  for (const Connector& connector : plan.connectors) {
    json::object record = named(std::string(connector.id), connector.names);
    const auto [type, category] = typeAndCategory(connector.kind);
    record["type"] = text(type);
    // No sign in the building shows the name of an escalator, so instructions must not use it.
    if (connector.kind == ConnectorKind::escalator) record["nameGenerated"] = true;
    record["accessible"] = connector.accessible;
    record["weight"] = connector.weight;
    record["categories"] = json::array{text(category)};
    json::array nodes;
    for (const std::string& node : network.stops.at(connector.id))
      nodes.push_back(json::string(node));
    record["nodes"] = std::move(nodes);
    json::array polygons;
    for (const Stop& stop : connector.stops)
      if (!stop.outline.empty())
        polygons.push_back(
            json::object{{"id", polygonId(stop.floor, connector.id)}, {"map", mapId(stop.floor)}});
    record["polygons"] = std::move(polygons);
    records.push_back(std::move(record));
  }
  return records;
}

}  // namespace

std::string polygonId(std::string_view floor, std::string_view part) {
  return fmt::format("{}-{}", floor, part);
}

std::string mapId(std::string_view floor) { return fmt::format("floor-{}", floor); }

void writePackage(const Plan& plan, const Network& network, const std::filesystem::path& folder) {
  using package::jsonLines;
  using package::writeFile;
  writeFile(folder / "venue.json", package::jsonLine(venueRecord(plan)) + "\n");
  writeFile(folder / "map.json", jsonLines(mapRecords(plan)));
  writeFile(folder / "category.json", jsonLines(categoryRecords(plan)));
  writeFile(folder / "location.json", jsonLines(locationRecords(plan, network)));
  writeFile(folder / "polygon.json", jsonLines(polygonRecords(plan, network)));
  writeFile(folder / "node.json", jsonLines(nodeRecords(network)));
  writeFile(folder / "vortex.json", jsonLines(vortexRecords(plan, network)));
}

}  // namespace orivanta::demo
