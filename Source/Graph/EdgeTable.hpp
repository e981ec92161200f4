// The edges of a navigation graph: few long arrays, and for each node the part that is its own.
#pragma once

#include <tsl/ordered_map.h>

#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Source/Edge.hpp"

namespace orivanta {

/// Owns the edges and the nodes that they lead out of. Reading is safe from several threads.
class EdgeTable {
 public:
  using Row = std::pair<std::shared_ptr<Node>, std::span<const Edge>>;
  using Rows = tsl::ordered_map<std::shared_ptr<Node>, std::span<const Edge>, NodeIdentityHash,
                                NodeIdentityEqual, std::allocator<Row>, std::vector<Row>>;

  /// Edges out of several nodes, and each node's part of them.
  struct Block {
    std::vector<Edge> edges;
    std::vector<Row> rows;
  };

  /// Adds the rows, in order; a node that has one already keeps it.
  void add(std::vector<Block> blocks);

  /// Makes these the edges out of the node; a node without a row gets the last one.
  void set(const std::shared_ptr<Node>& origin, std::vector<Edge> edges);

  const Rows& rows() const { return rows_; }

  /// Empty for a node without a row; valid until the row is set.
  std::span<const Edge> operator[](const Node& node) const;

 private:
  Rows rows_;
  std::vector<std::vector<Edge>> edges_;  // moved as they grow in number, but not what they hold
};

}  // namespace orivanta
