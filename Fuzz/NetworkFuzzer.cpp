// Feeds damaged outlines, doors, lines, places and links to all stages of an import, and writes
// what they make.
#include <cmath>
#include <cstring>

#include "Apps/Import/Import.hpp"
#include "Apps/Import/Model/FloorModel.hpp"
#include "Apps/Import/Stages.hpp"
#include "Apps/Import/Write/FloorPlan.hpp"
#include "Apps/Import/Write/PackageRecords.hpp"
#include "Fuzz/Fuzzer.hpp"

namespace orivanta::importer {

namespace {

// Takes numbers from the input. Most are small, some are huge or not finite.
class Bytes {
 public:
  explicit Bytes(std::string_view input) : input_(input) {}

  bool empty() const { return input_.empty(); }

  int byte() {
    if (input_.empty()) return 0;
    const int value = static_cast<unsigned char>(input_.front());
    input_.remove_prefix(1);
    return value;
  }

  double coordinate() {
    const int value = byte();
    if (value == 255) return std::nan("");
    if (value == 254) return 1e300;
    if (value == 253) return 400.0;
    return value * 0.25 + byte() * 0.001;
  }

  Point point() {
    const double x = coordinate();
    return {x, coordinate()};
  }

 private:
  std::string_view input_;
};

Polygon readPolygon(Bytes& bytes) {
  Polygon polygon;
  for (int count = bytes.byte() % 12; count > 0; --count) polygon.outer.push_back(bytes.point());
  if (bytes.byte() % 4 == 0) {
    polygon.holes.emplace_back();
    for (int count = bytes.byte() % 8; count > 0; --count)
      polygon.holes.back().push_back(bytes.point());
  }
  return polygon;
}

void addDoor(Bytes& bytes, const std::string& id, double level, Building& building) {
  Door door;
  door.id = door.source = id;
  door.level = level;
  door.position = bytes.point();
  if (bytes.byte() % 2 == 0) door.line = {bytes.point(), bytes.point()};
  building.doors.push_back(std::move(door));
}

void addLine(Bytes& bytes, const std::string& id, double level, Building& building) {
  constexpr LineKind kinds[] = {LineKind::wall, LineKind::path, LineKind::steps, LineKind::ramp};
  Line line;
  line.id = line.source = id;
  const int kind = bytes.byte();
  line.kind = kinds[kind % 4];
  line.levels = {level};
  if (kind % 8 >= 6) line.levels.push_back(level + 1.0);
  for (int count = bytes.byte() % 6; count > 0; --count) line.points.push_back(bytes.point());
  building.lines.push_back(std::move(line));
}

void addArea(Bytes& bytes, const std::string& id, double level, Building& building) {
  constexpr int kinds = static_cast<int>(AreaKind::unknown) + 1;
  Area area;
  area.id = area.source = id;
  area.level = level;
  area.kind =
      bytes.byte() % 3 == 0 ? AreaKind::walkway : static_cast<AreaKind>(bytes.byte() % kinds);
  area.shape.push_back(readPolygon(bytes));
  building.areas.push_back(std::move(area));
}

// What is not drawn: storeys, places, stated connectors and the source's own network.
void addStated(Bytes& bytes, const std::string& id, double level, Building& building) {
  switch (bytes.byte() % 4) {
    case 0:
      building.storeys.emplace_back();
      building.storeys.back().id = id;
      building.storeys.back().ordinal = bytes.byte() % 8 * 0.5 - 1.0;
      break;
    case 1:
      building.places.emplace_back();
      building.places.back().id = building.places.back().source = id;
      building.places.back().spots.push_back({level, bytes.point()});
      break;
    case 2:
      building.connectorHints.emplace_back();
      building.connectorHints.back().id = id;
      building.connectorHints.back().kind = static_cast<ConnectorKind>(bytes.byte() % 5);
      for (int count = bytes.byte() % 4; count > 0; --count)
        building.connectorHints.back().spots.push_back({level + count, bytes.point()});
      break;
    default:
      building.sourceNodes.push_back({id, {level, bytes.point()}});
      if (building.sourceNodes.size() < 2) break;
      SourceLink link;
      link.id = id;
      link.from = id;
      link.to =
          building.sourceNodes[static_cast<std::size_t>(bytes.byte()) % building.sourceNodes.size()]
              .id;
      link.kind = static_cast<LinkKind>(bytes.byte() % 6);
      building.sourceLinks.push_back(std::move(link));
  }
}

void addRecord(Bytes& bytes, Building& building) {
  const std::string id =
      std::to_string(building.areas.size() + building.doors.size() + building.lines.size()) + '-' +
      std::to_string(building.storeys.size() + building.places.size() +
                     building.connectorHints.size() + building.sourceNodes.size());
  const int kind = bytes.byte();
  const double level = kind % 16 == 15 ? 1.0 : 0.0;
  if (kind >= 240)
    addStated(bytes, id, level, building);
  else if (kind % 4 == 0)
    addDoor(bytes, id, level, building);
  else if (kind % 4 == 1)
    addLine(bytes, id, level, building);
  else
    addArea(bytes, id, level, building);
}

void check(std::string_view input) {
  constexpr std::size_t longest = 16U << 10U;
  Bytes bytes(input.substr(0, longest));
  Building building;
  while (!bytes.empty()) addRecord(bytes, building);
  Findings findings;
  runStages(building, {}, findings);
  reviewBuilding(building, findings);
  const PackageLayout layout(building);
  makeRecords(layout, [](std::string_view, std::string_view) {});
  for (const Storey* storey : layout.maps()) {
    makeFloorModel(layout, *storey);
    floorPlanSvg(building, storey->ordinal, {.names = true, .network = true, .marks = {}});
  }
  for (const Node& node : building.network.nodes)
    ORIVANTA_REQUIRE(std::isfinite(node.position.x) && std::isfinite(node.position.y));
  for (const Edge& edge : building.network.edges)
    ORIVANTA_REQUIRE(edge.from < building.network.nodes.size() &&
                     edge.to < building.network.nodes.size() && edge.from != edge.to);
}

}  // namespace

}  // namespace orivanta::importer

ORIVANTA_FUZZER(Network, orivanta::importer::check)
