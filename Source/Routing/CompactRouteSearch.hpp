// The route search over a compact graph. It takes the same nodes in the same order as the search
// with a sorted list and PriorityQueue's `put` does, and so finds the same path, bit for bit:
//
// - A queued node keeps its place. When its cost falls while it is queued, its new priority is not
//   greater than the old one (same heuristic, and rounding is monotone), and then `put` changes
//   nothing. So no element is queued twice, and a heap that takes equal priorities newest first
//   gives the list's order.
// - A node that was taken is queued again when its cost falls: there is no closed set.
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
  /// Whether the reasons above hold: no weight is negative, and no distance is not a number.
  static bool covers(const CompactGraph& graph, const NodeList& nodes,
                     const NodeList& destinations);

  /// Neither list is empty, and the graph covers both.
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
  /// Start nodes that the graph does not have, numbered after those it has.
  NodeList foreign_;
  std::unordered_map<const Node*, Index> foreignNumbers_;
  Position firstDestination_;
  std::vector<Position> otherDestinations_;
  std::unique_ptr<CompactGraph::SearchState> state_;
};

}  // namespace orivanta
