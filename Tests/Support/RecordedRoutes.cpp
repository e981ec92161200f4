#include "Tests/Support/RecordedRoutes.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "Source/NavigationGraph.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

namespace {

std::vector<std::string> textsOf(const RawData& list) {
  std::vector<std::string> texts;
  for (const RawData& element : list.arrayValue()) texts.push_back(element.stringForce());
  return texts;
}

// Recorded as the shortest text of the double, infinity as "inf".
double doubleOf(const RawData& text) { return std::strtod(text.stringValue().c_str(), nullptr); }

NodeList nodesOf(const Collection<Node>& nodes, const std::vector<std::string>& identifiers) {
  NodeList list;
  for (const std::string& identifier : identifiers) list.push_back(nodes.at(identifier));
  return list;
}

double weightOf(const NodeList& path, const NavigationGraph& graph) {
  double weight = 0.0;
  for (std::size_t i = 1; i < path.size(); ++i) {
    double cheapest = std::numeric_limits<double>::infinity();
    for (const Edge& edge : graph[*path[i - 1]])
      if (edge.node() == path[i]) cheapest = std::min(cheapest, edge.weight());
    weight += cheapest;
  }
  return weight;
}

}  // namespace

std::vector<RecordedRoute> recordedRoutes(const std::filesystem::path& package) {
  std::vector<RecordedRoute> routes;
  const auto document = RawData::parse(contentsOf(package / "golden.json"));
  if (!document) return routes;
  for (const RawData& query : (*document)["queries"].arrayValue())
    routes.push_back({query["accessible"].bool_().value(), textsOf(query["start"]),
                      textsOf(query["destination"]), query["from"].string(), query["to"].string(),
                      textsOf(query["path"]), doubleOf(query["cost"]), doubleOf(query["weight"]),
                      static_cast<std::size_t>(query["taken"].doubleForce())});
  return routes;
}

void expectRecordedRoute(const RecordedRoute& recorded, const Collection<Node>& nodes,
                         const NavigationGraph& graph) {
  const auto route =
      searchRoute(nodesOf(nodes, recorded.starts), nodesOf(nodes, recorded.destinations), graph);
  ASSERT_EQ(route.has_value(), !recorded.path.empty());
  if (!route) return;
  EXPECT_EQ(route->path, nodesOf(nodes, recorded.path));
  EXPECT_EQ(route->cost, recorded.cost);
  EXPECT_EQ(weightOf(route->path, graph), recorded.weight);
  EXPECT_EQ(route->takenNodes, recorded.takenNodes);
}

}  // namespace orivanta::test
