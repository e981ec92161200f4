#include "Benchmarks/BoostGuide.hpp"

#include <algorithm>
#include <boost/graph/astar_search.hpp>
#include <boost/graph/dijkstra_shortest_paths.hpp>
#include <boost/property_map/property_map.hpp>
#include <cmath>
#include <limits>
#include <utility>

namespace orivanta::benchmarks {

namespace {

using Index = BoostGuide::Index;

constexpr std::int64_t unreached = std::numeric_limits<std::int64_t>::max();

struct Arrived {
  Index at;
};

template <class Base, class IsTarget>
class StopAt : public Base {
 public:
  explicit StopAt(const IsTarget& isTarget) : isTarget_(isTarget) {}

  template <class Graph>
  void examine_vertex(Index vertex, const Graph&) const {
    if (isTarget_(vertex)) throw Arrived{vertex};
  }

 private:
  IsTarget isTarget_;
};

}  // namespace

BoostGuide::BoostGuide(const guidance::GuideNetwork& network, const guidance::CostTable& costs)
    : network_(network), costs_(costs) {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> ends;
  std::vector<Way> ways;
  for (Index arc = 0; arc < network.arcs().size(); ++arc) {
    if (costs[arc] == guidance::CostTable::unusable) continue;
    ends.emplace_back(network.arcs()[arc].origin, network.arcs()[arc].target);
    ways.push_back({costs[arc]});
  }
  graph_ = Graph(boost::edges_are_unsorted, ends.begin(), ends.end(), ways.begin(), network.size());
  predecessors_.resize(network.size());
  ranks_.resize(network.size());
  distances_.resize(network.size());
  colors_.resize(network.size());
}

auto BoostGuide::mapOf(auto& values) {
  return boost::make_iterator_property_map(values.begin(), get(boost::vertex_index, graph_));
}

std::optional<std::int64_t> BoostGuide::search(Index from, Index to) {
  const auto& goal = network_.vertex(to);
  const auto bound = [&](Index vertex) {
    const auto& here = network_.vertex(vertex);
    const double dx = here.x - goal.x;
    const double dy = here.y - goal.y;
    return static_cast<std::int64_t>(costs_.millisecondsPerUnit() * std::sqrt(dx * dx + dy * dy) +
                                     costs_.floorBound(here.floor, goal.floor));
  };
  const auto isGoal = [to](Index vertex) { return vertex == to; };
  try {
    boost::astar_search(
        graph_, from, bound,
        boost::weight_map(get(&Way::cost, graph_))
            .predecessor_map(mapOf(predecessors_))
            .rank_map(mapOf(ranks_))
            .distance_map(mapOf(distances_))
            .color_map(mapOf(colors_))
            .distance_inf(unreached)
            .visitor(StopAt<boost::default_astar_visitor, decltype(isGoal)>(isGoal)));
  } catch (const Arrived&) {
    return distances_[to];
  }
  return std::nullopt;
}

std::optional<std::int64_t> BoostGuide::nearest(Index from,
                                                const std::unordered_set<Index>& targets) {
  const auto isGoal = [&](Index vertex) { return targets.count(vertex) != 0; };
  try {
    boost::dijkstra_shortest_paths(
        graph_, from,
        boost::weight_map(get(&Way::cost, graph_))
            .predecessor_map(mapOf(predecessors_))
            .distance_map(mapOf(distances_))
            .color_map(mapOf(colors_))
            .distance_inf(unreached)
            .visitor(StopAt<boost::default_dijkstra_visitor, decltype(isGoal)>(isGoal)));
  } catch (const Arrived& arrived) {
    return distances_[arrived.at];
  }
  return std::nullopt;
}

std::size_t BoostGuide::spread(Index from) {
  nearest(from, {});
  return static_cast<std::size_t>(std::count_if(distances_.begin(), distances_.end(),
                                                [](auto cost) { return cost != unreached; }));
}

}  // namespace orivanta::benchmarks
