#include "Apps/Import/Write/ConnectorRecords.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Import/Places/GeneratedNames.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

std::string_view typeOf(ConnectorKind kind) {
  switch (kind) {
    case ConnectorKind::elevator:
      return "elevator";
    case ConnectorKind::escalator:
      return "escalator";
    case ConnectorKind::stairs:
      return "stairs";
    case ConnectorKind::ramp:
    case ConnectorKind::movingWalkway:
      break;
  }
  return "ramp";
}

bool onOneStorey(const Connector& connector) {
  return std::all_of(connector.stops.begin(), connector.stops.end(), [&](const Stop& stop) {
    return stop.spot.level == connector.stops.front().spot.level;
  });
}

// A ride costs the difference of elevation times the weight, plus the weight. On one storey, where
// the difference is zero, the weight is the length.
double weightOf(const Connector& connector, const PackageLayout& layout) {
  if (onOneStorey(connector))
    return layout.toUnits(
        distance(connector.stops.front().spot.position, connector.stops.back().spot.position));
  switch (connector.kind) {
    case ConnectorKind::elevator:
      return 2.0;
    case ConnectorKind::stairs:
      return 1.5;
    case ConnectorKind::escalator:
    case ConnectorKind::ramp:
    case ConnectorKind::movingWalkway:
      break;
  }
  return 0.0;
}

// The nodes at the stops, in the order of the stops.
std::vector<const Node*> boardingNodes(const Connector& connector, const NodeLookup& lookup) {
  constexpr double farthest = 100.0;                 // meters from a stop to its node
  std::map<double, std::vector<std::size_t>> stops;  // by storey
  for (std::size_t i = 0; i < connector.stops.size(); ++i)
    stops[connector.stops[i].spot.level].push_back(i);
  std::map<double, SegmentGrid> grids;
  for (const auto& [level, list] : stops) {
    std::vector<Segment> points;
    points.reserve(list.size());
    for (const std::size_t i : list)
      points.push_back({connector.stops[i].spot.position, connector.stops[i].spot.position});
    grids.emplace(level, SegmentGrid(std::move(points), 0.0));
  }
  std::multimap<std::size_t, const Node*> ordered;  // by stop; equal ones in the given order
  for (const Node* node : lookup.of(NodeKind::boarding, connector.id)) {
    const auto grid = grids.find(node->level);
    const std::size_t nearest =
        grid == grids.end() ? SegmentGrid::none : grid->second.nearest(node->position, farthest);
    ordered.emplace(
        nearest == SegmentGrid::none ? connector.stops.size() : stops.at(node->level)[nearest],
        node);
  }
  std::vector<const Node*> nodes;
  nodes.reserve(ordered.size());
  for (const auto& [stop, node] : ordered) nodes.push_back(node);
  return nodes;
}

json::object connectorRecord(const Connector& connector, const PackageLayout& layout,
                             const std::vector<const Node*>& boarding, UsedCategories& categories) {
  const Names names = connector.names.name.empty()
                          ? generatedName(connector.kind, layout.building().language)
                          : connector.names;
  json::object record = namedRecord(packageId(connector.id), names);
  const std::string_view type = typeOf(connector.kind);
  record["type"] = json::string(type.data(), type.size());
  record["accessible"] = connector.accessible;
  if (const double weight = weightOf(connector, layout); weight > 0.0) record["weight"] = weight;
  record["categories"] = json::array{json::string(categories.useId(categoryOf(connector.kind).id))};
  json::array nodes;
  for (const Node* node : boarding) nodes.push_back(json::string(packageId(node->id)));
  record["nodes"] = std::move(nodes);
  json::array polygons;
  std::set<std::string> areas;
  for (const Stop& stop : connector.stops)
    if (!stop.area.empty() && areas.insert(stop.area).second)
      polygons.push_back(
          json::object{{"id", packageId(stop.area)}, {"map", layout.mapAt(stop.spot.level)}});
  record["polygons"] = std::move(polygons);
  return record;
}

}  // namespace

json::array connectorRecords(const PackageLayout& layout, const NodeLookup& lookup,
                             UsedCategories& categories) {
  json::array records;
  for (const bool accessible : {true, false})
    for (const Connector& connector : layout.building().connectors) {
      if (connector.accessible != accessible) continue;
      const auto nodes = boardingNodes(connector, lookup);
      if (nodes.size() >= 2)
        records.push_back(connectorRecord(connector, layout, nodes, categories));
    }
  return records;
}

}  // namespace orivanta::importer
