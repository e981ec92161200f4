// A navigation graph in the compact form that the route search uses.
#pragma once

#include <tsl/ordered_map.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "Source/Graph/EdgeTable.hpp"
#include "Source/Graph/RouteFrontier.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

/// Numbers the nodes of a graph, including those without outgoing edges, so that neighbors have
/// similar numbers: floor by floor, along a Hilbert curve on each. Immutable, except for the store
/// of search states, which is thread-safe. Owns the nodes.
///
/// The positions and weights are those at the time of construction.
class CompactGraph {
 public:
  using Index = std::uint32_t;

  /// A node: its position and the links that lead out of it.
  struct Vertex {
    double x, y, z;
    Index firstLink, endLink;
  };
  /// An edge that is not a loop; loops never make a route cheaper.
  struct Link {
    double weight;
    Index target;
  };

  /// The state of a node in one search. Valid only if its stamp equals the stamp of the search.
  struct NodeState {
    double cost;       ///< the lowest known cost from any start
    double heuristic;  ///< distance to the farthest destination
    Index predecessor;
    std::uint32_t reachedStamp = 0;      ///< the search that set the other four fields
    std::uint32_t destinationStamp = 0;  ///< the search in which the node is a destination
    bool queued;
  };
  /// The data of one search; later searches reuse it without clearing it.
  struct SearchState {
    std::vector<NodeState> nodes;
    RouteFrontier frontier;
    std::uint32_t stamp = 0;
  };

  static std::shared_ptr<const CompactGraph> make(const EdgeTable::Rows& rows);

  /// Returns whether all positions are finite and all weights are 0 or greater, as the compact
  /// search requires. If not, the graph is empty.
  bool isRegular() const { return regular_; }

  std::size_t size() const { return nodes_.size(); }
  std::optional<Index> find(const Node& node) const;
  const std::shared_ptr<Node>& node(Index index) const { return nodes_[index]; }
  const Vertex* vertices() const { return vertices_.data(); }
  const Link* links() const { return links_.data(); }

  /// Returns a state for one search, from the store or new, with at least `nodeCount` nodes, none
  /// of which is reached. Thread-safe.
  std::unique_ptr<SearchState> takeState(std::size_t nodeCount) const;
  void giveBack(std::unique_ptr<SearchState> state) const;

 private:
  using Numbers = tsl::ordered_map<const Node*, Index, NodeIdentityHash, NodeIdentityEqual>;

  void addNodes(const EdgeTable::Rows& rows);
  void addLinks(const EdgeTable::Rows& rows);

  bool regular_ = true;
  Numbers numbers_;
  std::vector<std::shared_ptr<Node>> nodes_;
  std::vector<Vertex> vertices_;
  std::vector<Link> links_;
  mutable std::mutex stateMutex_;
  mutable std::vector<std::unique_ptr<SearchState>> states_;
};

}  // namespace orivanta
