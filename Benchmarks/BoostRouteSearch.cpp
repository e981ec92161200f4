#include "Benchmarks/BoostRouteSearch.hpp"

#include <algorithm>
#include <boost/graph/astar_search.hpp>
#include <boost/property_map/property_map.hpp>
#include <cmath>
#include <utility>

#include "Source/Node.hpp"

namespace orivanta::benchmarks {

namespace {

struct Arrived {};

class StopAtDestination : public boost::default_astar_visitor {
 public:
  explicit StopAtDestination(std::uint32_t destination) : destination_(destination) {}

  template <class Graph>
  void examine_vertex(std::uint32_t vertex, const Graph&) const {
    if (vertex == destination_) throw Arrived();
  }

 private:
  std::uint32_t destination_;
};

}  // namespace

BoostRouteSearch::BoostRouteSearch(const NodeList& nodes, const NavigationGraph& graph) {
  for (const auto& node : nodes) {
    vertices_.emplace(node.get(), static_cast<std::uint32_t>(vertices_.size()));
    positions_.push_back({node->x, node->y, node->z});
  }
  std::vector<std::pair<std::uint32_t, std::uint32_t>> ends;
  std::vector<Way> ways;
  for (const auto& node : nodes)
    for (const Edge& edge : graph[*node]) {
      ends.emplace_back(vertices_.at(node.get()), vertices_.at(edge.node().get()));
      ways.push_back({edge.weight()});
    }
  graph_ = Graph(boost::edges_are_unsorted, ends.begin(), ends.end(), ways.begin(),
                 static_cast<std::uint32_t>(nodes.size()));
  predecessors_.resize(nodes.size());
  ranks_.resize(nodes.size());
  distances_.resize(nodes.size());
  colors_.resize(nodes.size());
}

std::vector<std::uint32_t> BoostRouteSearch::search(const Node& start, const Node& destination) {
  const std::uint32_t from = vertices_.at(&start);
  const std::uint32_t to = vertices_.at(&destination);
  const Position target = positions_[to];
  const auto heuristic = [&](std::uint32_t vertex) {
    const Position& position = positions_[vertex];
    const double dx = position.x - target.x;
    const double dy = position.y - target.y;
    const double dz = position.z - target.z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
  };
  const auto index = get(boost::vertex_index, graph_);
  const auto mapOf = [&](auto& values) {
    return boost::make_iterator_property_map(values.begin(), index);
  };
  try {
    boost::astar_search(graph_, from, heuristic,
                        boost::weight_map(get(&Way::weight, graph_))
                            .predecessor_map(mapOf(predecessors_))
                            .rank_map(mapOf(ranks_))
                            .distance_map(mapOf(distances_))
                            .color_map(mapOf(colors_))
                            .visitor(StopAtDestination(to)));
  } catch (const Arrived&) {
    std::vector<std::uint32_t> path{to};
    while (path.back() != from) path.push_back(predecessors_[path.back()]);
    std::reverse(path.begin(), path.end());
    return path;
  }
  return {};
}

}  // namespace orivanta::benchmarks
