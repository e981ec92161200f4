#include "Source/RouteSearch.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "Source/Node.hpp"
#include "Tests/Support/ListRouteSearch.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta {
namespace {

using test::DrawnNetwork;
using test::makeNode;
using test::namesOf;
using test::searchRouteWithList;

constexpr double infinity = std::numeric_limits<double>::infinity();

bool equal(const std::optional<Route>& left, const std::optional<Route>& right) {
  if (!left || !right) return !left && !right;
  const bool equalCosts =
      left->cost == right->cost || (std::isnan(left->cost) && std::isnan(right->cost));
  return equalCosts && left->path == right->path && left->takenNodes == right->takenNodes;
}

struct DrawnCase {
  const char* what;
  const char* drawing;
  std::map<char, double> weights;
  const char* from;
  const char* to;
  const char* path;  ///< "" if there is no route
  double cost;
  std::size_t taken;
};

TEST(RouteSearch, FindsRoutesOnDrawnNetworks) {
  const DrawnCase cases[] = {
      {"start is destination", "A-B", {}, "A", "A", "A", 0, 1},
      {"a start among the destinations", "A-B-C", {}, "AC", "BC", "C", 0, 1},
      {"straight on", "A-B-C", {}, "A", "C", "ABC", 4, 3},
      {"one-way streets", "A<B-C\n|   |\nD---E", {}, "A", "C", "ADEC", 8, 4},
      {"no path", "A B", {}, "A", "B", "", 0, 0},
      {"no path against the arrow", "A<B", {}, "A", "B", "", 0, 0},
      {"no starts", "A-B", {}, "", "B", "", 0, 0},
      {"no destinations", "A-B", {}, "A", "", "", 0, 0},
      {"same start twice", "A-B", {}, "AA", "B", "AB", 2, 2},
      {"ties: the newest first", "A-B\n| |\nC-D", {}, "A", "D", "ACD", 4, 3},
      {"avoids a heavy node", "A-B-C\n|   |\nD-E-F", {{'B', 9}}, "A", "C", "ADEFC", 8, 5},
      {"heads for the farther destination first",
       "A---B---C----------D",
       {},
       "B",
       "AD",
       "BA",
       4,
       3},
  };
  for (const DrawnCase& test : cases) {
    const DrawnNetwork network(test.drawing, test.weights);
    const auto route = searchRoute(network(test.from), network(test.to), *network.graph);
    EXPECT_EQ(route ? namesOf(route->path) : "", test.path) << test.what;
    EXPECT_EQ(route ? route->cost : 0.0, test.cost) << test.what;
    EXPECT_EQ(route ? route->takenNodes : 0, test.taken) << test.what;
    EXPECT_TRUE(
        equal(route, searchRouteWithList(network(test.from), network(test.to), *network.graph)))
        << test.what;
  }
}

/// A graph of random edges, and the ends of a search, some of which are not in the graph.
struct RandomGraph {
  NodeList nodes;
  std::unique_ptr<NavigationGraph> graph;
};

struct RandomShape {
  const char* what;
  std::size_t nodes;
  double edgesPerNode;
  std::function<double(std::mt19937&)> coordinate;
  std::function<double(std::mt19937&)> constantWeight;
  bool withCycles = true;
};

RandomGraph makeRandomGraph(const RandomShape& shape, std::mt19937& random) {
  RandomGraph made;
  for (std::size_t i = 0; i < shape.nodes; ++i) {
    auto node = makeNode(shape.coordinate(random), shape.coordinate(random));
    node->constantWeight = shape.constantWeight(random);
    made.nodes.push_back(std::move(node));
  }
  NavigationGraph::Adjacency edges;
  const auto count = static_cast<int>(static_cast<double>(shape.nodes) * shape.edgesPerNode);
  for (int i = 0; i < count; ++i) {
    const std::size_t from = random() % shape.nodes;
    const std::size_t to = random() % shape.nodes;
    if (shape.withCycles || from < to)
      edges[made.nodes[from]].emplace_back(*made.nodes[from], made.nodes[to]);
  }
  for (int i = 0; i < 3; ++i) made.nodes.push_back(makeNode(shape.coordinate(random), i));
  made.graph = std::make_unique<NavigationGraph>(Collection<Node>{}, Collection<Vortex>{}, false);
  made.graph->setGraph(std::move(edges));
  return made;
}

NodeList pick(const NodeList& nodes, std::size_t most, std::mt19937& random) {
  NodeList picked;
  for (std::size_t count = 1 + random() % most; count != 0; --count)
    picked.push_back(nodes[random() % nodes.size()]);
  return picked;
}

double none(std::mt19937&) { return 0.0; }
double digit(std::mt19937& random) { return static_cast<int>(random() % 10); }
double fraction(std::mt19937& random) { return std::uniform_real_distribution(0.0, 9.0)(random); }
double huge(std::mt19937& random) { return digit(random) < 5 ? -1e308 : 1e307 * fraction(random); }
double rarelyInfinite(std::mt19937& random) { return random() % 8 == 0 ? infinity : digit(random); }
double rarelyNoNumber(std::mt19937& random) {
  return random() % 20 == 0 ? std::numeric_limits<double>::quiet_NaN() : digit(random);
}
double rarelyNegative(std::mt19937& random) { return random() % 9 == 0 ? -0.5 : digit(random) + 1; }
double negativeZero(std::mt19937& random) { return random() % 2 == 0 ? -0.0 : 0.0; }

TEST(RouteSearch, FollowsTheListOnRandomGraphs) {
  const RandomShape shapes[] = {
      {"ties everywhere", 40, 2.5, digit, none},
      {"all in one place", 30, 2.5, none, none},
      {"costly edges", 60, 3.0, digit, digit},
      {"no ties", 60, 3.0, fraction, fraction},
      {"in parts", 60, 0.9, digit, digit},
      {"dense", 25, 15.0, digit, fraction},
      {"huge coordinates", 40, 2.5, huge, digit},
      {"infinite weights", 40, 2.5, fraction, rarelyInfinite},
      {"negative zeros", 40, 2.5, digit, negativeZero},
      {"coordinates that are not numbers", 40, 3.0, rarelyNoNumber, digit},
      {"infinite coordinates", 40, 3.0, rarelyInfinite, digit},
      {"weights that are not numbers", 40, 3.0, digit, rarelyNoNumber},
      {"negative weights", 30, 6.0, digit, rarelyNegative, false},
  };
  std::mt19937 random(11);
  for (const RandomShape& shape : shapes) {
    std::size_t found = 0;
    for (int repetition = 0; repetition < 40; ++repetition) {
      const RandomGraph made = makeRandomGraph(shape, random);
      for (int query = 0; query < 25; ++query) {
        const NodeList starts = pick(made.nodes, 3, random);
        const NodeList destinations = pick(made.nodes, 3, random);
        const auto route = searchRoute(starts, destinations, *made.graph);
        ASSERT_TRUE(equal(route, searchRouteWithList(starts, destinations, *made.graph)))
            << shape.what << ", graph " << repetition << ", query " << query;
        if (route && route->path.size() > 1) ++found;
      }
    }
    EXPECT_GT(found, 100U) << shape.what;
  }
}

TEST(RouteSearch, SeveralThreadsSearchOneGraphAtOnce) {
  std::mt19937 shaping(2);
  const RandomGraph shared = makeRandomGraph({"", 1500, 3.0, digit, none}, shaping);
  const auto routesOf = [&shared](std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<std::optional<Route>> routes;
    routes.reserve(40);
    for (int query = 0; query < 40; ++query)
      routes.push_back(
          searchRoute(pick(shared.nodes, 2, random), pick(shared.nodes, 2, random), *shared.graph));
    return routes;
  };
  std::vector<std::vector<std::optional<Route>>> found(4);
  std::vector<std::thread> threads;
  for (std::uint32_t seed = 0; seed < 4; ++seed)
    threads.emplace_back([&, seed] { found[seed] = routesOf(seed); });
  for (auto& thread : threads) thread.join();
  for (std::uint32_t seed = 0; seed < 4; ++seed) {
    const auto expected = routesOf(seed);
    for (std::size_t query = 0; query < expected.size(); ++query)
      EXPECT_TRUE(equal(found[seed][query], expected[query]));
  }
}

}  // namespace
}  // namespace orivanta
