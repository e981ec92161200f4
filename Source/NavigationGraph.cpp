#include "Source/NavigationGraph.hpp"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/ParallelFor.hpp"
#include "Source/Map.hpp"
#include "Source/NodeIndex.hpp"
#include "Source/References.hpp"
#include "Source/RouteNetwork.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

// A connector of n nodes has n * n edges: the bound keeps a hostile venue from taking all memory.
constexpr std::size_t mostConnectorEdges = std::size_t{1} << 24U;

// Enough for their walks through memory to overlap, few enough to stay in the cache.
constexpr std::size_t nodesAtOnce = 64;

double walkingDistance(const Node& origin, const Node& destination) {
  const double dx = origin.x - destination.x;
  const double dy = origin.y - destination.y;
  const double dz = origin.z - destination.z;
  return std::sqrt(dx * dx + dy * dy + dz * dz);
}

// The edges out of each of some nodes of a collection, in the order of their paths.
void findWalkingEdges(std::span<const std::pair<std::string, std::shared_ptr<Node>>> origins,
                      const NodeIndex& index, std::span<std::vector<Edge>> edges) {
  for (const auto& entry : origins) __builtin_prefetch(&entry.second->_data);
  for (const auto& entry : origins) __builtin_prefetch(entry.second->_data.data().get());
  for (const auto& entry : origins) prefetchMembers(entry.second->_data);
  std::vector<std::string_view> references;
  std::vector<std::size_t> ends;
  references.reserve(4 * origins.size());
  ends.reserve(origins.size());
  for (const auto& entry : origins) {
    forEachReference(entry.second->_data, "paths", "node",
                     [&](std::string_view id) { references.push_back(id); });
    ends.push_back(references.size());
  }
  std::vector<const std::shared_ptr<Node>*> destinations;
  index.find(references, destinations);
  std::size_t next = 0;
  for (std::size_t i = 0; i < origins.size(); ++i) {
    edges[i].reserve(ends[i] - next);
    for (; next < ends[i]; ++next)
      if (destinations[next] != nullptr)
        edges[i].emplace_back(*origins[i].second, *destinations[next]);
  }
}

}  // namespace

Edge::Edge(const Node& origin, std::shared_ptr<Node> destination)
    : node_(std::move(destination)),
      distance_(walkingDistance(origin, *node_)),
      weight_(distance_ * node_->multiplierWeight + node_->constantWeight) {}

Edge::Edge(const Node& origin, std::shared_ptr<Node> destination, std::shared_ptr<Vortex> vortex)
    : node_(std::move(destination)),
      vortex_(std::move(vortex)),
      distance_(0.0),
      weight_(std::abs(foundation::unwrap(origin.map).elevation -
                       foundation::unwrap(node_->map).elevation) *
                  vortex_->multiplierWeight +
              vortex_->constantWeight) {}

NavigationGraph::NavigationGraph(const Collection<Node>& nodes, const Collection<Vortex>& vortices,
                                 bool accessible) {
  addWalkingEdges(nodes);
  addConnectorEdges(vortices, accessible);
}

NavigationGraph::~NavigationGraph() = default;

void NavigationGraph::addWalkingEdges(const Collection<Node>& nodes) {
  const auto& entries = nodes.values_container();
  const NodeIndex index(nodes);
  std::vector<std::vector<Edge>> edges(entries.size());
  foundation::parallelFor((entries.size() + nodesAtOnce - 1) / nodesAtOnce, [&](std::size_t block) {
    const std::size_t first = block * nodesAtOnce;
    const std::size_t count = std::min(nodesAtOnce, entries.size() - first);
    findWalkingEdges(std::span(entries).subspan(first, count), index,
                     std::span(edges).subspan(first, count));
  });
  graph_.reserve(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (!edges[i].empty()) graph_.insert_or_assign(entries[i].second, std::move(edges[i]));
}

void NavigationGraph::addConnectorEdges(const Collection<Vortex>& vortices, bool accessible) {
  std::size_t edgeCount = 0;
  for (const auto& entry : vortices) {
    const std::shared_ptr<Vortex>& vortex = entry.second;
    if (accessible && !vortex->accessible) break;
    const NodeList& stops = vortex->nodes;
    if (stops.empty()) continue;
    if (stops.size() > (mostConnectorEdges - edgeCount) / stops.size()) {
      foundation::diagnostic("too many connector edges: the remaining vortices are left out");
      break;
    }
    edgeCount += stops.size() * stops.size();
    for (const std::shared_ptr<Node>& origin : stops) {
      std::vector<Edge>& edges = graph_[origin];
      for (const std::shared_ptr<Node>& destination : stops)
        edges.emplace_back(*origin, destination, vortex);
    }
  }
}

const std::vector<Edge>& NavigationGraph::operator[](const Node& node) const {
  static const std::vector<Edge> none;
  const auto entry = graph_.find(&node);
  return entry == graph_.end() ? none : entry->second;
}

void NavigationGraph::setGraph(Adjacency graph) {
  const std::lock_guard lock(networkMutex_);
  graph_ = std::move(graph);
  network_.reset();
}

std::shared_ptr<const RouteNetwork> NavigationGraph::routeNetwork() const {
  const std::lock_guard lock(networkMutex_);
  if (!network_) network_ = RouteNetwork::make(graph_);
  return network_;
}

}  // namespace orivanta
