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
#include "Apps/Import/Network/OutdoorLines.hpp"
#include "Apps/Import/Network/WayLengths.hpp"

namespace orivanta::importer {

namespace {

constexpr double longest = 150.0;  // meters
constexpr double longestRound = 250.0;
constexpr std::size_t mostNeighbors = 40;
constexpr std::size_t mostSteps = 1'000'000;  // of searches for ways

// From this length on, a way between two exits is a detour. Whether people can walk round the back
// of a building is less certain than whether they can walk to what they see.
double detourOf(double straight) { return std::max(1.25 * straight, straight + 10.0); }
double detourOfRound(double length) { return std::max(2.0 * length, length + 20.0); }

class OutdoorJoiner {
 public:
  OutdoorJoiner(Building& building, Findings& findings)
      : building_(building),
        findings_(findings),
        parts_(building.network.nodes.size()),
        walls_(groundWalls(), 0.0),
        lines_(building) {
    findParts();
    exits_ = outdoorExits(building, parts_, withPlaces_);
  }

  void run() {
    const std::vector<Candidate> candidates = findCandidates();
    for (const auto& [length, from, to] : candidates)
      if (partOf(from) != partOf(to) && isFree(from, to)) join(from, to, {}, length);
    joinRoundCorners();
    for (const auto& [length, from, to] : candidates) shorten(from, to, length);
    lines_.cutTurnsBack(walls_);
  }

 private:
  using Candidate = std::tuple<double, std::size_t, std::size_t>;

  // Exits of different parts, the nearest first.
  std::vector<Candidate> findCandidates() {
    std::vector<Candidate> candidates;
    std::vector<Segment> points;
    points.reserve(exits_.size());
    for (const OutdoorExit& exit : exits_) points.push_back({exit.position, exit.position});
    const SegmentGrid grid(points, 0.0);
    for (std::size_t i = 0; i < exits_.size(); ++i) {
      std::vector<Candidate> near;
      grid.eachNear(points[i].a, longest, [&](std::size_t k) {
        const double length = package::distance(points[i].a, points[k].a);
        if (length <= longest && partOf(i) != partOf(k))
          near.emplace_back(length, std::min(i, k), std::max(i, k));
      });
      std::sort(near.begin(), near.end());
      if (near.size() > mostNeighbors) near.resize(mostNeighbors);
      candidates.insert(candidates.end(), near.begin(), near.end());
    }
    std::sort(candidates.begin(), candidates.end());
    candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
    return candidates;
  }

  bool isFree(std::size_t from, std::size_t to) const {
    return isFreeOutdoors(walls_, exits_[from].position, exits_[to].position);
  }

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

  // Joins what no straight line joins, the smaller part with the one that is nearest to it.
  void joinRoundCorners() {
    std::set<std::size_t> parts;
    for (std::size_t i = 0; i < exits_.size(); ++i) parts.insert(partOf(i));
    if (parts.size() < 2) return;
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
      const auto way = corners().shortest(positionsOf(own), positionsOf(others), longestRound);
      if (way) join(own[way->from], others[way->to], way->bends, way->length);
    }
  }

  std::vector<Point> positionsOf(const std::vector<std::size_t>& exits) const {
    std::vector<Point> positions;
    positions.reserve(exits.size());
    for (const std::size_t i : exits) positions.push_back(exits_[i].position);
    return positions;
  }

  // Infinite if it is longer than `limit`.
  double wayLength(std::size_t from, std::size_t to, double limit) {
    const auto& [nodes, edges] = building_.network;
    for (; known_ < edges.size(); ++known_) {
      const Edge& edge = edges[known_];
      lengths_.addLine(edge.from, edge.to,
                       package::distance(nodes[edge.from].position, nodes[edge.to].position));
    }
    lengths_.search(from, limit, to);
    return lengths_.to(to);
  }

  // Adds a line between two exits that were in different parts, if the way between them is a
  // detour.
  void shorten(std::size_t from, std::size_t to, double straight) {
    const auto atEnd = [&](const OutdoorExit& exit) {
      return package::distance(building_.network.nodes[exit.node].position, exit.position);
    };
    const double atEnds = atEnd(exits_[from]) + atEnd(exits_[to]);
    const auto isLonger = [&](double limit) {
      const double between = std::max(limit - atEnds, 0.0);
      return wayLength(exits_[from].node, exits_[to].node, between) > between;
    };
    if (parts_.find(exits_[from].node) != parts_.find(exits_[to].node) ||
        !isLonger(detourOf(straight)))
      return;
    if (isFree(from, to)) return lines_.add(exits_[from], {}, exits_[to]);
    if (!isLonger(detourOfRound(straight))) return;
    const auto way =
        corners().shortest({exits_[from].position}, {exits_[to].position}, longestRound);
    if (way && isLonger(detourOfRound(way->length)))
      lines_.add(exits_[from], way->bends, exits_[to]);
  }

  OutdoorCorners& corners() {
    if (corners_) return *corners_;
    Shape ground;
    for (const Area& area : building_.areas)
      if (isOnGround(building_, area.level)) ground = joined(std::move(ground), area.shape);
    return corners_.emplace(ground, walls_);
  }

  void join(std::size_t one, std::size_t other, const std::vector<Point>& bends, double length) {
    parts_.join(exits_[one].node, exits_[other].node);
    lines_.add(exits_[one], bends, exits_[other]);
    const std::size_t start = lines_.nodeOf(exits_[one]);
    const std::size_t to = lines_.nodeOf(exits_[other]);
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
  OutdoorLines lines_;
  WayLengths lengths_{mostSteps};
  std::size_t known_ = 0;  // edges of the network that `lengths_` has
  std::optional<OutdoorCorners> corners_;
};

}  // namespace

void joinOutdoors(Building& building, Findings& findings) {
  OutdoorJoiner(building, findings).run();
}

}  // namespace orivanta::importer
