// Small navigation graphs for tests: single nodes and drawings.
#pragma once

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

}  // namespace orivanta::test
