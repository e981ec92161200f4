#include "Source/Guidance/PathWalk.hpp"

#include <fmt/format.h>

#include <utility>

#include "Source/NavigationGraph.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

const Edge* cheapestEdge(const NavigationGraph& graph, const Node& from, const Node& to) {
  const Edge* cheapest = nullptr;
  for (const Edge& edge : graph[from])
    if (edge.node().get() == &to && (cheapest == nullptr || edge.weight() < cheapest->weight()))
      cheapest = &edge;
  return cheapest;
}

PathWalk::PathWalk(NodeList path, const NavigationGraph& graph) : path_(std::move(path)) {
  for (std::size_t i = 1; i < path_.size(); ++i) {
    Stretch& stretch = stretches_.emplace_back();
    const Edge* edge = cheapestEdge(graph, *path_[i - 1], *path_[i]);
    if (edge == nullptr) continue;
    stretch = {edge->distance(), edge->weight(), edge->vortex(), true};
    if (!stretch.connector) continue;
    const bool ridesOn = !rides_.empty() && rides_.back().end == i - 1 &&
                         rides_.back().connector == stretch.connector;
    if (!ridesOn) rides_.push_back({stretch.connector, i - 1, i});
    rides_.back().end = i;
  }
}

double PathWalk::weight() const {
  double sum = 0.0;
  for (const Stretch& stretch : stretches_) sum += stretch.weight;
  return sum;
}

double PathWalk::lengthBetween(std::size_t first, std::size_t last) const {
  double sum = 0.0;
  for (std::size_t i = first; i < last; ++i) sum += stretches_[i].length;
  return sum;
}

std::string rideInstruction(const Vortex& connector, const Map& from, const Map& to) {
  const std::string name = connector.name.value_or("the connector");
  const RideWay way = rideWay(from, to);
  if (way == RideWay::level) return fmt::format("Take {} to {}", name, floorName(to));
  const char* const word = way == RideWay::down ? "down" : "up";
  if (name.find(fmt::format(" {} to ", word)) != std::string::npos) return "Take " + name;
  return fmt::format("Take {} {} to {}", name, word, floorName(to));
}

}  // namespace orivanta
