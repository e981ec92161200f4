// The walking network of one storey while it is being made.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

struct DraftNode {
  Point position;
  NodeKind kind = NodeKind::way;
  std::string id;  ///< empty: made from the position
  std::string of;
  double weight = 0.0;
  /// Borders within this distance of the node do not block lines that end at it: a door lies in a
  /// wall.
  double slack = 0.0;
  double gap = 0.0;  ///< meters to the walkable space; 0 within it
  Point inward;      ///< of a node with a gap, the direction into the space, of length 1

  /// Whether the node may move or be merged with another.
  bool isMovable() const { return kind == NodeKind::way && id.empty() && weight == 0.0; }
};

struct DraftEdge {
  std::uint32_t from = 0;
  std::uint32_t to = 0;
  bool oneWay = false;
  bool stub = false;  ///< leads to a door, a place or the like: nothing else is attached to it
  bool inRoom = false;
  bool isDirect = false;  ///< crosses other lines without meeting them
};

struct Draft {
  std::vector<DraftNode> nodes;
  std::vector<DraftEdge> edges;

  std::uint32_t addNode(DraftNode node) {
    nodes.push_back(std::move(node));
    return static_cast<std::uint32_t>(nodes.size() - 1);
  }
  std::uint32_t addNode(Point position, NodeKind kind, std::string id, std::string of) {
    return addNode({position, kind, std::move(id), std::move(of), 0.0, 0.0, 0.0, {}});
  }
  std::uint32_t addWay(Point position) {
    return addNode({position, NodeKind::way, {}, {}, 0.0, 0.0, 0.0, {}});
  }
  void addEdge(std::uint32_t from, std::uint32_t to, bool stub) {
    if (from != to) edges.push_back({from, to, false, stub, false});
  }
  void addRoomEdge(std::uint32_t from, std::uint32_t to) {
    if (from != to) edges.push_back({from, to, false, true, true});
  }
  double lengthOf(const DraftEdge& edge) const {
    return package::distance(nodes[edge.from].position, nodes[edge.to].position);
  }
};

}  // namespace orivanta::importer
