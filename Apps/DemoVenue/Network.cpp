#include "Apps/DemoVenue/Network.hpp"

#include <utility>

#include "Apps/DemoVenue/WalkingLines.hpp"

namespace orivanta::demo {

namespace {

// Makes a route through a shop more expensive than a route around it.
constexpr double insideWeight = 8.0;

class FloorNetwork {
 public:
  FloorNetwork(const Floor& floor, Network& network)
      : floor_(floor), network_(network), lines_(floor.lines) {}

  void build(const Plan& plan) {
    for (const Place& place : floor_.places) addPlace(place);
    for (const Connector& connector : plan.connectors)
      for (const Stop& stop : connector.stops)
        if (stop.floor == floor_.id) addStop(connector, stop);
    addLines();
    for (const auto& [point, way] : attached_) join(lineNode(point), way.first, way.second);
  }

 private:
  std::size_t add(std::string id, Point position) {
    network_.nodes.push_back({std::move(id), floor_.id, position, 0.0, {}});
    return network_.nodes.size() - 1;
  }

  // `flow` is relative to `to`: `On` leads to it, and `Off` comes from it.
  void join(std::size_t from, std::size_t to, Flow flow = Flow::both) {
    NetworkNode& first = network_.nodes[from];
    NetworkNode& second = network_.nodes[to];
    if (flow != Flow::off) first.paths.push_back(second.id);
    if (flow != Flow::on) second.paths.push_back(first.id);
  }

  void addPlace(const Place& place) {
    const std::string prefix = std::string(floor_.id) + "-";
    const std::string name(place.id);
    if (place.shape.doors.empty()) {
      network_.places[{floor_.id, place.id}] = {lineNodeId(lines_.attach(place.shape.inside)), {}};
      return;
    }
    const std::size_t inside = add(prefix + "in-" + name, place.shape.inside);
    PlaceNodes nodes = {network_.nodes[inside].id, {}};
    if (place.shape.doors.size() > 1) network_.nodes[inside].weight = insideWeight;
    for (std::size_t i = 0; i < place.shape.doors.size(); ++i) {
      const std::string number = i == 0 ? "" : "-" + std::to_string(i + 1);
      const std::size_t door = add(prefix + "door-" + name + number, place.shape.doors[i]);
      join(door, inside);
      attached_.emplace_back(lines_.attach(place.shape.doors[i]), std::pair{door, Flow::both});
      nodes.doors.push_back(network_.nodes[door].id);
    }
    network_.places[{floor_.id, place.id}] = std::move(nodes);
  }

  void addStop(const Connector& connector, const Stop& stop) {
    const std::string id = std::string(connector.id) + "-" + std::string(floor_.id);
    std::size_t last = add(id, stop.node);
    network_.stops[connector.id].push_back(id);
    for (std::size_t i = 0; i < stop.way.size(); ++i) {
      const std::size_t next = add(id + "-way-" + std::to_string(i + 1), stop.way[i]);
      join(next, last, stop.flow);
      last = next;
    }
    attached_.emplace_back(lines_.attach(network_.nodes[last].position),
                           std::pair{last, stop.flow});
  }

  void addLines() {
    lines_.subdivide();
    const WalkingLines::Stretches stretches = lines_.stretches();
    firstLineNode_ = network_.nodes.size();
    for (std::size_t i = 0; i < stretches.points.size(); ++i)
      add(lineNodeId(i), stretches.points[i]);
    for (const auto& [from, to] : stretches.joined) join(lineNode(from), lineNode(to));
  }

  std::string lineNodeId(std::size_t point) const {
    return std::string(floor_.id) + "-" + std::to_string(point + 1);
  }

  std::size_t lineNode(std::size_t point) const { return firstLineNode_ + point; }

  const Floor& floor_;
  Network& network_;
  WalkingLines lines_;
  std::size_t firstLineNode_ = 0;
  // Points of the walking lines, the nodes attached to them, and the directions of the connections.
  std::vector<std::pair<std::size_t, std::pair<std::size_t, Flow>>> attached_;
};

}  // namespace

Network makeNetwork(const Plan& plan) {
  Network network;
  for (const Floor& floor : plan.floors) FloorNetwork(floor, network).build(plan);
  return network;
}

}  // namespace orivanta::demo
