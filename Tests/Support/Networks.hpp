// Small walking networks for tests: single nodes, drawings, and whole shopping malls.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"

namespace orivanta::test {

/// A node of no venue: no map, no paths, weights as for a missing "weight".
std::shared_ptr<Node> makeNode(double x, double y, double z = 0.0, const std::string& id = "node");

/// A network drawn with one letter or digit a node:
///
///     A---B
///     |   v     `-` and `|` are ways in both directions, with an arrow head
///     C<--D     (`<`, `>`, `^`, `v`) in one only
///
/// A node lies at x = its column and y = its line. The edges out of a node stand in the order
/// right, down, left, up.
class DrawnNetwork {
 public:
  /// `weights` gives nodes a "weight" as the web API would.
  explicit DrawnNetwork(std::string_view drawing, const std::map<char, double>& weights = {});

  /// The nodes of these names.
  NodeList operator()(std::string_view names) const;

  Collection<Node> nodes;
  std::unique_ptr<NavigationGraph> graph;
};

/// The names of a path's nodes in a row.
std::string namesOf(const NodeList& path);

/// Floors of corridors in a grid, broken by blocks, with shops hanging off and shafts of lifts and
/// stairs that join every floor with every other.
struct Mall {
  NodeList nodes;  ///< in no order of place
  std::shared_ptr<NavigationGraph> graph;
};

/// About `nodeCount` nodes. `jitter` moves nodes off the grid, by up to this share of its width;
/// with 0 there are ties everywhere. The same arguments give the same mall.
Mall makeMall(std::size_t nodeCount, double jitter, std::uint32_t seed);

}  // namespace orivanta::test
