// The nodes, lengths and times of a path.
#pragma once

#include <memory>
#include <vector>

#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::guidance {

/// Measures a path between two stops. The stops may be null if they are not positions. All
/// arguments must outlive it.
class PathMeasure {
 public:
  using Index = GuideNetwork::Index;
  using Hops = std::vector<Hop>::const_iterator;

  PathMeasure(const GuideNetwork& network, double metersPerSecond, const Ends* from, const Ends* to)
      : network_(network), speed_(metersPerSecond), from_(from), to_(to) {}

  const std::shared_ptr<Node>& nodeOf(Index vertex) const;
  const std::shared_ptr<Map>& mapOf(Index vertex) const;

  /// Returns the length of a walk in meters.
  double meters(const Hop& hop) const;

  /// Returns the time of a ride without a pause between two nodes of a connector.
  double rideSeconds(Index connector, Index first, Index last) const;

  bool isWalk(const Hop& hop) const;

  /// Returns the end of the first part of a path: a hop of a walk, or a ride over all consecutive
  /// stops of a connector.
  Hops endOfPart(Hops first, Hops end) const;

  /// Returns the time of such a part.
  double secondsOfPart(Hops first, Hops end) const;

  /// Returns the time of a path.
  double seconds(const NetworkPath& path) const;

 private:
  const GuideNetwork& network_;
  double speed_;
  const Ends* from_;
  const Ends* to_;
};

}  // namespace orivanta::guidance
