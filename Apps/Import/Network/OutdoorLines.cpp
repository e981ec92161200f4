#include "Apps/Import/Network/OutdoorLines.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "Apps/Import/Network/OutdoorCorners.hpp"

namespace orivanta::importer {

std::size_t OutdoorLines::nodeOf(const OutdoorExit& exit) {
  if (!exit.isGuessed) return exit.node;
  std::vector<Node>& nodes = building_.network.nodes;
  const Node inner = nodes[exit.node];
  const auto [known, isNew] = guessed_.emplace(inner.id + "/exit", nodes.size());
  if (!isNew) return known->second;
  Door door;
  door.id = known->first;
  door.kind = DoorKind::entrance;
  door.level = inner.level;
  door.position = exit.position;
  door.guessed = true;
  nodes.push_back({door.id, NodeKind::door, door.level, door.position, door.id, 0.0});
  building_.network.edges.push_back({exit.node, nodes.size() - 1, false});
  building_.doors.push_back(std::move(door));
  return nodes.size() - 1;
}

std::size_t OutdoorLines::nodeAt(Point bend, std::size_t exit) {
  std::vector<Node>& nodes = building_.network.nodes;
  const auto [known, isNew] = nodesOfBends_.emplace(std::pair(bend.x, bend.y), nodes.size());
  if (isNew) {
    const Node& first = nodes[exit];
    Node node{fmt::format("{}/round/{}", first.id, ++bends_[first.id]),
              NodeKind::way,
              first.level,
              bend,
              {},
              0.0};
    nodes.push_back(std::move(node));
  }
  return known->second;
}

void OutdoorLines::addEdge(std::size_t from, std::size_t to) {
  if (from != to && edges_.insert(std::minmax(from, to)).second)
    building_.network.edges.push_back({from, to, false});
}

void OutdoorLines::add(const OutdoorExit& from, const std::vector<Point>& bends,
                       const OutdoorExit& to) {
  const std::size_t start = nodeOf(from);
  std::size_t last = start;
  for (const Point bend : bends) {
    const std::size_t next = nodeAt(bend, start);
    addEdge(last, next);
    last = next;
  }
  addEdge(last, nodeOf(to));
}

// Only turns at bends and beside them: straight lines between exits stay as they are.
void OutdoorLines::cutTurnsBack(const SegmentGrid& walls) {
  std::set<std::size_t> bends;
  for (const auto& [position, node] : nodesOfBends_) bends.insert(node);
  std::map<std::size_t, std::vector<std::size_t>> neighbors;
  for (const auto& [from, to] : edges_) {
    neighbors[from].push_back(to);
    neighbors[to].push_back(from);
  }
  const std::vector<Node>& nodes = building_.network.nodes;
  for (const std::size_t bend : bends)
    for (const std::size_t middle : neighbors[bend])
      for (const std::size_t other : neighbors[middle]) {
        const Point in = nodes[middle].position - nodes[bend].position;
        const Point out = nodes[other].position - nodes[middle].position;
        constexpr double sharpTurn = -0.17;  // the cosine
        if (package::dot(in, out) < sharpTurn * package::length(in) * package::length(out) &&
            isFreeOutdoors(walls, nodes[bend].position, nodes[other].position))
          addEdge(bend, other);
      }
}

}  // namespace orivanta::importer
