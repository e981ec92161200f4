// The costs of all arcs for one profile and one set of closures.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "Source/Guidance/Network/GuideNetwork.hpp"
#include "Source/Guidance/Profile.hpp"

namespace orivanta::guidance {

/// Costs are integer milliseconds, rounded up, so sums do not depend on their order. Immutable.
///
/// A walking arc costs the time for its length times the `multiplierWeight` of its target plus the
/// target's `constantWeight`, which is a length in the venue's units. A multiplier that is negative
/// or not finite counts as 1, such a constant as 0. A ride costs its time; the weights of
/// connectors have no meaning here. Penalties of the profile are added, and `roomPenalty` if the
/// arc leaves a room. An arc costs at most 12 days.
class CostTable {
 public:
  using Index = GuideNetwork::Index;
  static constexpr std::uint32_t unusable = std::numeric_limits<std::uint32_t>::max();
  static constexpr std::uint32_t roomPenalty = 30'000;

  /// The costs of a profile with nothing closed.
  CostTable(const GuideNetwork& network, const Profile& profile);

  /// The same costs, except that these arcs, in ascending order, cannot be used. Shares the costs
  /// with `open`, which must have no closed arcs: the effort depends on the closed arcs only.
  CostTable(const CostTable& open, const GuideNetwork& network, std::vector<Index> closedArcs);

  /// The same costs, except that these arcs cost 1.4 times as much.
  static CostTable withPenalty(const CostTable& base, std::span<const Index> arcs);

  std::uint32_t operator[](Index arc) const { return isClosed(arc) ? unusable : (*costs_)[arc]; }

  /// Returns the arcs that cannot be used because something is closed, in ascending order.
  const std::vector<Index>& closedArcs() const { return closedArcs_; }

  /// Returns the costs of all arcs as if none was closed.
  const std::uint32_t* data() const { return costs_->data(); }

  /// Returns whether an arc out of the vertex is closed.
  bool hasClosedArcs(Index vertex) const {
    return !closedArcs_.empty() && (closedVertices_[vertex / 64] >> vertex % 64 & 1U) != 0;
  }

  /// Returns a lower bound of the cost from one floor to another, in addition to
  /// `millisecondsPerUnit` times the horizontal distance.
  double floorBound(Index from, Index to) const {
    return bounds_->floors.empty() ? 0.0 : bounds_->floors[from * bounds_->floorCount + to];
  }
  /// Returns the least cost of a unit of horizontal distance on any arc, without `roomPenalty`.
  double millisecondsPerUnit() const { return bounds_->rate; }

 private:
  struct Bounds {
    double rate = 0.0;
    std::size_t floorCount = 0;
    std::vector<double> floors;  // a square; empty if there are too many floors
  };

  bool isClosed(Index arc) const {
    return !closedArcs_.empty() && std::binary_search(closedArcs_.begin(), closedArcs_.end(), arc);
  }
  void setBounds(const GuideNetwork& network, const std::vector<std::uint32_t>& costs);

  std::shared_ptr<const std::vector<std::uint32_t>> costs_;
  std::vector<Index> closedArcs_;              // sorted
  std::vector<std::uint64_t> closedVertices_;  // a bit per vertex; empty if no arc is closed
  std::shared_ptr<const Bounds> bounds_;       // penalties and closures never make them wrong
};

}  // namespace orivanta::guidance
