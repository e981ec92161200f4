// The walking network of a venue as a directed graph with weights.
#pragma once

#include <tsl/ordered_map.h>

#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Source/Fwd.hpp"
#include "Source/Node.hpp"

namespace orivanta {

class EdgeTable;
class RouteNetwork;

/// A way out of a node. Immutable; owns its destination and its connector.
class ORIVANTA_API Edge {
 public:
  /// Walking: the length is the straight distance in three dimensions, without the maps'
  /// elevations; it costs what the destination's weights make of it.
  Edge(const Node& origin, std::shared_ptr<Node> destination);

  /// Riding a connector: no length; it costs what the connector's weights make of the difference
  /// between the maps' elevations. A node without a map stops the program.
  Edge(const Node& origin, std::shared_ptr<Node> destination, std::shared_ptr<Vortex> vortex);

  const std::shared_ptr<Node>& node() const { return node_; }        ///< the destination
  const std::shared_ptr<Vortex>& vortex() const { return vortex_; }  ///< null when walking
  double distance() const { return distance_; }                      ///< in the venue's units
  double weight() const { return weight_; }                          ///< what the search adds up

 private:
  std::shared_ptr<Node> node_;
  std::shared_ptr<Vortex> vortex_;
  double distance_;
  double weight_;
};

/// Hash and equality of nodes by identity, for handles and for plain pointers.
struct NodeIdentityHash {
  using is_transparent = void;
  std::size_t operator()(const std::shared_ptr<Node>& node) const { return (*this)(node.get()); }
  std::size_t operator()(const Node* node) const {
    // Addresses of one allocator differ in few bits; the multiplication spreads them.
    return (identityHash(node) >> 4U) * 0x9E3779B97F4A7C15U >> 7U;
  }
};
struct NodeIdentityEqual {
  using is_transparent = void;
  bool operator()(const auto& left, const auto& right) const {
    return address(left) == address(right);
  }

 private:
  static const Node* address(const Node* node) { return node; }
  static const Node* address(const std::shared_ptr<Node>& node) { return node.get(); }
};

/// Built once per loaded venue and not changed by the library afterwards. Reading from several
/// threads at once is safe; `setGraph` is not safe beside readers.
class ORIVANTA_API NavigationGraph {
 public:
  /// The edges out of each node that has any, walking edges first.
  using Adjacency =
      tsl::ordered_map<std::shared_ptr<Node>, std::vector<Edge>, NodeIdentityHash,
                       NodeIdentityEqual,
                       std::allocator<std::pair<std::shared_ptr<Node>, std::vector<Edge>>>,
                       std::vector<std::pair<std::shared_ptr<Node>, std::vector<Edge>>>>;

  /// Walking edges come from each node's "paths"; unknown identifiers are passed over, duplicates
  /// and loops are kept. Then each vortex joins all its nodes with one another, each with itself
  /// too. With `accessible`, the first vortex that is not accessible ends the vortices altogether,
  /// so hand the accessible ones over first. A vortex that would bring the connector edges beyond
  /// 16,777,216 contributes none, and a diagnostic line says so. `budget`, if there is one, pays
  /// for the edges; throws `std::bad_alloc` if it or the memory does not suffice.
  NavigationGraph(const Collection<Node>& nodes, const Collection<Vortex>& vortices,
                  bool accessible,
                  const std::shared_ptr<foundation::MemoryBudget>& budget = nullptr);
  ~NavigationGraph();

  /// The edges out of a node, in order; empty for a node without any. Valid until `setGraph`.
  std::span<const Edge> operator[](const Node& node) const;

  /// All of them as a dictionary, copied on first use; valid until `setGraph`.
  const Adjacency& graph() const;
  void setGraph(Adjacency graph);

  /// The same graph in the form that the route search walks, made on first use.
  std::shared_ptr<const RouteNetwork> routeNetwork() const;

 private:
  void addWalkingEdges(const Collection<Node>& nodes,
                       const std::shared_ptr<foundation::MemoryBudget>& budget);
  void addConnectorEdges(const Collection<Vortex>& vortices, bool accessible,
                         const std::shared_ptr<foundation::MemoryBudget>& budget);

  std::unique_ptr<EdgeTable> edges_;
  mutable std::mutex formsMutex_;  // for the two that are made on first use
  mutable std::unique_ptr<const Adjacency> graph_;
  mutable std::shared_ptr<const RouteNetwork> network_;
};

}  // namespace orivanta
