#include "Apps/Import/Network/OutdoorExits.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/OuterBorder.hpp"

namespace orivanta::importer {

namespace {

constexpr double groundHeight = 0.5;  // meters
constexpr std::size_t mostExits = 2'000;

class ExitFinder {
 public:
  ExitFinder(const Building& building, DisjointSets& parts, const std::set<std::size_t>& withPlaces)
      : building_(building), parts_(parts), withPlaces_(withPlaces) {}

  std::vector<OutdoorExit> find() {
    countLines();
    findExits();
    findOpenEnds();
    guessExits();
    return std::move(exits_);
  }

 private:
  void countLines() {
    lines_.resize(building_.network.nodes.size());
    for (const Edge& edge : building_.network.edges) {
      ++lines_[edge.from];
      ++lines_[edge.to];
    }
  }

  void findExits() {
    const auto& [nodes, edges] = building_.network;
    std::vector<bool> isJoined(nodes.size());  // with more than places
    const auto isSpot = [&list = nodes](std::size_t i) { return list[i].kind == NodeKind::spot; };
    for (const Edge& edge : edges) {
      if (!isSpot(edge.to)) isJoined[edge.from] = true;
      if (!isSpot(edge.from)) isJoined[edge.to] = true;
    }
    std::set<std::string> entrances;
    for (const Door& door : building_.doors)
      if (door.kind == DoorKind::entrance && door.access == Access::everybody)
        entrances.insert(door.id);
    for (std::size_t i = 0; i < nodes.size() && exits_.size() < mostExits; ++i) {
      const bool isEntrance =
          nodes[i].kind == NodeKind::door && isJoined[i] && entrances.contains(nodes[i].of);
      const bool isHead = nodes[i].kind == NodeKind::boarding && !isJoined[i];
      if ((isEntrance || isHead) && isOnGround(building_, nodes[i].level) &&
          withPlaces_.contains(parts_.find(i)))
        exits_.push_back({i, nodes[i].position});
    }
  }

  // Where paths that the source draws end outside of everything else that it draws.
  void findOpenEnds() {
    if (building_.lines.empty()) return;
    const std::vector<Node>& nodes = building_.network.nodes;
    for (const Storey& storey : building_.storeys) {
      if (!isOnGround(building_, storey.ordinal)) continue;
      const AreaIndex areas(building_, storey.ordinal, [](const Area&) { return true; });
      for (std::size_t i = 0; i < nodes.size() && exits_.size() < mostExits; ++i)
        if (nodes[i].kind == NodeKind::way && nodes[i].level == storey.ordinal && lines_[i] == 1 &&
            withPlaces_.contains(parts_.find(i)) &&
            areas.smallestAt(nodes[i].position) == nullptr &&
            !contains(storey.footprint, nodes[i].position))
          exits_.push_back({i, nodes[i].position});
    }
  }

  // Parts without exits may get one where their way ends at the outside, or else where it is
  // nearest to the outside.
  void guessExits() {
    const std::vector<Node>& nodes = building_.network.nodes;
    std::set<std::size_t> withExits;
    for (std::size_t i = 0; i < exits_.size(); ++i) withExits.insert(parts_.find(exits_[i].node));
    std::set<std::size_t> withEnds;                              // parts
    std::map<std::size_t, std::pair<double, OutdoorExit>> best;  // by part, where no way ends
    for (const Storey& storey : building_.storeys) {
      if (!isOnGround(building_, storey.ordinal)) continue;
      const Space space(walkableSpace(building_, storey.ordinal));
      const AreaIndex areas(building_, storey.ordinal, [](const Area&) { return true; });
      for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].kind != NodeKind::way || nodes[i].level != storey.ordinal) continue;
        const std::size_t part = parts_.find(i);
        if (withExits.contains(part) || !withPlaces_.contains(part)) continue;
        const auto border = outerBorder(space, areas, nodes[i].position);
        if (!border) continue;
        const OutdoorExit exit{i, *border, true};
        if (lines_[i] == 1 && exits_.size() < mostExits) {
          exits_.push_back(exit);
          withEnds.insert(part);
          continue;
        }
        const double away = package::distance(*border, nodes[i].position);
        const auto [entry, isNew] = best.try_emplace(part, away, exit);
        if (!isNew && away < entry->second.first) entry->second = {away, exit};
      }
    }
    for (const auto& [part, exit] : best)
      if (!withEnds.contains(part)) exits_.push_back(exit.second);
  }

  const Building& building_;
  DisjointSets& parts_;
  const std::set<std::size_t>& withPlaces_;
  std::vector<int> lines_;  // by node
  std::vector<OutdoorExit> exits_;
};

}  // namespace

bool isOnGround(const Building& building, double level) {
  return std::any_of(building.storeys.begin(), building.storeys.end(), [&](const Storey& storey) {
    return storey.ordinal == level &&
           std::abs(storey.elevation.value_or(level * 4.0)) < groundHeight;
  });
}

std::vector<OutdoorExit> outdoorExits(const Building& building, DisjointSets& parts,
                                      const std::set<std::size_t>& withPlaces) {
  return ExitFinder(building, parts, withPlaces).find();
}

}  // namespace orivanta::importer
