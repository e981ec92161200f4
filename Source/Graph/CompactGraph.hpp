// A navigation graph in the compact form that the route search walks.
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

/// Numbers the nodes of a graph, those without edges of their own included, so that neighbors
/// have near numbers: floor by floor, along a Hilbert curve on each. Immutable, except for the
/// store of search states, which locks itself. Owns the nodes.
///
/// Positions and weights are those that the nodes and edges had when the graph was made.
class CompactGraph {
 public:
  using Index = std::uint32_t;

  /// A node: where it is, and which links lead out of it.
  struct Vertex {
    double x, y, z;
    Index firstLink, endLink;
  };
  /// An edge other than a loop: loops never make a route cheaper.
  struct Link {
    double weight;
    Index target;
  };

  /// What one search knows of a node. It is meant only while its stamp is the search's.
  struct NodeState {
    double cost;       ///< the least known from any start
    double heuristic;  ///< distance to the farthest destination
    Index predecessor;
    std::uint32_t reachedStamp = 0;      ///< of the search that set the four other fields
    std::uint32_t destinationStamp = 0;  ///< of the search that has the node as a destination
    bool queued;
  };
  /// What one search needs beside the graph; later searches use it again without clearing it.
  struct SearchState {
    std::vector<NodeState> nodes;
    RouteFrontier frontier;
    std::uint32_t stamp = 0;
  };

  static std::shared_ptr<const CompactGraph> make(const EdgeTable::Rows& rows);

  /// Whether all positions are finite and all weights 0 or greater, which the compact search takes
  /// for granted. Without that the graph is empty.
  bool isRegular() const { return regular_; }

  std::size_t size() const { return nodes_.size(); }
  std::optional<Index> find(const Node& node) const;
  const std::shared_ptr<Node>& node(Index index) const { return nodes_[index]; }
  const Vertex* vertices() const { return vertices_.data(); }
  const Link* links() const { return links_.data(); }

  /// A state for one search at a time, from the store or new; at least `nodeCount` nodes, none of
  /// them reached. Any thread.
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
