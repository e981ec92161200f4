// The lengths of ways in a network that grows.
#pragma once

#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace orivanta::importer {

/// Nodes are numbers. Ways lead along lines in both directions.
class WayLengths {
 public:
  static constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

  /// Searches examine at most `steps` lines, all together.
  explicit WayLengths(std::size_t steps) : stepsLeft_(steps) {}
  bool isUsedUp() const { return stepsLeft_ == 0; }

  void addLine(std::size_t from, std::size_t to, double length);

  /// Lets ways begin and end at a node, but not lead through it.
  void setEnd(std::size_t node);
  bool isEnd(std::size_t node) const { return node < nodes_.size() && nodes_[node].isEnd; }

  /// The nodes at the other ends of the lines of a node that has lines, with their lengths. Valid
  /// until a line is added.
  const std::vector<std::pair<std::size_t, double>>& linesOf(std::size_t node) const {
    return nodes_[node].lines;
  }

  bool hasLines(std::size_t node) const {
    return node < nodes_.size() && !nodes_[node].lines.empty();
  }

  /// Finds the ways of at most `limit` meters. Stops at `goal`; then other ways may be missing.
  void search(std::size_t from, double limit, std::size_t goal = nowhere);

  /// The length that the last search has found, in meters. Infinite if there is no such way, and if
  /// the steps were used up.
  double to(std::size_t node) const {
    if (node >= nodes_.size()) return unknown;
    return nodes_[node].length;
  }

 private:
  static constexpr double unknown = std::numeric_limits<double>::infinity();

  struct Node {
    std::vector<std::pair<std::size_t, double>> lines;
    double length = unknown;
    bool isEnd = false;
  };
  Node& at(std::size_t node);

  std::vector<Node> nodes_;
  std::vector<std::size_t> reached_;
  std::size_t stepsLeft_;
};

}  // namespace orivanta::importer
