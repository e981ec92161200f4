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

#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Stages.hpp"
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
};

Building imported(const Written& format) {
  Options options;
  options.network = NetworkChoice::derive;
  Findings findings;
  const std::vector<SourceFile> files = format.write(make());
  EXPECT_EQ(recognizeFormat(files), format.format);
  Building building = readBuilding(files, format.format, options, findings);
  for (const auto stage :
       {repairShapes, arrangeStoreys, arrangePlaces, joinDoors, makeConnectors, makeNetwork})
    stage(building, options, findings);
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

std::set<std::pair<std::string, std::string>> placesOf(const Building& building) {
  std::set<std::pair<std::string, std::string>> places;
  for (const Place& place : building.places)
    if (!place.names.generated) places.emplace(place.names.name, place.hours);
  return places;
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
  EXPECT_EQ(connectorsOf(first), (std::multiset<std::pair<ConnectorKind, std::vector<double>>>{
                                     {ConnectorKind::elevator, {0, 1, 2}},
                                     {ConnectorKind::escalator, {0, 1}},
                                     {ConnectorKind::stairs, {0, 1, 2}}}));
  for (const Written& format : formats) {
    SCOPED_TRACE(format.name);
    const Building building = imported(format);
    const auto levelsOf = [](const Building& of) {
      std::vector<double> levels;
      for (const Storey& storey : of.storeys) levels.push_back(storey.ordinal);
      return levels;
    };
    EXPECT_EQ(building.storeys.size(), 3U);
    EXPECT_EQ(building.doors.size(), first.doors.size());
    if (format.format == Format::imdf || format.format == Format::osmXml) {
      EXPECT_EQ(placesOf(building), placesOf(first));  // the others carry no hours
    }
    EXPECT_EQ(connectorsOf(building).size(), 3U);
    if (levelsOf(building) == levelsOf(first)) {
      EXPECT_EQ(connectorsOf(building), connectorsOf(first));
    }
    const auto own = waysOf(building);
    ASSERT_EQ(own.size(), ways.size());
    for (const auto& [pair, length] : ways) {
      const auto found = own.find(pair);
      ASSERT_NE(found, own.end()) << pair.first << " to " << pair.second;
      EXPECT_NEAR(found->second, length, 0.02 * length) << pair.first << " to " << pair.second;
    }
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
