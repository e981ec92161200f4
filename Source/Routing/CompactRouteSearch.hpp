// The route search over a compact graph. It takes the same nodes in the same order as a search with
// a sorted list and PriorityQueue's `put`, so it finds exactly the same path:
//
// - A queued node keeps its position. If its cost decreases while it is queued, its new priority is
//   not greater than the old one (same heuristic, and rounding is monotone), so `put` changes
//   nothing. Therefore no element is queued twice, and a heap that takes equal priorities newest
//   first has the order of the list.
// - A taken node is queued again if its cost decreases: there is no closed set.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "Source/Graph/CompactGraph.hpp"
#include "Source/NodeList.hpp"
#include "Source/Route.hpp"

namespace orivanta {

/// One search. The graph and the lists must outlive it.
class CompactRouteSearch {
 public:
  /// Returns whether these conditions hold: no weight is negative, and no distance is NaN.
  static bool covers(const CompactGraph& graph, const NodeList& nodes,
                     const NodeList& destinations);

  /// The lists must not be empty, and the graph must support both.
  CompactRouteSearch(const CompactGraph& graph, const NodeList& nodes,
                     const NodeList& destinations);
  ~CompactRouteSearch();
  CompactRouteSearch(const CompactRouteSearch&) = delete;
  CompactRouteSearch& operator=(const CompactRouteSearch&) = delete;

  std::optional<Route> run();

 private:
  using Index = CompactGraph::Index;
  using NodeState = CompactGraph::NodeState;
  struct Position {
    double x, y, z;
  };

  Index number(const Node& node) const;
  void setDestinations(const NodeList& destinations);
  const std::shared_ptr<Node>& node(Index index) const;
  double heuristic(double x, double y, double z) const;
  void putStart(const std::shared_ptr<Node>& start);
  void expand(Index current);
  Route routeTo(Index destination, std::size_t takenNodes) const;

  const CompactGraph& graph_;
  /// Start nodes that are not in the graph, numbered after its nodes.
  NodeList foreign_;
  std::unordered_map<const Node*, Index> foreignNumbers_;
  Position firstDestination_;
  std::vector<Position> otherDestinations_;
  std::unique_ptr<CompactGraph::SearchState> state_;
};

}  // namespace orivanta
