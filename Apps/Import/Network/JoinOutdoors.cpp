#include "Apps/Import/Network/JoinOutdoors.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/MakeFinding.hpp"

namespace orivanta::importer {

namespace {

constexpr double longest = 150.0;  // meters
constexpr double groundHeight = 0.5;
constexpr std::size_t mostExits = 2'000;
constexpr std::size_t mostNeighbors = 40;

class OutdoorJoiner {
 public:
  OutdoorJoiner(Building& building, Findings& findings)
      : building_(building),
        findings_(findings),
        parts_(building.network.nodes.size()),
        walls_(groundWalls(), 0.0) {
    findParts();
    findExits();
  }

  void run() {
    using Candidate = std::tuple<double, std::size_t, std::size_t>;
    std::vector<Candidate> candidates;
    std::vector<Segment> points;
    for (const std::size_t exit : exits_) points.push_back({at(exit), at(exit)});
    const SegmentGrid grid(points, 0.0);
    for (std::size_t i = 0; i < exits_.size(); ++i) {
      std::vector<Candidate> near;
      grid.eachNear(points[i].a, longest, [&](std::size_t k) {
        const double length = package::distance(points[i].a, points[k].a);
        if (length <= longest && parts_.find(exits_[i]) != parts_.find(exits_[k]))
          near.emplace_back(length, exits_[i], exits_[k]);
      });
      std::sort(near.begin(), near.end());
      if (near.size() > mostNeighbors) near.resize(mostNeighbors);
      candidates.insert(candidates.end(), near.begin(), near.end());
    }
    std::sort(candidates.begin(), candidates.end());
    for (const auto& [length, from, to] : candidates)
      if (parts_.find(from) != parts_.find(to) && isFree(at(from), at(to))) join(from, to, length);
  }

 private:
  const Node& node(std::size_t i) const { return building_.network.nodes[i]; }
  Point at(std::size_t i) const { return node(i).position; }

  bool isOnGround(double level) const {
    return std::any_of(building_.storeys.begin(), building_.storeys.end(),
                       [&](const Storey& storey) {
                         return storey.ordinal == level &&
                                std::abs(storey.elevation.value_or(level * 4.0)) < groundHeight;
                       });
  }

  std::vector<Segment> groundWalls() const {
    std::vector<Segment> walls;
    for (const Area& area : building_.areas)
      if (isOnGround(area.level) && !isConnector(area.kind))
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

  void findExits() {
    const auto& [nodes, edges] = building_.network;
    std::vector<bool> isJoined(nodes.size());
    for (const Edge& edge : edges) isJoined[edge.from] = isJoined[edge.to] = true;
    std::set<std::string> entrances;
    for (const Door& door : building_.doors)
      if (door.kind == DoorKind::entrance && door.access == Access::everybody)
        entrances.insert(door.id);
    for (std::size_t i = 0; i < nodes.size() && exits_.size() < mostExits; ++i) {
      const bool isEntrance =
          nodes[i].kind == NodeKind::door && isJoined[i] && entrances.contains(nodes[i].of);
      const bool isHead = nodes[i].kind == NodeKind::boarding && !isJoined[i];
      if ((isEntrance || isHead) && isOnGround(nodes[i].level) &&
          withPlaces_.contains(parts_.find(i)))
        exits_.push_back(i);
    }
  }

  // Exits lie at the borders of areas.
  bool isFree(Point from, Point to) const {
    const double length = package::distance(from, to);
    constexpr double atExit = 1.0;
    if (length <= 2.0 * atExit) return true;
    const Point part = (to - from) * (atExit / length);
    const Segment line{from + part, to - part};
    return !walls_.anyAlong(line, [&](std::size_t i) {
      const Segment& wall = walls_.segments()[i];
      return package::cross(line.a, line.b, wall.a, wall.b);
    });
  }

  void join(std::size_t from, std::size_t to, double length) {
    parts_.join(from, to);
    building_.network.edges.push_back({from, to, false});
    findings_.add(makeFinding(
        Severity::info, "joined-outdoors", node(from).of, {node(from).level, at(from)},
        {.message = fmt::format(
             "Nothing is drawn between {} and {}, {:.0f} m away, and nothing else joins these two "
             "parts of the building.",
             node(from).of, node(to).of, length),
         .effect = "Routes between the two parts lead straight across.",
         .advice = "Draw the way between them."}));
  }

  Building& building_;
  Findings& findings_;
  DisjointSets parts_;
  std::set<std::size_t> withPlaces_;  // parts
  std::vector<std::size_t> exits_;    // nodes
  SegmentGrid walls_;
};

}  // namespace

void joinOutdoors(Building& building, Findings& findings) {
  OutdoorJoiner(building, findings).run();
}

}  // namespace orivanta::importer
