#include "Apps/Command/SimulatedWalk.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta::command {

using guidance::Leg;
using guidance::Position;

namespace {

double durationOf(const Leg& leg) {
  return std::isfinite(leg.seconds) ? std::max(0.0, leg.seconds) : 0.0;
}

Position between(const Node& from, const Node& to, double share) {
  return {share < 1.0 ? from.map : to.map, from.x + share * (to.x - from.x),
          from.y + share * (to.y - from.y)};
}

// Returns the position after a part of the leg, from 0 to 1.
Position positionOn(const Leg& leg, double share) {
  double length = 0.0;
  const auto lengthOf = [&](std::size_t i) {
    return std::hypot(leg.nodes[i]->x - leg.nodes[i - 1]->x, leg.nodes[i]->y - leg.nodes[i - 1]->y);
  };
  for (std::size_t i = 1; i < leg.nodes.size(); ++i) length += lengthOf(i);
  double rest = share * length;
  for (std::size_t i = 1; i < leg.nodes.size() && share < 1.0; ++i) {
    const double edge = lengthOf(i);
    if (rest < edge || i + 1 == leg.nodes.size())
      return between(*leg.nodes[i - 1], *leg.nodes[i], edge > 0.0 ? rest / edge : share);
    rest -= edge;
  }
  return {leg.nodes.back()->map, leg.nodes.back()->x, leg.nodes.back()->y};
}

}  // namespace

SimulatedWalk::SimulatedWalk(guidance::Itinerary itinerary) : itinerary_(std::move(itinerary)) {
  for (const Leg& leg : itinerary_.legs) seconds_ += durationOf(leg);
}

Position SimulatedWalk::at(double seconds) const {
  for (const Leg& leg : itinerary_.legs) {
    const double duration = durationOf(leg);
    if (seconds < duration) return positionOn(leg, seconds / duration);
    seconds -= duration;
  }
  return positionOn(itinerary_.legs.back(), 1.0);
}

}  // namespace orivanta::command
