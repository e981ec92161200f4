#include "Apps/Import/Write/PackageRecords.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/json/monotonic_resource.hpp>
#include <utility>

#include "Apps/Import/Write/ConnectorRecords.hpp"
#include "Apps/Import/Write/PlaceRecords.hpp"
#include "Apps/Package/Records.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

json::object venueRecord(const PackageLayout& layout) {
  const Building& building = layout.building();
  Names names = building.names;
  if (names.name.empty()) names.name = layout.slug();
  json::object venue = namedRecord("venue-" + layout.slug(), names);
  venue["slug"] = layout.slug();
  venue["logo"] = {{"xxsmall", "images/logo-64.png"},
                   {"xsmall", "images/logo-128.png"},
                   {"small", "images/logo-256.png"},
                   {"original", "images/logo-256.png"}};
  venue["cover-image"] = "images/cover.png";
  if (!building.attribution.empty()) venue["attribution"] = building.attribution;
  if (!building.license.empty()) venue["license"] = building.license;
  venue["unitsPerMetre"] = layout.unitsPerMeter();
  if (!building.scaleKnown)
    venue["unitNote"] =
        fmt::format("The source does not state its unit of length; one unit is taken as {} meters.",
                    building.metersPerUnit);
  if (building.georeference)
    venue["origin"] = {{"latitude", building.georeference->latitude},
                       {"longitude", building.georeference->longitude}};
  venue["north"] = 0;
  return venue;
}

json::array mapRecords(const PackageLayout& layout) {
  json::array records;
  for (const Storey* storey : layout.maps()) {
    Names names = storey->names;
    if (names.name.empty()) names.name = storey->shortName;
    if (names.name.empty()) names.name = fmt::format("{}", storey->ordinal);
    json::object map = namedRecord(packageId(storey->id), names);
    map["shortName"] =
        storey->shortName.empty() ? fmt::format("{}", storey->ordinal) : storey->shortName;
    map["ordinal"] = storey->ordinal;
    map["elevation"] = layout.toUnits(storey->elevation.value_or(storey->ordinal * 4.0));
    map["venue"] = layout.slug();
    if (storey->outdoor) map["outdoor"] = true;
    const std::string file = "maps/" + layout.fileName(*storey);
    map["scene"] = {{"obj", file + ".obj"}, {"mtl", file + ".mtl"}, {"images", json::array()}};
    map["plan"] = file + ".svg";
    records.push_back(std::move(map));
  }
  return records;
}

struct Path {
  std::size_t target;
  bool oneWay;
};

// The paths from each node, ordered by the identifiers of their targets. Of several to one target,
// the first.
std::vector<std::vector<Path>> pathsOf(const Network& network,
                                       const std::vector<std::string>& ids) {
  std::vector<std::vector<Path>> paths(network.nodes.size());
  for (const Edge& edge : network.edges) {
    paths[edge.from].push_back({edge.to, edge.oneWay});
    if (!edge.oneWay) paths[edge.to].push_back({edge.from, false});
  }
  for (std::vector<Path>& list : paths) {
    std::stable_sort(list.begin(), list.end(),
                     [&](Path a, Path b) { return ids[a.target] < ids[b.target]; });
    list.erase(std::unique(list.begin(), list.end(),
                           [&](Path a, Path b) { return ids[a.target] == ids[b.target]; }),
               list.end());
  }
  return paths;
}

std::string nodeRecords(const PackageLayout& layout, const NodeLookup& lookup) {
  const Network& network = layout.building().network;
  std::vector<std::string> ids;
  ids.reserve(network.nodes.size());
  for (const Node& node : network.nodes) ids.push_back(packageId(node.id));
  const std::vector<std::vector<Path>> paths = pathsOf(network, ids);
  package::RecordLines records;
  std::array<unsigned char, 4096> buffer{};  // of one record, usually
  for (std::size_t i = 0; i < network.nodes.size(); ++i) {
    if (!lookup.written()[i]) continue;
    const Node& node = network.nodes[i];
    json::monotonic_resource resource(buffer.data(), buffer.size());
    const json::storage_ptr memory(&resource);
    json::object record({{"id", ids[i]},
                         {"map", layout.mapAt(node.level)},
                         {"x", layout.toUnits(node.position.x)},
                         {"y", layout.toUnits(node.position.y)},
                         {"z", 0.5}},
                        memory);
    if (node.weight > 0.0) record["weight"] = node.weight;
    json::array list(memory);
    list.reserve(paths[i].size());
    for (const auto& [target, oneWay] : paths[i]) {
      json::object path({{"node", ids[target]}}, memory);
      if (oneWay) path["oneWay"] = true;
      list.push_back(std::move(path));
    }
    record["paths"] = std::move(list);
    records.add(std::move(record));
  }
  return records.finish();
}

}  // namespace

json::array makeRecords(const PackageLayout& layout, const UseRecords& use) {
  const NodeLookup lookup(layout.building());
  UsedCategories categories;
  use("venue.json", package::jsonLine(venueRecord(layout)) + "\n");
  use("map.json", package::jsonLines(mapRecords(layout)));
  use("location.json", locationRecords(layout, lookup, categories));
  use("node.json", nodeRecords(layout, lookup));
  use("vortex.json", package::jsonLines(connectorRecords(layout, lookup, categories)));
  use("polygon.json", polygonRecords(layout, lookup));
  json::array used = categories.records(layout.building().language);
  use("category.json", package::jsonLines(used));
  return used;
}

}  // namespace orivanta::importer
