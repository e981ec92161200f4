#include "Source/Guidance/Network/CostTable.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Guidance/Network/TravelTime.hpp"

namespace orivanta::guidance {

namespace {

using Arc = GuideNetwork::Arc;

constexpr double greatestCost = 1 << 30U;
constexpr double avoidedRide = 60'000.0;
constexpr double avoidedOutdoors = 2.0;
constexpr std::size_t mostFloorsWithBounds = 64;
constexpr double infinite = std::numeric_limits<double>::infinity();

// Returns the cost of an arc in milliseconds, or infinity if the profile excludes it.
class ArcCost {
 public:
  ArcCost(const GuideNetwork& network, const Profile& profile)
      : network_(network), profile_(profile), speed_(speedOf(profile)) {}

  double operator()(const Arc& arc) const {
    return arc.connector == GuideNetwork::none ? walk(arc) : ride(arc);
  }

 private:
  double walk(const Arc& arc) const {
    const double cost = std::min(1000.0 * arc.weighted / speed_, greatestCost);
    if (!network_.floors()[network_.vertex(arc.target).floor].outdoor) return cost;
    if (profile_.outdoors == Use::forbidden) return infinite;
    return profile_.outdoors == Use::avoided ? avoidedOutdoors * cost : cost;
  }

  double ride(const Arc& arc) const {
    const auto& connector = network_.connectors()[arc.connector];
    const Use use = profile_.use(connector.kind);
    if (use == Use::forbidden || (profile_.onlyAccessible && !connector.accessible))
      return infinite;
    const double seconds =
        rideSeconds(connector.kind, arc.plan / network_.unitsPerMeter(), arc.rise, speed_);
    return std::min(1000.0 * seconds, greatestCost) + (use == Use::avoided ? avoidedRide : 0.0);
  }

  const GuideNetwork& network_;
  const Profile& profile_;
  double speed_;
};

}  // namespace

CostTable::CostTable(const GuideNetwork& network, const Profile& profile) {
  const ArcCost costOf(network, profile);
  std::vector<std::uint32_t> costs;
  costs.reserve(network.arcs().size());
  for (const Arc& arc : network.arcs()) {
    const double cost = costOf(arc);
    costs.push_back(cost < infinite ? static_cast<std::uint32_t>(std::ceil(cost)) : unusable);
  }
  setBounds(network, costs);
  for (Index arc = 0; arc < costs.size(); ++arc)
    if (costs[arc] != unusable && network.leavesRoom(network.arcs()[arc]))
      costs[arc] += roomPenalty;
  costs_ = std::make_shared<const std::vector<std::uint32_t>>(std::move(costs));
}

// The rate is made slightly smaller than it is, for the rounding errors in its use.
void CostTable::setBounds(const GuideNetwork& network, const std::vector<std::uint32_t>& costs) {
  Bounds bounds;
  bounds.rate = infinite;
  const auto arcs = network.arcs();
  for (Index arc = 0; arc < costs.size(); ++arc)
    if (costs[arc] != unusable && arcs[arc].plan > 0.0)
      bounds.rate = std::min(bounds.rate, costs[arc] / arcs[arc].plan);
  bounds.rate = bounds.rate < infinite ? bounds.rate * (1.0 - 1e-9) : 0.0;
  const std::size_t count = network.floors().size();
  if (count <= mostFloorsWithBounds) {
    bounds.floorCount = count;
    bounds.floors.assign(count * count, infinite);
    for (std::size_t floor = 0; floor < count; ++floor) bounds.floors[floor * (count + 1)] = 0.0;
    for (Index arc = 0; arc < costs.size(); ++arc) {
      const Index from = network.vertex(arcs[arc].origin).floor;
      const Index to = network.vertex(arcs[arc].target).floor;
      if (from == to || costs[arc] == unusable) continue;
      double& bound = bounds.floors[from * count + to];
      bound = std::min(bound, std::max(0.0, costs[arc] - bounds.rate * arcs[arc].plan));
    }
    for (std::size_t via = 0; via < count; ++via)
      for (std::size_t from = 0; from < count; ++from)
        for (std::size_t to = 0; to < count; ++to) {
          double& bound = bounds.floors[from * count + to];
          bound =
              std::min(bound, bounds.floors[from * count + via] + bounds.floors[via * count + to]);
        }
  }
  bounds_ = std::make_shared<const Bounds>(std::move(bounds));
}

CostTable::CostTable(const CostTable& open, const GuideNetwork& network,
                     std::vector<Index> closedArcs)
    : costs_(open.costs_),
      closedArcs_(std::move(closedArcs)),
      closedVertices_(network.size() / 64 + 1),
      bounds_(open.bounds_) {
  for (const Index arc : closedArcs_) {
    const Index vertex = network.arcs()[arc].origin;
    closedVertices_[vertex / 64] |= std::uint64_t{1} << vertex % 64;
  }
}

CostTable CostTable::withPenalty(const CostTable& base, std::span<const Index> arcs) {
  std::vector<std::uint32_t> costs = *base.costs_;
  for (const Index arc : arcs)
    if (costs[arc] != unusable)
      costs[arc] = static_cast<std::uint32_t>(
          std::min<std::uint64_t>(std::uint64_t{costs[arc]} * 7 / 5, unusable - 1));
  CostTable table = base;
  table.costs_ = std::make_shared<const std::vector<std::uint32_t>>(std::move(costs));
  return table;
}

}  // namespace orivanta::guidance
