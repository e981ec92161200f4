// The edges of a navigation graph: a few long arrays, of which each node has a part.
#pragma once

#include <tsl/ordered_map.h>

#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Source/Edge.hpp"

namespace orivanta {

/// Owns the edges and their origin nodes. Several threads may read it concurrently.
class EdgeTable {
 public:
  using Row = std::pair<std::shared_ptr<Node>, std::span<const Edge>>;
  using Rows = tsl::ordered_map<std::shared_ptr<Node>, std::span<const Edge>, NodeIdentityHash,
                                NodeIdentityEqual, std::allocator<Row>, std::vector<Row>>;

  /// The edges of several nodes, and each node's part of them.
  struct Block {
    std::vector<Edge> edges;
    std::vector<Row> rows;
  };

  /// Adds the rows in order. A node that already has a row keeps it.
  void add(std::vector<Block> blocks);

  /// Sets the edges of the node. If the node has no row, a row is added at the end.
  void set(const std::shared_ptr<Node>& origin, std::vector<Edge> edges);

  const Rows& rows() const { return rows_; }

  /// Returns an empty span if the node has no row. Valid until the row is set.
  std::span<const Edge> operator[](const Node& node) const;

 private:
  Rows rows_;
  std::vector<std::vector<Edge>> edges_;  // growing moves the inner vectors, but not their elements
};

}  // namespace orivanta
