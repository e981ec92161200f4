// An edge of the navigation graph, and hashing of nodes by identity.
#pragma once

#include <cstddef>
#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Record.hpp"

namespace orivanta {

/// An edge that leads out of a node. Immutable. Owns its destination and its connector.
class ORIVANTA_API Edge {
 public:
  /// Creates a walking edge. Its length is the straight distance in three dimensions, without the
  /// maps' elevations; its cost is that length times the destination's `multiplierWeight` plus the
  /// destination's `constantWeight`.
  Edge(const Node& origin, std::shared_ptr<Node> destination);

  /// Creates a ride on a connector. Its length is 0; its cost is the difference between the maps'
  /// elevations times the connector's `multiplierWeight` plus the connector's `constantWeight`.
  /// Stops the program if a node has no map.
  Edge(const Node& origin, std::shared_ptr<Node> destination, std::shared_ptr<Vortex> vortex);

  const std::shared_ptr<Node>& node() const { return node_; }        ///< the destination
  const std::shared_ptr<Vortex>& vortex() const { return vortex_; }  ///< null for a walking edge
  double distance() const { return distance_; }                      ///< in the venue's units
  double weight() const { return weight_; }                          ///< the cost

 private:
  std::shared_ptr<Node> node_;
  std::shared_ptr<Vortex> vortex_;
  double distance_;
  double weight_;
};

/// Hash of nodes by identity, for handles and for plain pointers.
struct NodeIdentityHash {
  using is_transparent = void;  ///< allows lookups by plain pointer

  /// Returns the hash of the node.
  std::size_t operator()(const std::shared_ptr<Node>& node) const { return (*this)(node.get()); }

  /// Returns the hash of the node.
  std::size_t operator()(const Node* node) const {
    // Addresses from one allocator differ in few bits; the multiplication distributes them.
    return (identityHash(node) >> 4U) * 0x9E3779B97F4A7C15U >> 7U;
  }
};

/// Equality of nodes by identity, for handles and for plain pointers.
struct NodeIdentityEqual {
  using is_transparent = void;  ///< allows lookups by plain pointer

  /// Returns whether both are the same node.
  bool operator()(const auto& left, const auto& right) const {
    return address(left) == address(right);
  }

 private:
  static const Node* address(const Node* node) { return node; }
  static const Node* address(const std::shared_ptr<Node>& node) { return node.get(); }
};

}  // namespace orivanta
