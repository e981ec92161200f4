// One building in every format gives the same venue.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <map>
#include <queue>
#include <set>
#include <tuple>

#include "Apps/Import/Import.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Report/Summary.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer {

namespace {

using house::make;

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Written {
  const char* name;
  Format format;
  std::vector<SourceFile> (*write)(const Building&);
};

const std::vector<Written> formats = {
    {"imdf", Format::imdf, house::asImdf},
    {"osm xml", Format::osmXml, house::asOsmXml},
    {"overpass", Format::overpassJson, house::asOverpassJson},
    {"osm geojson", Format::osmGeoJson, house::asOsmGeoJson},
    {"indoorgml", Format::indoorGml, house::asIndoorGml},
    {"stations", Format::stations, house::asStations},
    {"shapefile", Format::stations, house::asShapefile},
    {"osm pbf", Format::osmPbf, house::asOsmPbf},
};

Building imported(const Written& format, const Building& house = make(),
                  NetworkChoice network = NetworkChoice::derive) {
  Options options;
  options.network = network;
  Findings findings;
  const std::vector<SourceFile> files = format.write(house);
  if (files.empty()) return {};
  EXPECT_EQ(recognizeFormat(files), format.format);
  Building building = readBuilding(files, format.format, options, findings);
  runStages(building, options, findings);
  return building;
}

// The lengths from a node to all others. A ride counts as ten meters.
std::vector<double> lengthsFrom(const Building& building, std::size_t start) {
  const Network& network = building.network;
  std::vector<std::vector<std::pair<std::size_t, double>>> next(network.nodes.size());
  for (const Edge& edge : network.edges) {
    const double length =
        package::distance(network.nodes[edge.from].position, network.nodes[edge.to].position);
    next[edge.from].emplace_back(edge.to, length);
    if (!edge.oneWay) next[edge.to].emplace_back(edge.from, length);
  }
  std::map<std::string, std::vector<std::size_t>> boarding;
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    if (network.nodes[i].kind == NodeKind::boarding) boarding[network.nodes[i].of].push_back(i);
  for (const auto& [connector, nodes] : boarding)
    for (const std::size_t from : nodes)
      for (const std::size_t to : nodes)
        if (from != to) next[from].emplace_back(to, 10.0);
  std::vector<double> lengths(network.nodes.size(), infinity);
  std::priority_queue<std::pair<double, std::size_t>> queue;
  queue.emplace(0.0, start);
  lengths[start] = 0.0;
  while (!queue.empty()) {
    const auto [negative, node] = queue.top();
    queue.pop();
    if (-negative > lengths[node]) continue;
    for (const auto& [to, length] : next[node])
      if (lengths[node] + length < lengths[to]) {
        lengths[to] = lengths[node] + length;
        queue.emplace(-lengths[to], to);
      }
  }
  return lengths;
}

// The shortest way from each room to each other, by their English names.
std::map<std::pair<std::string, std::string>, double> waysOf(const Building& building) {
  std::map<std::string, std::string> roomOfArea;
  for (const Place& place : building.places)
    for (const std::string& area : place.areas) roomOfArea[area] = place.names.name;
  std::map<std::string, std::size_t> inside;
  for (std::size_t i = 0; i < building.network.nodes.size(); ++i) {
    const Node& node = building.network.nodes[i];
    if (node.kind == NodeKind::inside && roomOfArea.contains(node.of))
      inside[roomOfArea[node.of]] = i;
  }
  std::map<std::pair<std::string, std::string>, double> ways;
  for (const auto& [from, start] : inside) {
    const std::vector<double> lengths = lengthsFrom(building, start);
    for (const auto& [to, end] : inside) ways[{from, to}] = lengths[end];
  }
  return ways;
}

// Their names, with the hours if the format has them.
std::set<std::pair<std::string, std::string>> placesOf(const Building& building, bool hours) {
  std::set<std::pair<std::string, std::string>> places;
  for (const Place& place : building.places)
    if (!place.names.generated) places.emplace(place.names.name, hours ? place.hours : "");
  return places;
}

// The ways between all rooms are as long as expected.
void expectWays(const Building& building,
                const std::map<std::pair<std::string, std::string>, double>& ways) {
  const auto own = waysOf(building);
  ASSERT_EQ(own.size(), ways.size());
  for (const auto& [pair, length] : ways) {
    const auto found = own.find(pair);
    ASSERT_NE(found, own.end()) << pair.first << " to " << pair.second;
    EXPECT_NEAR(found->second, length, 0.02 * length) << pair.first << " to " << pair.second;
  }
}

// The derived network as that of a source, which ends at the doors of rooms.
void giveNetwork(const Building& derived, Building& house) {
  const auto& [nodes, edges] = derived.network;
  const auto nameOf = [](std::size_t node) { return "n" + std::to_string(node); };
  std::set<std::string> ofRooms;
  for (const Area& area : derived.areas)
    if (area.kind == AreaKind::room) ofRooms.insert(area.id);
  for (std::size_t i = 0; i < nodes.size(); ++i)
    if (!ofRooms.contains(nodes[i].of))
      house.sourceNodes.push_back({nameOf(i), {nodes[i].level, nodes[i].position}});
  const auto link = [&](std::size_t from, std::size_t to, LinkKind kind, bool oneWay) {
    SourceLink made;
    made.id = "link" + std::to_string(house.sourceLinks.size());
    made.from = nameOf(from);
    made.to = nameOf(to);
    made.kind = kind;
    made.direction = oneWay ? Direction::forward : Direction::both;
    house.sourceLinks.push_back(std::move(made));
  };
  for (const Edge& edge : edges)
    if (!ofRooms.contains(nodes[edge.from].of) && !ofRooms.contains(nodes[edge.to].of))
      link(edge.from, edge.to, LinkKind::walk, edge.oneWay);
  for (const Connector& connector : derived.connectors) {
    const LinkKind kind = connector.kind == ConnectorKind::elevator    ? LinkKind::elevator
                          : connector.kind == ConnectorKind::escalator ? LinkKind::escalator
                                                                       : LinkKind::stairs;
    std::size_t below = nodes.size();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (nodes[i].kind != NodeKind::boarding || nodes[i].of != connector.id) continue;
      if (below < nodes.size()) link(below, i, kind, kind == LinkKind::escalator);
      below = i;
    }
  }
}

std::multiset<std::pair<ConnectorKind, std::vector<double>>> connectorsOf(
    const Building& building) {
  std::multiset<std::pair<ConnectorKind, std::vector<double>>> connectors;
  for (const Connector& connector : building.connectors) {
    std::vector<double> levels;
    for (const Stop& stop : connector.stops) levels.push_back(stop.spot.level);
    connectors.emplace(connector.kind, levels);
  }
  return connectors;
}

}  // namespace

TEST(House, IsTheSameInEveryFormat) {
  const Building first = imported(formats.front());
  const auto ways = waysOf(first);
  ASSERT_EQ(first.places.size(), 12U);
  ASSERT_EQ(ways.size(), 144U);
  // Along the corridor, from the middle of one room to the middle of the next.
  EXPECT_NEAR(ways.at({"Linden Café", "Library"}), 22.0, 2.0);
  // From the stairs straight to the next door.
  EXPECT_LT(ways.at({"Linden Café", "Studio"}), 38.5);
  EXPECT_EQ(connectorsOf(first), (std::multiset<std::pair<ConnectorKind, std::vector<double>>>{
                                     {ConnectorKind::elevator, {0, 1, 2}},
                                     {ConnectorKind::escalator, {0, 1}},
                                     {ConnectorKind::stairs, {0, 1, 2}}}));
  for (const Written& format : formats) {
    SCOPED_TRACE(format.name);
    const Building building = imported(format);
    if (building.storeys.empty() && format.format == Format::osmPbf) continue;  // no osmium
    const auto levelsOf = [](const Building& of) {
      std::vector<double> levels;
      for (const Storey& storey : of.storeys) levels.push_back(storey.ordinal);
      return levels;
    };
    EXPECT_EQ(building.storeys.size(), 3U);
    EXPECT_EQ(building.doors.size(), first.doors.size());
    EXPECT_EQ(summarize(building).rooms, 12U);
    const bool hours = format.format != Format::indoorGml && format.format != Format::stations;
    EXPECT_EQ(placesOf(building, hours), placesOf(first, hours));
    EXPECT_EQ(connectorsOf(building).size(), 3U);
    if (levelsOf(building) == levelsOf(first)) {
      EXPECT_EQ(connectorsOf(building), connectorsOf(first));
    }
    expectWays(building, ways);
  }
}

TEST(House, KeepsTheNetworkOfItsSource) {
  const Building derived = imported(formats.front());
  Building house = make();
  giveNetwork(derived, house);
  for (const Written& format : formats) {
    if (format.format != Format::stations) continue;
    SCOPED_TRACE(format.name);
    const Building building = imported(format, house, NetworkChoice::automatic);
    EXPECT_EQ(building.sourceLinks.size(), house.sourceLinks.size());
    EXPECT_EQ(connectorsOf(building).size(), 3U);
    expectWays(building, waysOf(derived));
  }
}

// The files that the guides and the demo use.
TEST(House, ExamplesAreUpToDate) {
  const std::filesystem::path folder = ORIVANTA_EXAMPLES "/House";
  const char* refresh = std::getenv("ORIVANTA_REFRESH_GOLDEN");
  const auto check = [&](const std::filesystem::path& below, const std::vector<SourceFile>& files) {
    for (const SourceFile& file : files) {
      const std::filesystem::path path = folder / below / file.name;
      if (refresh != nullptr && *refresh == '1') {
        std::filesystem::create_directories(path.parent_path());
        ASSERT_TRUE(foundation::writeFileAtomically(path, file.bytes));
      }
      EXPECT_EQ(foundation::readFile(path, 1U << 20U).value_or(""), file.bytes) << path;
    }
  };
  check("", house::asOsmXml(make()));
  check("house.imdf", house::asImdf(make()));
}

}  // namespace orivanta::importer
