// A traveler who follows an itinerary exactly.
#pragma once

#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::command {

/// The positions of a traveler who needs the expected time for each leg. A value.
class SimulatedWalk {
 public:
  /// The itinerary must have legs.
  explicit SimulatedWalk(guidance::Itinerary itinerary);

  /// Returns the duration in seconds: finite, not negative.
  double seconds() const { return seconds_; }

  /// Returns the position after this time. On a ride, the floor changes at the end.
  guidance::Position at(double seconds) const;

 private:
  guidance::Itinerary itinerary_;
  double seconds_ = 0.0;
};

}  // namespace orivanta::command
