#include "Apps/Import/Network/WayLengths.hpp"

#include <functional>
#include <limits>
#include <queue>

namespace orivanta::importer {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

}  // namespace

void WayLengths::takeUp() {
  neighbors_.resize(network_.nodes.size());
  lengths_.resize(network_.nodes.size(), infinite);
  for (; edges_ < network_.edges.size(); ++edges_) {
    const Edge& edge = network_.edges[edges_];
    const double length =
        package::distance(network_.nodes[edge.from].position, network_.nodes[edge.to].position);
    neighbors_[edge.from].emplace_back(edge.to, length);
    neighbors_[edge.to].emplace_back(edge.from, length);
  }
}

double WayLengths::between(std::size_t from, std::size_t to, double limit) {
  takeUp();
  for (const std::size_t node : reached_) lengths_[node] = infinite;
  reached_.clear();
  using Entry = std::pair<double, std::size_t>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  const auto reach = [&](std::size_t node, double length) {
    if (length > limit || length >= lengths_[node]) return;
    if (lengths_[node] == infinite) reached_.push_back(node);
    lengths_[node] = length;
    open.emplace(length, node);
  };
  reach(from, 0.0);
  while (!open.empty()) {
    const auto [length, node] = open.top();
    open.pop();
    if (node == to) return length;
    if (length > lengths_[node]) continue;
    for (const auto& [next, step] : neighbors_[node]) {
      if (stepsLeft_ == 0) return infinite;
      --stepsLeft_;
      reach(next, length + step);
    }
  }
  return infinite;
}

}  // namespace orivanta::importer
