#include "Source/Guidance/RouteTrack.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

// The length of a ride along the track. It only has to be greater than 0, so that the two ends of
// the ride differ.
constexpr double rideLength = 1.0;

// A later or earlier part of the route must be this much nearer, per meter of difference along the
// route, to count as the traveler's place. It decides where a route comes close to itself.
constexpr double jumpCost = 0.2;

constexpr double farthestJump = 50.0;  // meters; a longer one costs no more

}  // namespace

RouteTrack::RouteTrack(const Itinerary& itinerary, double unitsPerMeter)
    : unitsPerMeter_(unitsPerMeter) {
  if (!itinerary.isUsable()) return;
  for (const Leg& leg : itinerary.legs) add(leg);
}

void RouteTrack::add(const Leg& leg) {
  starts_.push_back(nodes_.size());
  const bool walk = leg.kind == Leg::Kind::walk;
  const double step = leg.nodes.size() > 1 ? rideLength / double(leg.nodes.size() - 1) : 0.0;
  for (std::size_t i = 0; i < leg.nodes.size(); ++i) {
    if (i > 0) length_ += walk ? length(*leg.nodes[i - 1], *leg.nodes[i]) : step;
    const Node& node = *leg.nodes[i];
    nodes_.push_back({node.map.get(), {node.x, node.y}, length_, i > 0, walk});
  }
}

double RouteTrack::at(std::size_t leg, std::size_t node) const {
  if (leg >= starts_.size()) return length_;
  const std::size_t end = leg + 1 < starts_.size() ? starts_[leg + 1] : nodes_.size();
  return nodes_[std::min(starts_[leg] + node, end - 1)].along;
}

RouteTrack::Projection RouteTrack::nearest(const Position& position, double last,
                                           double reach) const {
  const Map* const map = position.map.get();
  const Point point{position.x, position.y};
  Projection best;
  double bestCost = best.distance;
  const auto offer = [&](double along, double distance) {
    if (!(distance <= reach)) return;
    const double cost = distance + jumpCost * std::min(std::abs(along - last), farthestJump);
    if (cost < bestCost) {
      bestCost = cost;
      best = {along, distance};
    }
  };
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    const Entry& node = nodes_[i];
    if (node.map == map) offer(node.along, distance(node.point, point));
    if (!node.continues) continue;
    const Entry& before = nodes_[i - 1];
    const bool near =
        node.walk ? node.map == map || before.map == map : isBeside(before, node, *map);
    if (!near) continue;
    const double share = nearestShare(before.point, node.point, point);
    offer(before.along + share * (node.along - before.along),
          distance({before.point.x + share * (node.point.x - before.point.x),
                    before.point.y + share * (node.point.y - before.point.y)},
                   point));
  }
  return best;
}

// Returns whether a traveler on a ride between two nodes may be reported on a floor: on both ends
// of an escalator, and while a lift passes the floor.
bool RouteTrack::isBeside(const Entry& from, const Entry& to, const Map& map) {
  if (from.map == nullptr || to.map == nullptr) return false;
  if (from.map == &map || to.map == &map)
    return from.point.x != to.point.x || from.point.y != to.point.y;
  const auto [low, high] = std::minmax(from.map->elevation, to.map->elevation);
  return low < map.elevation && map.elevation < high;
}

// Returns the part of the segment, from 0 to 1, at which it is nearest to the point.
double RouteTrack::nearestShare(Point from, Point to, Point point) {
  const double x = to.x - from.x;
  const double y = to.y - from.y;
  const double square = x * x + y * y;
  if (!(square > 0.0)) return 0.0;
  return std::clamp(((point.x - from.x) * x + (point.y - from.y) * y) / square, 0.0, 1.0);
}

double RouteTrack::distance(Point one, Point other) const {
  return std::hypot(other.x - one.x, other.y - one.y) / unitsPerMeter_;
}

double RouteTrack::length(const Node& from, const Node& to) const {
  const double units = std::hypot(to.x - from.x, to.y - from.y, to.z - from.z);
  return std::isfinite(units) ? units / unitsPerMeter_ : 0.0;
}

}  // namespace orivanta::guidance
