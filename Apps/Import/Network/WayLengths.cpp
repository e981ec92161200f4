#include "Apps/Import/Network/WayLengths.hpp"

#include <functional>
#include <queue>

namespace orivanta::importer {

WayLengths::Node& WayLengths::at(std::size_t node) {
  if (node >= nodes_.size()) nodes_.resize(node + 1);
  return nodes_[node];
}

void WayLengths::addLine(std::size_t from, std::size_t to, double length) {
  at(from).lines.emplace_back(to, length);
  at(to).lines.emplace_back(from, length);
}

void WayLengths::setEnd(std::size_t node) { at(node).isEnd = true; }

void WayLengths::search(std::size_t from, double limit, std::size_t goal) {
  for (const std::size_t node : reached_) nodes_[node].length = unknown;
  reached_.clear();
  using Entry = std::pair<double, std::size_t>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  const auto reach = [&](std::size_t node, double length) {
    Node& reached = nodes_[node];
    if (length > limit || length >= reached.length) return;
    if (reached.length == unknown) reached_.push_back(node);
    reached.length = length;
    open.emplace(length, node);
  };
  at(from);
  reach(from, 0.0);
  while (!open.empty()) {
    const auto [length, node] = open.top();
    open.pop();
    if (node == goal) return;
    if (length > nodes_[node].length || (nodes_[node].isEnd && node != from)) continue;
    for (const auto& [next, step] : nodes_[node].lines) {
      if (stepsLeft_ == 0) return;
      --stepsLeft_;
      reach(next, length + step);
    }
  }
}

}  // namespace orivanta::importer
