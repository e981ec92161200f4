// The nodes, lengths and times of a path.
#pragma once

#include <memory>

#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::guidance {

/// Measures a path between two stops. The stops may be null if they are not positions. All
/// arguments must outlive it.
class PathMeasure {
 public:
  using Index = GuideNetwork::Index;

  PathMeasure(const GuideNetwork& network, double metersPerSecond, const Ends* from, const Ends* to)
      : network_(network), speed_(metersPerSecond), from_(from), to_(to) {}

  const std::shared_ptr<Node>& nodeOf(Index vertex) const;
  const std::shared_ptr<Map>& mapOf(Index vertex) const;

  /// Returns the length of a walk in meters.
  double meters(const Hop& hop) const;

  /// Returns the time of a ride without a pause between two nodes of a connector.
  double rideSeconds(Index connector, Index first, Index last) const;

  /// Returns the time of a path. A ride over several stops of a connector is one ride.
  double seconds(const NetworkPath& path) const;

 private:
  const GuideNetwork& network_;
  double speed_;
  const Ends* from_;
  const Ends* to_;
};

}  // namespace orivanta::guidance
