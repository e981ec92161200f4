#include <fmt/format.h>

#include <algorithm>
#include <boost/unordered/unordered_flat_map.hpp>
#include <cmath>
#include <numeric>
#include <set>
#include <stdexcept>

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Network/StoreyNetwork.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

std::set<double> levelsOf(const Building& building) {
  std::set<double> levels;
  for (const Storey& storey : building.storeys) levels.insert(storey.ordinal);
  for (const Area& area : building.areas) levels.insert(area.level);
  for (const SourceNode& node : building.sourceNodes) levels.insert(node.spot.level);
  return levels;
}

// Gives nodes identifiers that stay when other nodes change.
class Identifiers {
 public:
  std::string of(const DraftNode& node, double level) {
    std::string name = node.id;
    if (name.empty())
      name = fmt::format("way/{:g}/{}/{}", level, std::lround(node.position.x * 10.0),
                         std::lround(node.position.y * 10.0));
    const int uses = ++uses_[name];
    return uses == 1 ? name : fmt::format("{}/{}", name, uses);
  }

 private:
  boost::unordered_flat_map<std::string, int> uses_;
};

// Sorted by identifier, so that the order does not depend on how the nodes were found.
void append(const Draft& draft, double level, Identifiers& identifiers, Network& network) {
  std::vector<std::size_t> order(draft.nodes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    const DraftNode& first = draft.nodes[a];
    const DraftNode& second = draft.nodes[b];
    if (first.id != second.id) return first.id < second.id;
    if (first.position.x != second.position.x) return first.position.x < second.position.x;
    return first.position.y < second.position.y;
  });
  std::vector<std::size_t> index(draft.nodes.size());
  for (const std::size_t i : order) {
    const DraftNode& node = draft.nodes[i];
    index[i] = network.nodes.size();
    network.nodes.push_back(
        {identifiers.of(node, level), node.kind, level, node.position, node.of, node.weight});
  }
  const auto first = static_cast<std::ptrdiff_t>(network.edges.size());
  for (const DraftEdge& edge : draft.edges) {
    std::size_t from = index[edge.from];
    std::size_t to = index[edge.to];
    if (!edge.oneWay && from > to) std::swap(from, to);
    network.edges.push_back({from, to, edge.oneWay});
  }
  std::sort(network.edges.begin() + first, network.edges.end(), [](const Edge& a, const Edge& b) {
    return a.from != b.from ? a.from < b.from : a.to < b.to;
  });
}

void reportMissingWalkways(const Building& building, double level, Findings& findings) {
  if (hasWalkways(building, level)) return;
  const auto area = std::find_if(
      building.areas.begin(), building.areas.end(),
      [&](const Area& one) { return one.level == level && one.kind == AreaKind::unknown; });
  const bool between = walksBetweenRooms(building, level);
  if (area == building.areas.end() && !between) return;
  Finding finding;
  finding.rule = "walkway-missing";
  if (!between) finding.source = area->source;
  finding.level = level;
  finding.message = "The storey has no corridor, hall or other walkway.";
  finding.effect = between ? "What lies between its rooms serves as walkway."
                           : "Its areas of unknown use serve as walkways.";
  finding.advice = "Draw or mark the areas in which people walk.";
  findings.add(std::move(finding));
}

void reportFailure(double level, const std::runtime_error& error, Findings& findings) {
  Finding finding;
  finding.severity = Severity::violation;
  finding.rule = "network-missing";
  finding.level = level;
  finding.message =
      fmt::format("The walking network of the storey cannot be made: {}.", error.what());
  finding.effect = "No route leads to the storey.";
  finding.advice = "Check the outlines of its areas.";
  findings.add(std::move(finding));
}

}  // namespace

void makeNetwork(Building& building, const Options& options, Findings& findings) {
  building.network = {};
  Identifiers identifiers;
  const std::set<double> levels = levelsOf(building);
  std::size_t done = 0;
  for (const double level : levels) {
    if (options.progress)
      options.progress("making the walking network",
                       static_cast<double>(done++) / static_cast<double>(levels.size()));
    reportMissingWalkways(building, level, findings);
    try {
      append(makeStoreyNetwork(building, level, options.network), level, identifiers,
             building.network);
    } catch (const std::runtime_error& error) {
      reportFailure(level, error, findings);
    }
  }
}

}  // namespace orivanta::importer
