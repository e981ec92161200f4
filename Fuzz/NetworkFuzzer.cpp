// Feeds damaged outlines, doors and lines to the stages that make a walking network.
#include <cmath>
#include <cstring>

#include "Apps/Import/Stages.hpp"
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
    if (value == 253) return 4000.0;
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

void addRecord(Bytes& bytes, Building& building) {
  const std::string id =
      std::to_string(building.areas.size() + building.doors.size() + building.lines.size());
  const int kind = bytes.byte();
  const double level = kind % 16 == 15 ? 1.0 : 0.0;
  if (kind % 4 == 0) {
    Door door;
    door.id = door.source = id;
    door.level = level;
    door.position = bytes.point();
    if (bytes.byte() % 2 == 0) door.line = {bytes.point(), bytes.point()};
    building.doors.push_back(std::move(door));
  } else if (kind % 4 == 1) {
    Line line;
    line.id = line.source = id;
    line.kind = bytes.byte() % 2 == 0 ? LineKind::wall : LineKind::path;
    line.levels = {level};
    for (int count = bytes.byte() % 6; count > 0; --count) line.points.push_back(bytes.point());
    building.lines.push_back(std::move(line));
  } else {
    constexpr int kinds = static_cast<int>(AreaKind::unknown) + 1;
    Area area;
    area.id = area.source = id;
    area.level = level;
    area.kind =
        bytes.byte() % 3 == 0 ? AreaKind::walkway : static_cast<AreaKind>(bytes.byte() % kinds);
    area.shape.push_back(readPolygon(bytes));
    building.areas.push_back(std::move(area));
  }
}

void check(std::string_view input) {
  constexpr std::size_t longest = 4096;
  Bytes bytes(input.substr(0, longest));
  Building building;
  while (!bytes.empty()) addRecord(bytes, building);
  Findings findings;
  const Options options;
  repairShapes(building, options, findings);
  joinDoors(building, options, findings);
  makeConnectors(building, options, findings);
  makeNetwork(building, options, findings);
  for (const Node& node : building.network.nodes)
    ORIVANTA_REQUIRE(std::isfinite(node.position.x) && std::isfinite(node.position.y));
  for (const Edge& edge : building.network.edges)
    ORIVANTA_REQUIRE(edge.from < building.network.nodes.size() &&
                     edge.to < building.network.nodes.size() && edge.from != edge.to);
}

}  // namespace

}  // namespace orivanta::importer

ORIVANTA_FUZZER(Network, orivanta::importer::check)
