#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "Benchmarks/NetworkFigures.hpp"

namespace orivanta::benchmarks {

using importer::Building;
using importer::NodeKind;

namespace {

double shortest(const std::vector<double>& lengths, const std::vector<std::size_t>& ends) {
  double best = unknownLength;
  for (const std::size_t end : ends) best = std::min(best, lengths[end]);
  return best;
}

// The doors of each room, as nodes of the derived network, by the room's plain identifier.
std::map<std::string, std::vector<std::size_t>> doorsOfRooms(const Building& building) {
  std::map<std::string, std::size_t> nodes;
  for (std::size_t i = 0; i < building.network.nodes.size(); ++i)
    if (building.network.nodes[i].kind == NodeKind::door)
      nodes.emplace(building.network.nodes[i].of, i);
  std::map<std::string, std::vector<std::size_t>> rooms;
  for (const importer::Door& door : building.doors)
    if (const auto node = nodes.find(door.id); node != nodes.end())
      for (const std::string& area : door.areas)
        rooms[plainIdentifier(area)].push_back(node->second);
  return rooms;
}

}  // namespace

void compareLengths(const Building& building, const SurveyedPackage& survey, bool list) {
  const PlainNetwork derived = plainNetwork(building.network);
  const auto doors = doorsOfRooms(building);
  struct Room {
    std::string id;
    const std::vector<std::size_t>* surveyed;
    const std::vector<std::size_t>* derived;
  };
  std::vector<Room> rooms;
  std::size_t missing = 0;
  std::set<std::string> seen;
  for (const auto& [id, entrances] : survey.entrances) {
    const std::string plain = plainIdentifier(id);
    const auto found = doors.find(plain);
    if (found == doors.end())
      ++missing;
    else if (seen.insert(plain).second)
      rooms.push_back({id, &entrances, &found->second});
  }
  fmt::print("rooms of both      {}; {} of the survey have no door here\n", rooms.size(), missing);
  std::map<std::string, std::size_t> without;
  std::size_t pairs = 0;
  std::size_t joined = 0;
  std::vector<std::pair<double, std::string>> ratios;
  const std::size_t step = std::max<std::size_t>(1, rooms.size() / 120);
  for (std::size_t i = 0; i < rooms.size(); i += step) {
    const std::vector<double> surveyed = lengthsFrom(survey.network, *rooms[i].surveyed);
    const std::vector<double> lengths = lengthsFrom(derived, *rooms[i].derived);
    for (std::size_t k = i + 1; k < rooms.size(); ++k) {
      const double expected = shortest(surveyed, *rooms[k].surveyed);
      if (expected == unknownLength || expected < 10.0) continue;
      ++pairs;
      const double length = shortest(lengths, *rooms[k].derived);
      if (length == unknownLength) {
        ++without[rooms[i].id];
        ++without[rooms[k].id];
        ratios.emplace_back(-1.0, rooms[i].id + " to " + rooms[k].id);
        continue;
      }
      ++joined;
      ratios.emplace_back(length / expected,
                          fmt::format("{} to {} ({:.1f} m, surveyed {:.1f} m)", rooms[i].id,
                                      rooms[k].id, length, expected));
    }
  }
  if (list)
    for (const auto& [id, count] : without)
      fmt::print("  without a way    {} to {} rooms\n", id, count);
  std::vector<double> values;
  for (const auto& [ratio, name] : ratios)
    if (ratio >= 0.0) values.push_back(ratio);
  fmt::print("pairs with a way   {}\n", share(joined, pairs));
  fmt::print("length ratio       median {:.3f}, p5 {:.3f}, p95 {:.3f}, max {:.2f}\n",
             quantile(values, 0.5), quantile(values, 0.05), quantile(values, 0.95),
             quantile(values, 1.0));
  std::sort(ratios.begin(), ratios.end());
  if (!ratios.empty())
    fmt::print("  lowest           {:.2f} {}\n", ratios.front().first, ratios.front().second);
  if (!ratios.empty())
    fmt::print("  highest          {:.2f} {}\n", ratios.back().first, ratios.back().second);
}

namespace {

// The network with straight lines instead of the bends between the nodes for which `keeps` is true.
PlainNetwork withoutBends(PlainNetwork network, const std::vector<bool>& keeps) {
  std::vector<std::set<std::size_t>> around(network.nodes.size());
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    for (const std::size_t next : network.neighbors[i]) {
      around[i].insert(next);
      around[next].insert(i);
    }
  // What hangs on a line, such as a door, does not make a bend of it a crossing.
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    for (std::size_t leaf = i; !keeps[leaf] && around[leaf].size() == 1;) {
      const std::size_t on = *around[leaf].begin();
      around[leaf].clear();
      around[on].erase(leaf);
      std::erase(network.neighbors[on], leaf);
      network.neighbors[leaf].clear();
      leaf = on;
    }
  const auto isBend = [&](std::size_t i) { return !keeps[i] && around[i].size() == 2; };
  for (std::size_t i = 0; i < network.nodes.size(); ++i) {
    if (isBend(i)) continue;
    for (std::size_t& next : network.neighbors[i])
      for (std::size_t last = i; isBend(next);) {
        const std::size_t ahead =
            *around[next].begin() == last ? *around[next].rbegin() : *around[next].begin();
        last = std::exchange(next, ahead);
      }
  }
  for (std::size_t i = 0; i < network.nodes.size(); ++i)
    if (isBend(i)) network.neighbors[i].clear();
  return network;
}

}  // namespace

// Of a source's own network: the lengths between the nodes that both have. The bends of its lines
// may be nodes here and not in the survey, so they are compared with and without them.
void compareSharedNodes(PlainNetwork derived, const SurveyedPackage& survey, bool bends) {
  std::map<std::string, std::size_t> known;
  for (std::size_t i = 0; i < derived.nodes.size(); ++i) known.emplace(derived.nodes[i].id, i);
  std::vector<std::pair<std::size_t, std::size_t>> both;
  std::vector<bool> shared(derived.nodes.size());
  for (std::size_t i = 0; i < survey.network.nodes.size(); ++i)
    if (const auto node = known.find(survey.network.nodes[i].id); node != known.end()) {
      both.emplace_back(i, node->second);
      shared[node->second] = true;
    }
  if (!bends) derived = withoutBends(std::move(derived), shared);
  std::size_t pairs = 0;
  std::size_t equal = 0;
  std::size_t missing = 0;
  std::size_t shorter = 0;
  std::size_t longer = 0;
  for (std::size_t i = 0; i < both.size(); i += std::max<std::size_t>(1, both.size() / 60)) {
    const std::vector<double> surveyed = lengthsFrom(survey.network, {both[i].first});
    const std::vector<double> lengths = lengthsFrom(derived, {both[i].second});
    for (const auto& [there, here] : both) {
      if (surveyed[there] == unknownLength || surveyed[there] < 1.0) continue;
      ++pairs;
      const double length = lengths[here];
      std::size_t* const kind = std::abs(length / surveyed[there] - 1.0) <= 0.01 ? &equal
                                : length == unknownLength                        ? &missing
                                : length < surveyed[there]                       ? &shorter
                                                                                 : &longer;
      constexpr std::size_t listed = 3;
      if (++*kind <= listed && kind != &equal)
        fmt::print("  {:<16} {} to {}: {:.2f}, {:.2f}\n",
                   kind == &missing   ? "without a way"
                   : kind == &shorter ? "shorter"
                                      : "longer",
                   survey.network.nodes[both[i].first].id, survey.network.nodes[there].id, length,
                   surveyed[there]);
    }
  }
  fmt::print(
      "shared nodes       {}{}; lengths within 1 %: {}; {} without a way, {} shorter, {} longer\n",
      both.size(), bends ? "" : ", bends cut off", share(equal, pairs), missing, shorter, longer);
}

}  // namespace orivanta::benchmarks
