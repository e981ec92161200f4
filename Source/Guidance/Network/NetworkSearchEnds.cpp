// The starts and targets of a search.
#include <cmath>

#include "Source/Guidance/Network/NetworkSearch.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

// With more goals, their bounds take longer than they save.
constexpr std::size_t mostGoals = 16;

}  // namespace

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
  reach(vertex, cost, GuideNetwork::none);
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

}  // namespace orivanta::guidance
