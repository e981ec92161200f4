#include "Source/Routing/CompactRouteSearch.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>
#include <utility>

#include "Source/Node.hpp"

namespace orivanta {

namespace {

constexpr CompactGraph::Index none = std::numeric_limits<CompactGraph::Index>::max();

// Up to this size, the graph and the state fit into a second-level cache, and prefetching does not
// help.
constexpr std::size_t nodesThatStayInCache = 8192;

bool isFinite(const std::shared_ptr<Node>& node) {
  return std::isfinite(node->x) && std::isfinite(node->y) && std::isfinite(node->z);
}

}  // namespace

// The root of the greatest square is the greatest root, because rounding is monotone.
inline double CompactRouteSearch::heuristic(double x, double y, double z) const {
  const auto square = [=](const Position& destination) {
    const double dx = x - destination.x;
    const double dy = y - destination.y;
    const double dz = z - destination.z;
    return dx * dx + dy * dy + dz * dz;
  };
  double greatest = square(firstDestination_);
  for (const Position& destination : otherDestinations_)
    greatest = std::max(greatest, square(destination));
  return std::sqrt(greatest);
}

bool CompactRouteSearch::covers(const CompactGraph& graph, const NodeList& nodes,
                                const NodeList& destinations) {
  return graph.isRegular() && std::all_of(nodes.begin(), nodes.end(), isFinite) &&
         std::all_of(destinations.begin(), destinations.end(), isFinite);
}

CompactRouteSearch::CompactRouteSearch(const CompactGraph& graph, const NodeList& nodes,
                                       const NodeList& destinations)
    : graph_(graph), state_(graph.takeState(graph.size() + nodes.size())) {
  setDestinations(destinations);
  for (const auto& start : nodes) putStart(start);
  for (const auto& destination : destinations) {
    const Index index = number(*destination);
    if (index != none) state_->nodes[index].destinationStamp = state_->stamp;
  }
}

// Returns each node once: a venue may name a node many times, and the heuristic reads all of them.
void CompactRouteSearch::setDestinations(const NodeList& destinations) {
  const auto positionOf = [](const Node& node) { return Position{node.x, node.y, node.z}; };
  firstDestination_ = positionOf(*destinations.front());
  std::unordered_set<const Node*> seen{destinations.front().get()};
  for (const auto& destination : destinations)
    if (seen.insert(destination.get()).second)
      otherDestinations_.push_back(positionOf(*destination));
}

CompactRouteSearch::~CompactRouteSearch() { graph_.giveBack(std::move(state_)); }

std::optional<Route> CompactRouteSearch::run() {
  RouteFrontier& frontier = state_->frontier;
  for (std::size_t taken = 1; !frontier.empty(); ++taken) {
    const Index current = frontier.take();
    NodeState& node = state_->nodes[current];
    if (node.destinationStamp == state_->stamp) return routeTo(current, taken);
    node.queued = false;
    if (current < graph_.size()) expand(current);
  }
  return std::nullopt;
}

void CompactRouteSearch::expand(Index current) {
  const CompactGraph::Vertex* const vertices = graph_.vertices();
  const CompactGraph::Link* const links = graph_.links();
  const CompactGraph::Link* const end = links + vertices[current].endLink;
  NodeState* const nodes = state_->nodes.data();
  RouteFrontier& frontier = state_->frontier;
  const std::uint32_t stamp = state_->stamp;
  const double costSoFar = nodes[current].cost;
  const bool prefetches = graph_.size() > nodesThatStayInCache;
  if (prefetches) {
    for (const auto* link = links + vertices[current].firstLink; link != end; ++link) {
      __builtin_prefetch(&nodes[link->target]);
      __builtin_prefetch(&vertices[link->target]);
    }
  }
  for (const auto* link = links + vertices[current].firstLink; link != end; ++link) {
    const Index index = link->target;
    NodeState& target = nodes[index];
    const double cost = costSoFar + link->weight;
    if (target.reachedStamp != stamp) {
      const CompactGraph::Vertex& there = vertices[index];
      if (prefetches) __builtin_prefetch(links + there.firstLink);
      target.reachedStamp = stamp;
      target.heuristic = heuristic(there.x, there.y, there.z);
    } else if (!(cost < target.cost)) {
      continue;
    } else if (target.queued) {
      target.cost = cost;
      target.predecessor = current;
      continue;
    }
    target.cost = cost;
    target.predecessor = current;
    target.queued = true;
    frontier.put(cost + target.heuristic, index);
  }
}

void CompactRouteSearch::putStart(const std::shared_ptr<Node>& start) {
  Index index = number(*start);
  if (index == none) {
    index = static_cast<Index>(graph_.size() + foreign_.size());
    foreign_.push_back(start);
    foreignNumbers_[start.get()] = index;
  }
  NodeState& state = state_->nodes[index];
  if (state.reachedStamp == state_->stamp) return;
  state.reachedStamp = state_->stamp;
  state.cost = 0.0;
  state.heuristic = heuristic(start->x, start->y, start->z);
  state.predecessor = none;
  state.queued = true;
  state_->frontier.put(state.heuristic, index);
}

CompactGraph::Index CompactRouteSearch::number(const Node& node) const {
  if (const auto index = graph_.find(node)) return *index;
  const auto known = foreignNumbers_.find(&node);
  return known == foreignNumbers_.end() ? none : known->second;
}

const std::shared_ptr<Node>& CompactRouteSearch::node(Index index) const {
  return index < graph_.size() ? graph_.node(index) : foreign_[index - graph_.size()];
}

Route CompactRouteSearch::routeTo(Index destination, std::size_t takenNodes) const {
  Route route{{}, state_->nodes[destination].cost, takenNodes};
  for (Index index = destination; index != none; index = state_->nodes[index].predecessor)
    route.path.push_back(node(index));
  std::reverse(route.path.begin(), route.path.end());
  return route;
}

}  // namespace orivanta
