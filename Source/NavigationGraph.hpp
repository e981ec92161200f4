// The walking network of a venue as a directed graph with weights.
#pragma once

#include <tsl/ordered_map.h>

#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Source/Collections.hpp"
#include "Source/Edge.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

class EdgeTable;
class CompactGraph;

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

  /// Replaces all edges.
  void setGraph(Adjacency graph);

  /// The same graph in the form that the route search walks, made on first use.
  std::shared_ptr<const CompactGraph> compactGraph() const;

 private:
  void addWalkingEdges(const Collection<Node>& nodes,
                       const std::shared_ptr<foundation::MemoryBudget>& budget);
  void addConnectorEdges(const Collection<Vortex>& vortices, bool accessible,
                         const std::shared_ptr<foundation::MemoryBudget>& budget);

  std::unique_ptr<EdgeTable> edges_;
  mutable std::mutex formsMutex_;  // for the two that are made on first use
  mutable std::unique_ptr<const Adjacency> graph_;
  mutable std::shared_ptr<const CompactGraph> compact_;
};

}  // namespace orivanta
