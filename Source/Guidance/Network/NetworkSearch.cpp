#include "Source/Guidance/Network/NetworkSearch.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orivanta::guidance {

namespace {

constexpr auto none = GuideNetwork::none;

constexpr std::size_t takenBetweenChecks = 1024;

// Up to this size, the network and the state fit into a second-level cache.
constexpr std::size_t verticesThatStayInCache = 8192;

}  // namespace

NetworkSearch::NetworkSearch(const SearchContext& context, const CostTable& costs,
                             std::size_t stopCount)
    : context_(context),
      network_(context.network),
      costs_(costs),
      rate_(costs.millisecondsPerUnit()),
      state_(context.states.take(context.network.size() + stopCount)) {}

NetworkSearch::~NetworkSearch() { context_.states.giveBack(std::move(state_)); }

double NetworkSearch::bound(Index vertex) const {
  if (!guided_ || vertex >= network_.size()) return 0.0;
  const GuideNetwork::Vertex& here = network_.vertex(vertex);
  const auto boundTo = [&](const Goal& goal) {
    const double dx = here.x - goal.x;
    const double dy = here.y - goal.y;
    return rate_ * std::sqrt(dx * dx + dy * dy) + costs_.floorBound(here.floor, goal.floor);
  };
  double least = boundTo(goals_.front());
  for (std::size_t i = 1; i < goals_.size(); ++i) least = std::min(least, boundTo(goals_[i]));
  return least;
}

void NetworkSearch::improve(Index vertex, std::int64_t cost, Index arc) {
  VertexState& state = state_->vertices[vertex];
  if (state.reached != state_->stamp) {
    state.reached = state_->stamp;
    state.bound = bound(vertex);
  }
  state.cost = cost;
  state.arc = arc;
  state.queued = state.bound < std::numeric_limits<double>::infinity();
  if (state.queued) state_->frontier.put(static_cast<double>(cost) + state.bound, vertex);
}

// A vertex whose cost decreases is queued again; the older entry is skipped when it is taken.
std::optional<NetworkSearch::Index> NetworkSearch::next() {
  RouteFrontier& frontier = state_->frontier;
  while (!frontier.empty()) {
    if (++taken_ % takenBetweenChecks == 0 && context_.token.isCanceled()) return std::nullopt;
    const Index vertex = frontier.take();
    VertexState& state = state_->vertices[vertex];
    if (!state.queued) continue;
    state.queued = false;
    if (vertex < network_.size()) expand(vertex);
    if (state.marked != state_->stamp) continue;
    if (state.isSplit) expandParts(vertex, state.cost);
    if (state.isTarget) return vertex;
  }
  return std::nullopt;
}

void NetworkSearch::expand(Index vertex) {
  const GuideNetwork::Vertex& here = network_.vertex(vertex);
  const Index* const targets = network_.targets().data();
  const std::uint32_t* const costs = costs_.data();
  const std::int64_t cost = state_->vertices[vertex].cost;
  if (network_.size() > verticesThatStayInCache)
    for (Index arc = here.firstArc; arc != here.endArc; ++arc) {
      __builtin_prefetch(&state_->vertices[targets[arc]]);
      __builtin_prefetch(&network_.vertices()[targets[arc]]);
    }
  const bool exempt =
      here.room != none && std::binary_search(exemptRooms_.begin(), exemptRooms_.end(), here.room);
  const bool anyClosed = costs_.hasClosedArcs(vertex);
  for (Index arc = here.firstArc; arc != here.endArc; ++arc) {
    const std::uint32_t arcCost = anyClosed ? costs_[arc] : costs[arc];
    if (arcCost == CostTable::unusable) continue;
    std::int64_t sum = cost + arcCost;
    if (exempt && network_.vertex(targets[arc]).room != here.room) sum -= CostTable::roomPenalty;
    reach(targets[arc], sum, arc);
  }
}

void NetworkSearch::expandParts(Index vertex, std::int64_t cost) {
  for (const Index part : partsFrom_.at(vertex))
    reach(parts_[part].hop.to, cost + parts_[part].cost,
          static_cast<Index>(network_.arcs().size() + part));
}

Hop NetworkSearch::hopOf(Index arc) const {
  const auto arcs = network_.arcs();
  if (arc >= arcs.size()) return parts_[arc - arcs.size()].hop;
  return {arcs[arc].origin, arcs[arc].target, arc};
}

std::optional<Hop> NetworkSearch::hopInto(Index vertex) const {
  const Index arc = state_->vertices[vertex].arc;
  if (arc == none) return std::nullopt;
  return hopOf(arc);
}

NetworkPath NetworkSearch::pathTo(Index vertex) const {
  NetworkPath path;
  path.cost = cost(vertex);
  for (Index arc = state_->vertices[vertex].arc; arc != none; arc = state_->vertices[vertex].arc) {
    path.hops.push_back(hopOf(arc));
    vertex = path.hops.back().from;
  }
  path.first = vertex;
  path.cost -= cost(vertex);
  std::reverse(path.hops.begin(), path.hops.end());
  return path;
}

NetworkSearch::Index NetworkSearch::startOf(Index vertex) const {
  for (Index arc = state_->vertices[vertex].arc; arc != none; arc = state_->vertices[vertex].arc)
    vertex = hopOf(arc).from;
  return vertex;
}

}  // namespace orivanta::guidance
