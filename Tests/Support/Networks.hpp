// Small navigation graphs for tests: single nodes, drawings, and shopping malls.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"

namespace orivanta::test {

/// A node without a venue: no map, no paths, and the default weights.
std::shared_ptr<Node> makeNode(double x, double y, double z = 0.0, const std::string& id = "node");

/// A graph drawn with one letter or digit per node:
///
///     A---B
///     |   v     `-` and `|` are edges in both directions;
///     C<--D     with an arrowhead (`<`, `>`, `^`, `v`), in one direction only
///
/// The position of a node is x = its column and y = its line. The edges of a node are in the order
/// right, down, left, up.
class DrawnNetwork {
 public:
  /// `weights` sets the "weight" of nodes as in the web API.
  explicit DrawnNetwork(std::string_view drawing, const std::map<char, double>& weights = {});

  /// The nodes with these names.
  NodeList operator()(std::string_view names) const;

  Collection<Node> nodes;
  std::unique_ptr<NavigationGraph> graph;
};

/// The names of the nodes of a path, concatenated.
std::string namesOf(const NodeList& path);

/// Floors with corridors in a grid, with missing crossings, shops next to the corridors, and shafts
/// of elevators and stairs that connect all floors.
struct Mall {
  NodeList nodes;  ///< not ordered by position
  std::shared_ptr<NavigationGraph> graph;
};

/// A mall with about `nodeCount` nodes. `jitter` moves nodes off the grid by up to this fraction of
/// its width; with 0, many routes have equal costs. The result depends only on the arguments.
Mall makeMall(std::size_t nodeCount, double jitter, std::uint32_t seed);

}  // namespace orivanta::test
