#include "Source/Guidance/Network/Alternatives.hpp"

#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_set>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"

namespace orivanta::guidance {

namespace {

using Index = GuideNetwork::Index;
using Paths = std::vector<NetworkPath>;

constexpr int mostSearches = 4;
constexpr double mostTimes = 1.3;
constexpr double mostMilliseconds = 15'000.0;
constexpr double mostShared = 0.6;
constexpr double mostSharedWithOtherConnectors = 0.85;

std::int64_t costOf(const Paths& paths) {
  std::int64_t cost = 0;
  for (const NetworkPath& path : paths) cost += path.cost;
  return cost;
}

class Comparison {
 public:
  Comparison(const GuideNetwork& network, const CostTable& costs,
             const std::vector<const Ends*>& stops)
      : network_(network), costs_(costs), stops_(stops) {}

  // Replaces the costs of a search with penalties by those without.
  void setCosts(Paths& paths) const {
    for (std::size_t i = 0; i < paths.size(); ++i) {
      paths[i].cost = 0;
      for (const Hop& hop : paths[i].hops)
        paths[i].cost += hopCost(hop, *stops_[i], *stops_[i + 1]);
    }
  }

  bool differs(const Paths& candidate, const Paths& known) const {
    std::unordered_set<Index> used;
    for (const NetworkPath& path : known)
      for (const Hop& hop : path.hops) used.insert(hop.arc);
    double all = 0.0;
    double shared = 0.0;
    for (const NetworkPath& path : candidate)
      for (const Hop& hop : path.hops) {
        all += costs_[hop.arc];
        if (used.count(hop.arc) != 0) shared += costs_[hop.arc];
      }
    const bool sameRides = ridesOf(candidate) == ridesOf(known);
    return all > 0.0 && shared <= all * (sameRides ? mostShared : mostSharedWithOtherConnectors);
  }

 private:
  std::int64_t hopCost(const Hop& hop, const Ends& from, const Ends& to) const {
    std::int64_t cost = costs_[hop.arc];
    const auto& arc = network_.arcs()[hop.arc];
    const bool isPart = std::max(hop.from, hop.to) >= network_.size();
    if (network_.leavesRoom(arc) &&
        (isPart || std::binary_search(from.rooms.begin(), from.rooms.end(),
                                      network_.vertex(arc.origin).room)))
      cost -= CostTable::roomPenalty;
    if (!isPart) return cost;
    const double begin = hop.from == from.number ? shareOn(from, hop.arc) : 0.0;
    const double end = hop.to == to.number ? shareOn(to, hop.arc) : 1.0;
    return static_cast<std::int64_t>(std::ceil((end - begin) * static_cast<double>(cost)));
  }

  static double shareOn(const Ends& position, Index arc) {
    for (const Ends::Split& split : position.splits)
      if (split.arc == arc) return split.share;
    return 0.0;
  }

  std::set<Index> ridesOf(const Paths& paths) const {
    std::set<Index> connectors;
    for (const NetworkPath& path : paths)
      for (const Hop& hop : path.hops)
        if (network_.arcs()[hop.arc].connector != GuideNetwork::none)
          connectors.insert(network_.arcs()[hop.arc].connector);
    return connectors;
  }

  const GuideNetwork& network_;
  const CostTable& costs_;
  const std::vector<const Ends*>& stops_;
};

CostTable penalize(const CostTable& costs, const Paths& paths) {
  std::vector<Index> arcs;
  for (const NetworkPath& path : paths)
    for (const Hop& hop : path.hops) arcs.push_back(hop.arc);
  foundation::sort(arcs.begin(), arcs.end());
  arcs.erase(std::unique(arcs.begin(), arcs.end()), arcs.end());
  return CostTable::withPenalty(costs, arcs);
}

}  // namespace

std::vector<Paths> alternativesTo(
    const Paths& best, const std::vector<const Ends*>& stops, const GuideNetwork& network,
    const CostTable& costs, int wanted,
    const std::function<std::optional<Paths>(const CostTable&)>& search) {
  std::vector<Paths> kept;
  if (wanted <= 0) return kept;
  const Comparison comparison(network, costs, stops);
  const double most = mostTimes * static_cast<double>(costOf(best)) + mostMilliseconds;
  CostTable penalized = penalize(costs, best);
  for (int i = 0; i < mostSearches && static_cast<int>(kept.size()) < wanted; ++i) {
    auto found = search(penalized);
    if (!found) break;
    penalized = penalize(penalized, *found);
    comparison.setCosts(*found);
    const bool isNew = comparison.differs(*found, best) &&
                       std::all_of(kept.begin(), kept.end(), [&](const Paths& other) {
                         return comparison.differs(*found, other);
                       });
    if (isNew && static_cast<double>(costOf(*found)) <= most) kept.push_back(std::move(*found));
  }
  foundation::stableSort(kept.begin(), kept.end(), [](const Paths& left, const Paths& right) {
    return costOf(left) < costOf(right);
  });
  return kept;
}

}  // namespace orivanta::guidance
