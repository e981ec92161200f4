// Searches of the Boost Graph Library over the network and the costs of a guide, for comparison.
#pragma once

#include <boost/graph/compressed_sparse_row_graph.hpp>
#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

#include "Source/Guidance/Network/CostTable.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::benchmarks {

/// Uses a compressed sparse row graph and vector property maps that are allocated once. Vertices
/// have the numbers of the network. The arguments must outlive it.
class BoostGuide {
 public:
  using Index = guidance::GuideNetwork::Index;

  BoostGuide(const guidance::GuideNetwork& network, const guidance::CostTable& costs);

  /// The cost of a cheapest path, by A* with the bound of the guide; nothing if there is none.
  std::optional<std::int64_t> search(Index from, Index to);

  /// The least cost to any of the vertices, by Dijkstra's algorithm.
  std::optional<std::int64_t> nearest(Index from, const std::unordered_set<Index>& targets);

  /// The number of vertices that can be reached, by Dijkstra's algorithm.
  std::size_t spread(Index from);

 private:
  struct Way {
    std::int64_t cost;
  };
  using Graph =
      boost::compressed_sparse_row_graph<boost::directedS, boost::no_property, Way,
                                         boost::no_property, std::uint32_t, std::uint32_t>;

  auto mapOf(auto& values);

  const guidance::GuideNetwork& network_;
  const guidance::CostTable& costs_;
  Graph graph_;
  std::vector<std::uint32_t> predecessors_;
  std::vector<double> ranks_;
  std::vector<std::int64_t> distances_;
  std::vector<boost::default_color_type> colors_;
};

}  // namespace orivanta::benchmarks
