#include "Source/NavigationGraph.hpp"

#include <cmath>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Source/Map.hpp"
#include "Source/NodeIndex.hpp"
#include "Source/References.hpp"
#include "Source/RouteNetwork.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

// A connector of n nodes has n * n edges: the bound keeps a hostile venue from taking all memory.
constexpr std::size_t mostConnectorEdges = std::size_t{1} << 24U;

// Enough for the walks through memory to overlap, few enough to stay in the cache.
constexpr std::size_t referencesAtOnce = 64;

double walkingDistance(const Node& origin, const Node& destination) {
  const double dx = origin.x - destination.x;
  const double dy = origin.y - destination.y;
  const double dz = origin.z - destination.z;
  return std::sqrt(dx * dx + dy * dy + dz * dz);
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
  graph_.reserve(nodes.size());
  NodeIndex index(nodes);
  std::vector<std::string_view> references;  // of the nodes of one block, one after the other
  std::vector<std::size_t> referenceEnds;
  for (auto block = nodes.begin(); block != nodes.end();) {
    references.clear();
    referenceEnds.clear();
    auto origin = block;
    for (; block != nodes.end() && references.size() < referencesAtOnce; ++block) {
      forEachReference(block->second->_data, "paths", "node",
                       [&](std::string_view id) { references.push_back(id); });
      referenceEnds.push_back(references.size());
    }
    const auto destinations = index.find(references);
    std::size_t begin = 0;
    for (const std::size_t end : referenceEnds) {
      addWalkingEdges((origin++)->second, destinations.subspan(begin, end - begin));
      begin = end;
    }
  }
}

void NavigationGraph::addWalkingEdges(const std::shared_ptr<Node>& origin,
                                      std::span<const std::shared_ptr<Node>* const> destinations) {
  std::vector<Edge> edges;
  edges.reserve(destinations.size());
  for (const std::shared_ptr<Node>* destination : destinations)
    if (destination != nullptr) edges.emplace_back(*origin, *destination);
  if (!edges.empty()) graph_.insert_or_assign(origin, std::move(edges));
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
