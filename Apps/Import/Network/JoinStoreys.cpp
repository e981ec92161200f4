#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/IdMap.hpp"
#include "Apps/Import/Network/JoinOutdoors.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

constexpr double sameHeight = 0.5;  // meters
constexpr double sameDoor = 1.5;    // between the drawings of a door on two storeys
constexpr double besideDoor = 4.0;  // from an entrance to a line of the other storey

// Joins the networks of storeys at one height, such as the ground floor and the street.
class StoreyJoiner {
 public:
  explicit StoreyJoiner(Building& building) : building_(building) {
    for (std::size_t i = 0; i < building.network.nodes.size(); ++i)
      byLevel_[building.network.nodes[i].level].push_back(i);
    joined_.reserve(building.network.edges.size());
    for (const Edge& edge : building.network.edges) joined_.insert(std::minmax(edge.from, edge.to));
    for (const Door& door : building.doors)
      if (door.kind == DoorKind::entrance) entrances_.insert(door.id);
  }

  void join(const Storey& lower, const Storey& upper) {
    if (joinByLinks(lower.ordinal, upper.ordinal)) return;
    joinAtDoors(lower.ordinal, upper.ordinal, sameDoor, false);
    joinAtDoors(lower.ordinal, upper.ordinal, besideDoor, true);
    joinAtDoors(upper.ordinal, lower.ordinal, besideDoor, true);
  }

 private:
  void add(std::size_t from, std::size_t to, bool oneWay) {
    if (from != to && joined_.insert(std::minmax(from, to)).second)
      building_.network.edges.push_back({from, to, oneWay});
  }

  // The source's own links between the storeys.
  bool joinByLinks(double lower, double upper) {
    IdMap<std::size_t> ids;
    for (const double level : {lower, upper})
      for (const std::size_t i : byLevel_[level]) ids.emplace(building_.network.nodes[i].id, i);
    bool any = false;
    for (const SourceLink& link : building_.sourceLinks) {
      if (link.kind != LinkKind::walk && link.kind != LinkKind::ramp) continue;
      const auto from = ids.find(link.from);
      const auto to = ids.find(link.to);
      if (from == ids.end() || to == ids.end() ||
          building_.network.nodes[from->second].level == building_.network.nodes[to->second].level)
        continue;
      const bool backward = link.direction == Direction::backward;
      add(backward ? to->second : from->second, backward ? from->second : to->second,
          backward || link.direction == Direction::forward);
      any = true;
    }
    return any;
  }

  // From doors on one storey to the nearest door, or with `entrances` from entrances to the nearest
  // node of any kind, on the other.
  void joinAtDoors(double level, double other, double within, bool entrances) {
    const std::vector<Node>& nodes = building_.network.nodes;
    std::vector<std::size_t> ends;
    std::vector<Segment> points;
    for (const std::size_t i : byLevel_[other])
      if (nodes[i].kind == NodeKind::door || (entrances && nodes[i].kind == NodeKind::way)) {
        ends.push_back(i);
        points.push_back({nodes[i].position, nodes[i].position});
      }
    if (ends.empty()) return;
    const SegmentGrid grid(std::move(points), 0.0);
    for (const std::size_t i : byLevel_[level]) {
      if (nodes[i].kind != NodeKind::door || (entrances && !entrances_.contains(nodes[i].of)))
        continue;
      const std::size_t nearest = grid.nearest(nodes[i].position, within);
      if (nearest != SegmentGrid::none) add(i, ends[nearest], false);
    }
  }

  Building& building_;
  std::map<double, std::vector<std::size_t>> byLevel_;
  boost::unordered_flat_set<std::pair<std::size_t, std::size_t>> joined_;
  std::set<std::string> entrances_;
};

}  // namespace

void joinStoreys(Building& building, const Options& options, Findings& findings) {
  StoreyJoiner joiner(building);
  for (std::size_t i = 0; i + 1 < building.storeys.size(); ++i) {
    const Storey& lower = building.storeys[i];
    const Storey& upper = building.storeys[i + 1];
    if (lower.elevation && upper.elevation &&
        std::abs(*upper.elevation - *lower.elevation) < sameHeight)
      joiner.join(lower, upper);
  }
  if (options.network != NetworkChoice::source) joinOutdoors(building, findings);
}

}  // namespace orivanta::importer
