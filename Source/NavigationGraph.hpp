// The navigation graph of a venue: directed, with weights.
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

/// Built once per loaded venue and not changed by the library afterwards. Several threads may read
/// it concurrently; `setGraph` must not be called concurrently with readers.
class ORIVANTA_API NavigationGraph {
 public:
  /// Maps each node that has outgoing edges to these edges, walking edges first.
  using Adjacency =
      tsl::ordered_map<std::shared_ptr<Node>, std::vector<Edge>, NodeIdentityHash,
                       NodeIdentityEqual,
                       std::allocator<std::pair<std::shared_ptr<Node>, std::vector<Edge>>>,
                       std::vector<std::pair<std::shared_ptr<Node>, std::vector<Edge>>>>;

  /// Walking edges come from each node's "paths"; unknown identifiers are skipped, duplicates and
  /// loops are kept. Then each vortex connects each of its nodes with all of them, including
  /// itself. If `accessible` is true, the first vortex that is not accessible ends this step, so
  /// pass the accessible ones first. A vortex that would increase the number of connector edges
  /// beyond 16,777,216 is skipped, with a diagnostic line. The edges count against `budget`, which
  /// may be null. Throws `std::bad_alloc` if the budget or the memory is not sufficient.
  NavigationGraph(const Collection<Node>& nodes, const Collection<Vortex>& vortices,
                  bool accessible,
                  const std::shared_ptr<foundation::MemoryBudget>& budget = nullptr);
  ~NavigationGraph();

  /// Returns the edges of a node, in order. Returns an empty span if there are none. Valid until
  /// `setGraph`.
  std::span<const Edge> operator[](const Node& node) const;

  /// Returns all edges as a dictionary, copied on first use. Valid until `setGraph`.
  const Adjacency& graph() const;

  /// Replaces all edges.
  void setGraph(Adjacency graph);

  /// Returns the same graph in the form that the route search uses. Created on first use.
  std::shared_ptr<const CompactGraph> compactGraph() const;

 private:
  void addWalkingEdges(const Collection<Node>& nodes,
                       const std::shared_ptr<foundation::MemoryBudget>& budget);
  void addConnectorEdges(const Collection<Vortex>& vortices, bool accessible,
                         const std::shared_ptr<foundation::MemoryBudget>& budget);

  std::unique_ptr<EdgeTable> edges_;
  mutable std::mutex formsMutex_;  // guards the two forms that are created on first use
  mutable std::unique_ptr<const Adjacency> graph_;
  mutable std::shared_ptr<const CompactGraph> compact_;
};

}  // namespace orivanta
