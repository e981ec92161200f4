// A simulated traveler who follows an itinerary exactly.
#pragma once

#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Request.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::guidance {

/// The positions of a traveler who takes the expected time for each leg of an itinerary. Use it to
/// show how a route is walked, or to test a `Follower`. A value; owns its nodes.
class ORIVANTA_API SimulatedWalk {
 public:
  /// Where the traveler is.
  struct Point {
    Position position;  ///< has no floor if the itinerary is not usable
    double z = 0.0;     ///< above the floor, in the venue's units
  };

  /// The walk along an itinerary. On a walk, the speed is the same everywhere; on a ride, all parts
  /// between two nodes take the same time. A leg whose time is negative or not finite takes none.
  /// If the itinerary is not usable, the walk takes no time.
  explicit SimulatedWalk(const Itinerary& itinerary);

  /// Returns the duration in seconds: finite, not negative.
  double seconds() const { return seconds_.empty() ? 0.0 : seconds_.back(); }

  /// Returns the position after a time in seconds: the start if the time is negative or not a
  /// number, the end after the duration. Between two floors, it is on the floor of the node before.
  Point at(double seconds) const;

 private:
  void add(const Leg& leg);

  NodeList nodes_;
  std::vector<double> seconds_;  // from the start to each node, ascending
};

}  // namespace orivanta::guidance
