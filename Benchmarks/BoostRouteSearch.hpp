// A* of the Boost Graph Library over the same nodes and edges, for comparison.
#pragma once

#include <boost/graph/compressed_sparse_row_graph.hpp>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"

namespace orivanta::benchmarks {

/// Uses a compressed sparse row graph, vector property maps that are allocated once, and the
/// straight distance as heuristic. Vertices have the numbers of the nodes in the list.
class BoostRouteSearch {
 public:
  BoostRouteSearch(const NodeList& nodes, const NavigationGraph& graph);

  /// The vertices of a cheapest path from the start; empty if there is none.
  std::vector<std::uint32_t> search(const Node& start, const Node& destination);

 private:
  struct Way {
    double weight;
  };
  struct Position {
    double x, y, z;
  };
  using Graph =
      boost::compressed_sparse_row_graph<boost::directedS, boost::no_property, Way,
                                         boost::no_property, std::uint32_t, std::uint32_t>;

  std::unordered_map<const Node*, std::uint32_t> vertices_;
  std::vector<Position> positions_;
  Graph graph_;
  std::vector<std::uint32_t> predecessors_;
  std::vector<double> ranks_;
  std::vector<double> distances_;
  std::vector<boost::default_color_type> colors_;
};

}  // namespace orivanta::benchmarks
