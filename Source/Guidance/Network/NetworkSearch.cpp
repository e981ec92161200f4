#include "Source/Guidance/Network/NetworkSearch.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

constexpr auto none = GuideNetwork::none;

// With more goals, their bounds take longer than they save.
constexpr std::size_t mostGoals = 16;

constexpr std::size_t takenBetweenChecks = 1024;

// Up to this size, the network and the state fit into a second-level cache.
constexpr std::size_t verticesThatStayInCache = 8192;

}  // namespace

NetworkSearch::NetworkSearch(const SearchContext& context, const CostTable& costs,
                             std::size_t stopCount)
    : context_(context),
      network_(context.network),
      costs_(costs),
      state_(context.states.take(context.network.size() + stopCount)) {}

NetworkSearch::~NetworkSearch() { context_.states.giveBack(std::move(state_)); }

VertexState& NetworkSearch::mark(Index vertex) {
  VertexState& state = state_->vertices[vertex];
  if (state.marked != state_->stamp) state.isTarget = state.isSplit = false;
  state.marked = state_->stamp;
  return state;
}

void NetworkSearch::aimAt(const Ends& stop) {
  for (const Index vertex : stop.vertices) aimAt(stop, vertex);
}

void NetworkSearch::aimAt(const Ends& stop, Index vertex) {
  mark(vertex).isTarget = true;
  if (goals_.size() <= mostGoals) goals_.push_back(goalAt(stop, vertex));
  if (stop.splits.empty()) return;
  positions_.push_back(&stop);
  for (const Ends::Split& split : stop.splits) {
    const Index origin = network_.arcs()[split.arc].origin;
    mark(origin).isSplit = true;
    partsFrom_.try_emplace(origin);
    addPart(origin, stop.number, split, split.share);
  }
}

NetworkSearch::Goal NetworkSearch::goalAt(const Ends& stop, Index vertex) const {
  if (vertex < network_.size()) {
    const auto& place = network_.vertex(vertex);
    return {place.x, place.y, place.floor};
  }
  const Index end = network_.arcs()[stop.splits.front().arc].target;
  return {stop.node->x, stop.node->y, network_.vertex(end).floor};
}

void NetworkSearch::guide() { guided_ = !goals_.empty() && goals_.size() <= mostGoals; }

double NetworkSearch::bound(Index vertex) const {
  if (!guided_ || vertex >= network_.size()) return 0.0;
  const GuideNetwork::Vertex& here = network_.vertex(vertex);
  double least = std::numeric_limits<double>::infinity();
  for (const Goal& goal : goals_) {
    const double dx = here.x - goal.x;
    const double dy = here.y - goal.y;
    least = std::min(least, costs_.millisecondsPerUnit() * std::sqrt(dx * dx + dy * dy) +
                                costs_.floorBound(here.floor, goal.floor));
  }
  return least;
}

// A part costs its share of the arc without the penalty for leaving a room.
void NetworkSearch::addPart(Index from, Index to, const Ends::Split& split, double length) {
  std::uint32_t cost = costs_[split.arc];
  if (cost == CostTable::unusable) return;
  if (from < network_.size()) partsFrom_[from].push_back(static_cast<Index>(parts_.size()));
  if (network_.leavesRoom(network_.arcs()[split.arc])) cost -= CostTable::roomPenalty;
  parts_.push_back({{from, to, split.arc}, static_cast<std::uint32_t>(std::ceil(length * cost))});
}

void NetworkSearch::startFrom(const Ends& stop) {
  for (const Index vertex : stop.vertices) startFrom(stop, vertex);
}

void NetworkSearch::startFrom(const Ends& stop, Index vertex, std::int64_t cost) {
  if (exemptRooms_.empty()) exemptRooms_ = stop.rooms;
  reach(vertex, cost, none);
  if (!stop.splits.empty()) leavePosition(stop, cost);
}

// To the ends of the arcs, and to other positions ahead on the same arcs.
void NetworkSearch::leavePosition(const Ends& stop, std::int64_t cost) {
  const std::size_t first = parts_.size();
  for (const Ends::Split& split : stop.splits) {
    addPart(stop.number, network_.arcs()[split.arc].target, split, 1.0 - split.share);
    for (const Ends* other : positions_)
      for (const Ends::Split& ahead : other->splits)
        if (ahead.arc == split.arc && ahead.share >= split.share && other != &stop)
          addPart(stop.number, other->number, split, ahead.share - split.share);
  }
  for (std::size_t i = first; i < parts_.size(); ++i)
    reach(parts_[i].hop.to, cost + parts_[i].cost, static_cast<Index>(network_.arcs().size() + i));
}

void NetworkSearch::reach(Index vertex, std::int64_t cost, Index arc) {
  VertexState& state = state_->vertices[vertex];
  if (state.reached != state_->stamp) {
    state.reached = state_->stamp;
    state.bound = bound(vertex);
  } else if (cost >= state.cost) {
    return;
  }
  state.cost = cost;
  state.arc = arc;
  state.queued = std::isfinite(state.bound);
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
