#include "Apps/Import/Network/JoinOutdoors.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Network/OutdoorCorners.hpp"
#include "Apps/Import/Network/OutdoorExits.hpp"

namespace orivanta::importer {

namespace {

constexpr double longest = 150.0;  // meters
constexpr double longestRound = 250.0;
constexpr std::size_t mostNeighbors = 40;

class OutdoorJoiner {
 public:
  OutdoorJoiner(Building& building, Findings& findings)
      : building_(building),
        findings_(findings),
        parts_(building.network.nodes.size()),
        walls_(groundWalls(), 0.0) {
    findParts();
    exits_ = outdoorExits(building, parts_, withPlaces_);
  }

  void run() {
    using Candidate = std::tuple<double, std::size_t, std::size_t>;
    std::vector<Candidate> candidates;
    std::vector<Segment> points;
    points.reserve(exits_.size());
    for (const OutdoorExit& exit : exits_) points.push_back({exit.position, exit.position});
    const SegmentGrid grid(points, 0.0);
    for (std::size_t i = 0; i < exits_.size(); ++i) {
      std::vector<Candidate> near;
      grid.eachNear(points[i].a, longest, [&](std::size_t k) {
        const double length = package::distance(points[i].a, points[k].a);
        if (length <= longest && partOf(i) != partOf(k)) near.emplace_back(length, i, k);
      });
      std::sort(near.begin(), near.end());
      if (near.size() > mostNeighbors) near.resize(mostNeighbors);
      candidates.insert(candidates.end(), near.begin(), near.end());
    }
    std::sort(candidates.begin(), candidates.end());
    for (const auto& [length, from, to] : candidates)
      if (partOf(from) != partOf(to) &&
          isFreeOutdoors(walls_, exits_[from].position, exits_[to].position))
        join(exits_[from], exits_[to], {}, length);
    joinRoundCorners();
  }

 private:
  std::size_t partOf(std::size_t exit) { return parts_.find(exits_[exit].node); }

  std::vector<Segment> groundWalls() const {
    std::vector<Segment> walls;
    for (const Area& area : building_.areas)
      if (isOnGround(building_, area.level) && !isConnector(area.kind))
        for (const Segment& border : bordersOf(area.shape)) walls.push_back(border);
    return walls;
  }

  // Places are the rooms and spots of a part.
  void findParts() {
    const auto& [nodes, edges] = building_.network;
    for (const Edge& edge : edges) parts_.join(edge.from, edge.to);
    std::map<std::string, std::size_t> boarding;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (nodes[i].kind != NodeKind::boarding) continue;
      const auto [first, isNew] = boarding.emplace(nodes[i].of, i);
      if (!isNew) parts_.join(first->second, i);
    }
    for (std::size_t i = 0; i < nodes.size(); ++i)
      if (nodes[i].kind == NodeKind::inside || nodes[i].kind == NodeKind::spot)
        withPlaces_.insert(parts_.find(i));
  }

  // Of a guessed exit, makes an entrance.
  std::size_t nodeOf(const OutdoorExit& exit) {
    if (!exit.isGuessed) return exit.node;
    const Node inner = building_.network.nodes[exit.node];
    Door door;
    door.id = inner.id + "/exit";
    door.kind = DoorKind::entrance;
    door.level = inner.level;
    door.position = exit.position;
    door.guessed = true;
    const auto same = [&](const Node& node) { return node.id == door.id; };
    std::vector<Node>& nodes = building_.network.nodes;
    const auto known = std::find_if(nodes.begin(), nodes.end(), same);
    if (known != nodes.end()) return static_cast<std::size_t>(known - nodes.begin());
    nodes.push_back({door.id, NodeKind::door, door.level, door.position, door.id, 0.0});
    building_.network.edges.push_back({exit.node, nodes.size() - 1, false});
    building_.doors.push_back(std::move(door));
    return nodes.size() - 1;
  }

  // Joins what no straight line joins, the smaller part with the one that is nearest to it.
  void joinRoundCorners() {
    std::set<std::size_t> parts;
    for (std::size_t i = 0; i < exits_.size(); ++i) parts.insert(partOf(i));
    if (parts.size() < 2) return;
    Shape ground;
    for (const Area& area : building_.areas)
      if (isOnGround(building_, area.level)) ground = joined(std::move(ground), area.shape);
    OutdoorCorners corners(ground, walls_);
    std::map<std::size_t, std::size_t> sizes;
    for (const auto& set : parts_.all()) sizes[set.front()] = set.size();
    std::vector<std::pair<std::size_t, std::size_t>> bySize;  // with a node of each part
    bySize.reserve(parts.size());
    for (const std::size_t part : parts) bySize.emplace_back(sizes[part], part);
    std::sort(bySize.begin(), bySize.end());
    bySize.pop_back();
    for (const auto& [size, part] : bySize) {
      std::vector<std::size_t> own;
      std::vector<std::size_t> others;
      for (std::size_t i = 0; i < exits_.size(); ++i)
        (partOf(i) == parts_.find(part) ? own : others).push_back(i);
      if (others.empty()) continue;
      const auto way = corners.shortest(positionsOf(own), positionsOf(others), longestRound);
      if (way) join(exits_[own[way->from]], exits_[others[way->to]], way->bends, way->length);
    }
  }

  std::vector<Point> positionsOf(const std::vector<std::size_t>& exits) const {
    std::vector<Point> positions;
    positions.reserve(exits.size());
    for (const std::size_t i : exits) positions.push_back(exits_[i].position);
    return positions;
  }

  void join(const OutdoorExit& one, const OutdoorExit& other, const std::vector<Point>& bends,
            double length) {
    parts_.join(one.node, other.node);
    std::size_t from = nodeOf(one);
    const std::size_t to = nodeOf(other);
    const std::size_t start = from;
    for (const Point bend : bends) {
      const Node& exit = building_.network.nodes[start];
      Node node{fmt::format("{}/round/{}", exit.id, ++bends_[exit.id]),
                NodeKind::way,
                exit.level,
                bend,
                {},
                0.0};
      building_.network.nodes.push_back(std::move(node));
      building_.network.edges.push_back({from, building_.network.nodes.size() - 1, false});
      from = building_.network.nodes.size() - 1;
    }
    building_.network.edges.push_back({from, to, false});
    const Node& first = building_.network.nodes[start];
    const Node& second = building_.network.nodes[to];
    findings_.add(makeFinding(
        Severity::info, "joined-outdoors", first.of, {first.level, first.position},
        {.message = fmt::format(
             "Nothing is drawn between {} and {}, {:.0f} m away, and nothing else joins these two "
             "parts of the building.",
             first.of, second.of, length),
         .effect = bends.empty() ? "Routes between the two parts lead straight across."
                                 : "Routes between the two parts lead round the outside.",
         .advice = "Draw the way between them."}));
  }

  Building& building_;
  Findings& findings_;
  DisjointSets parts_;
  std::set<std::size_t> withPlaces_;  // parts
  std::vector<OutdoorExit> exits_;
  SegmentGrid walls_;
  std::map<std::string, std::size_t> bends_;  // by the exit from which they were made
};

}  // namespace

void joinOutdoors(Building& building, Findings& findings) {
  OutdoorJoiner(building, findings).run();
}

}  // namespace orivanta::importer
