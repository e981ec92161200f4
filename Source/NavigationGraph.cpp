#include "Source/NavigationGraph.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <unordered_map>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/ParallelFor.hpp"
#include "Source/Graph/CompactGraph.hpp"
#include "Source/Graph/EdgeTable.hpp"
#include "Source/Graph/NodeIndex.hpp"
#include "Source/Json/References.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

// A connector of n nodes has n * n edges: the limit keeps a hostile venue from using all memory.
constexpr std::size_t mostConnectorEdges = std::size_t{1} << 24U;

// Enough for their memory accesses to overlap, and few enough to stay in the cache.
constexpr std::size_t nodesAtOnce = 64;

// Neighbors are usually near each other in the list: a thread that processes many consecutive
// blocks rarely changes the reference count of a node that another thread uses too.
constexpr std::size_t blocksInARow = 16;

// A node's row and its entry in the table, both also in the block or the list that they come from,
// and its slots and its hash in the index of nodes.
constexpr std::size_t bytesPerNode = 128;

// A connector edge in a list that doubles its capacity when it grows.
constexpr std::size_t bytesPerConnectorEdge = 2 * sizeof(Edge);

using Budget = std::shared_ptr<foundation::MemoryBudget>;

void pay(const Budget& budget, std::size_t bytes) {
  if (budget) budget->take(bytes);
}

// Returns the edges of several nodes of a collection, in the order of their paths.
EdgeTable::Block walkingEdges(
    std::span<const std::pair<std::string, std::shared_ptr<Node>>> origins, const NodeIndex& index,
    const Budget& budget) {
  std::vector<const JsonHandle*> objects;
  objects.reserve(origins.size());
  for (const auto& entry : origins) objects.push_back(&entry.second->_data.data());
  foundation::BudgetShare share(budget);
  const auto [ids, ends] = referencesOf(objects, "paths", "node", share);
  pay(budget, ids.size() * sizeof(Edge));
  std::vector<const std::shared_ptr<Node>*> destinations;
  index.find(ids, destinations);
  EdgeTable::Block block;
  block.edges.reserve(ids.size());
  block.rows.reserve(origins.size());
  std::size_t next = 0;
  for (std::size_t i = 0; i < origins.size(); ++i) {
    const Edge* first = block.edges.data() + block.edges.size();
    for (; next < ends[i]; ++next)
      if (destinations[next] != nullptr)
        block.edges.emplace_back(*origins[i].second, *destinations[next]);
    const Edge* end = block.edges.data() + block.edges.size();
    if (first != end) block.rows.emplace_back(origins[i].second, std::span(first, end));
  }
  return block;
}

}  // namespace

NavigationGraph::NavigationGraph(const Collection<Node>& nodes, const Collection<Vortex>& vortices,
                                 bool accessible,
                                 const std::shared_ptr<foundation::MemoryBudget>& budget)
    : edges_(std::make_unique<EdgeTable>()) {
  addWalkingEdges(nodes, budget);
  addConnectorEdges(vortices, accessible, budget);
}

NavigationGraph::~NavigationGraph() = default;

void NavigationGraph::addWalkingEdges(const Collection<Node>& nodes,
                                      const std::shared_ptr<foundation::MemoryBudget>& budget) {
  const std::span entries = nodes.values_container();
  pay(budget, entries.size() * bytesPerNode);
  const NodeIndex index(nodes);
  std::vector<EdgeTable::Block> blocks((entries.size() + nodesAtOnce - 1) / nodesAtOnce);
  const auto build = [&](std::size_t block) {
    const std::size_t first = block * nodesAtOnce;
    blocks[block] = walkingEdges(
        entries.subspan(first, std::min(nodesAtOnce, entries.size() - first)), index, budget);
  };
  foundation::parallelFor(blocks.size(), build, blocksInARow);
  edges_->add(std::move(blocks));
}

void NavigationGraph::addConnectorEdges(const Collection<Vortex>& vortices, bool accessible,
                                        const Budget& budget) {
  std::size_t edgeCount = 0;
  NodeList origins;
  std::unordered_map<const Node*, std::vector<Edge>> extended;
  for (const auto& [id, vortex] : vortices) {
    if (accessible && !vortex->accessible) break;
    const NodeList& stops = vortex->nodes;
    if (stops.empty()) continue;
    if (stops.size() > (mostConnectorEdges - edgeCount) / stops.size()) {
      foundation::diagnostic(fmt::format("too many connector edges: vortex {} is ignored", id));
      continue;
    }
    edgeCount += stops.size() * stops.size();
    pay(budget, stops.size() * (bytesPerNode + stops.size() * bytesPerConnectorEdge));
    for (const std::shared_ptr<Node>& origin : stops) {
      const auto [entry, isNew] = extended.try_emplace(origin.get());
      std::vector<Edge>& edges = entry->second;
      if (isNew) {
        const std::span<const Edge> walking = (*edges_)[*origin];
        pay(budget, walking.size_bytes());
        edges.assign(walking.begin(), walking.end());
        origins.push_back(origin);
      }
      for (const std::shared_ptr<Node>& destination : stops)
        edges.emplace_back(*origin, destination, vortex);
    }
  }
  for (const auto& origin : origins) edges_->set(origin, std::move(extended[origin.get()]));
}

std::span<const Edge> NavigationGraph::operator[](const Node& node) const {
  return (*edges_)[node];
}

const NavigationGraph::Adjacency& NavigationGraph::graph() const {
  const std::lock_guard lock(formsMutex_);
  if (!graph_) {
    auto graph = std::make_unique<Adjacency>();
    graph->reserve(edges_->rows().size());
    for (const auto& [origin, edges] : edges_->rows())
      graph->insert({origin, std::vector<Edge>(edges.begin(), edges.end())});
    graph_ = std::move(graph);
  }
  return *graph_;
}

void NavigationGraph::setGraph(Adjacency graph) {
  const std::lock_guard lock(formsMutex_);
  edges_ = std::make_unique<EdgeTable>();
  for (auto entry = graph.begin(); entry != graph.end(); ++entry)
    edges_->set(entry.key(), std::move(entry.value()));
  graph_.reset();
  compact_.reset();
}

std::shared_ptr<const CompactGraph> NavigationGraph::compactGraph() const {
  const std::lock_guard lock(formsMutex_);
  if (!compact_) compact_ = CompactGraph::make(edges_->rows());
  return compact_;
}

}  // namespace orivanta
