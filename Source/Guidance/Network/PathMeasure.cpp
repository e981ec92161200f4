#include "Source/Guidance/Network/PathMeasure.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Guidance/Network/TravelTime.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

const std::shared_ptr<Node>& PathMeasure::nodeOf(Index vertex) const {
  if (vertex < network_.size()) return network_.node(vertex);
  return from_ != nullptr && from_->number == vertex ? from_->node : to_->node;
}

const std::shared_ptr<Map>& PathMeasure::mapOf(Index vertex) const {
  return vertex < network_.size() ? network_.map(vertex) : nodeOf(vertex)->map;
}

double PathMeasure::meters(const Hop& hop) const {
  if (std::max(hop.from, hop.to) < network_.size()) return network_.arcs()[hop.arc].meters;
  struct Point {
    double x, y, z;
  };
  const auto pointOf = [&](Index vertex) {
    if (vertex >= network_.size()) {
      const Node& node = *nodeOf(vertex);
      return Point{node.x, node.y, node.z};
    }
    return Point{network_.vertex(vertex).x, network_.vertex(vertex).y, network_.z(vertex)};
  };
  const Point from = pointOf(hop.from);
  const Point to = pointOf(hop.to);
  return std::hypot(to.x - from.x, to.y - from.y, to.z - from.z) / network_.unitsPerMeter();
}

double PathMeasure::rideSeconds(Index connector, Index first, Index last) const {
  const auto& from = network_.vertex(first);
  const auto& to = network_.vertex(last);
  const double plan = std::hypot(to.x - from.x, to.y - from.y) / network_.unitsPerMeter();
  return guidance::rideSeconds(network_.connectors()[connector].kind, plan,
                               network_.height(last) - network_.height(first), speed_);
}

double PathMeasure::seconds(const NetworkPath& path) const {
  double seconds = 0.0;
  for (std::size_t i = 0; i < path.hops.size(); ++i) {
    const Hop& hop = path.hops[i];
    const Index connector = network_.arcs()[hop.arc].connector;
    if (connector == GuideNetwork::none) {
      seconds += meters(hop) / speed_;
      continue;
    }
    while (i + 1 < path.hops.size() && network_.arcs()[path.hops[i + 1].arc].connector == connector)
      ++i;
    seconds += rideSeconds(connector, hop.from, path.hops[i].to);
  }
  return seconds;
}

}  // namespace orivanta::guidance
