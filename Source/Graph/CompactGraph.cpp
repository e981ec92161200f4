#include "Source/Graph/CompactGraph.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "Source/Graph/SpatialOrder.hpp"
#include "Source/Node.hpp"

namespace orivanta {

namespace {

bool isFinite(const Node& node) {
  return std::isfinite(node.x) && std::isfinite(node.y) && std::isfinite(node.z);
}

bool isRegularGraph(const EdgeTable::Rows& rows) {
  std::size_t edgeCount = 0;
  for (const auto& [origin, edges] : rows) {
    if (!isFinite(*origin)) return false;
    for (const Edge& edge : edges)
      if (!(edge.weight() >= 0.0) || !isFinite(*edge.node())) return false;
    edgeCount += edges.size();
  }
  // Nodes and links have 32-bit numbers; at most `edgeCount` nodes have no outgoing edges.
  return edgeCount + rows.size() < std::numeric_limits<CompactGraph::Index>::max() / 2;
}

}  // namespace

std::shared_ptr<const CompactGraph> CompactGraph::make(const EdgeTable::Rows& rows) {
  auto graph = std::make_shared<CompactGraph>();
  graph->regular_ = isRegularGraph(rows);
  if (graph->regular_) {
    graph->addNodes(rows);
    graph->addLinks(rows);
  }
  return graph;
}

void CompactGraph::addNodes(const EdgeTable::Rows& rows) {
  NodeList found;
  numbers_.reserve(rows.size());
  const auto add = [&](const std::shared_ptr<Node>& node) {
    if (numbers_.insert({node.get(), 0}).second) found.push_back(node);
  };
  for (const auto& [origin, edges] : rows) {
    add(origin);
    for (const Edge& edge : edges) add(edge.node());
  }
  nodes_ = inSpatialOrder(found);
  for (Index index = 0; index < nodes_.size(); ++index) numbers_[nodes_[index].get()] = index;
}

void CompactGraph::addLinks(const EdgeTable::Rows& rows) {
  vertices_.reserve(nodes_.size());
  for (const auto& node : nodes_) {
    const auto firstLink = static_cast<Index>(links_.size());
    const auto entry = rows.find(node);
    if (entry != rows.end())
      for (const Edge& edge : entry->second)
        if (edge.node() != node) links_.push_back({edge.weight(), *find(*edge.node())});
    vertices_.push_back({node->x, node->y, node->z, firstLink, static_cast<Index>(links_.size())});
  }
  links_.shrink_to_fit();
}

std::optional<CompactGraph::Index> CompactGraph::find(const Node& node) const {
  const auto entry = numbers_.find(&node);
  if (entry == numbers_.end()) return std::nullopt;
  return entry->second;
}

std::unique_ptr<CompactGraph::SearchState> CompactGraph::takeState(std::size_t nodeCount) const {
  std::unique_ptr<SearchState> state;
  {
    const std::lock_guard lock(stateMutex_);
    if (!states_.empty()) {
      state = std::move(states_.back());
      states_.pop_back();
    }
  }
  if (!state) state = std::make_unique<SearchState>();
  if (++state->stamp == 0) {
    state->nodes.clear();
    state->stamp = 1;
  }
  if (state->nodes.size() < nodeCount) state->nodes.resize(nodeCount);
  state->frontier.clear();
  return state;
}

void CompactGraph::giveBack(std::unique_ptr<SearchState> state) const {
  const std::lock_guard lock(stateMutex_);
  states_.push_back(std::move(state));
}

}  // namespace orivanta
