#include "Source/Guidance/SimulatedWalk.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

constexpr double longest = 1e9;  // seconds or units, so that sums are finite

double usable(double value) { return std::isfinite(value) ? std::clamp(value, 0.0, longest) : 0.0; }

SimulatedWalk::Point pointAt(const Node& node) { return {{node.map, node.x, node.y}, node.z}; }

// Returns the share of a leg's time that the way to a node takes, in any unit.
double effort(const Leg& leg, std::size_t index) {
  if (leg.kind == Leg::Kind::ride) return 1.0;
  const Node& from = *leg.nodes[index - 1];
  const Node& to = *leg.nodes[index];
  return usable(std::hypot(to.x - from.x, to.y - from.y));
}

}  // namespace

SimulatedWalk::SimulatedWalk(const Itinerary& itinerary) {
  if (!itinerary.isUsable()) return;
  for (const Leg& leg : itinerary.legs) add(leg);
}

void SimulatedWalk::add(const Leg& leg) {
  const double start = seconds();
  double whole = 0.0;
  for (std::size_t i = 1; i < leg.nodes.size(); ++i) whole += effort(leg, i);
  double done = 0.0;
  for (std::size_t i = 0; i < leg.nodes.size(); ++i) {
    if (i > 0) done += effort(leg, i);
    nodes_.push_back(leg.nodes[i]);
    seconds_.push_back(start + (whole > 0.0 ? usable(leg.seconds) * (done / whole) : 0.0));
  }
  // A leg may take time without a way, such as a walk between two nodes at the same point.
  seconds_.back() = start + usable(leg.seconds);
}

SimulatedWalk::Point SimulatedWalk::at(double seconds) const {
  if (nodes_.empty()) return {};
  const double time = std::max(0.0, seconds);
  const auto next = std::upper_bound(seconds_.begin(), seconds_.end(), time);
  const auto index = static_cast<std::size_t>(next - seconds_.begin());
  if (index == 0) return pointAt(*nodes_.front());
  const Node& from = *nodes_[index - 1];
  if (index == nodes_.size()) return pointAt(from);
  const Node& to = *nodes_[index];
  const double share = (time - seconds_[index - 1]) / (seconds_[index] - seconds_[index - 1]);
  return {{from.map, std::lerp(from.x, to.x, share), std::lerp(from.y, to.y, share)},
          from.map == to.map ? std::lerp(from.z, to.z, share) : from.z};
}

}  // namespace orivanta::guidance
