// Follows a moving position along a route.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/Guide.hpp"

namespace orivanta::guidance {

/// The progress along a route.
struct Progress {
  std::size_t leg = 0;        ///< the index of the current leg
  double legMeters = 0.0;     ///< how far the traveler is on this leg
  double metersLeft = 0.0;    ///< the walk to the destination
  double secondsLeft = 0.0;   ///< the time to the destination
  std::size_t step = 0;       ///< the index of the next instruction
  double metersToStep = 0.0;  ///< the walk to it
  bool offRoute = false;      ///< whether the traveler has left the route
  bool arrived = false;       ///< whether the destination is reached
};

/// Used by one thread at a time.
class ORIVANTA_API Follower {
 public:
  /// When a traveler counts as off the route.
  struct Limits {
    double meters = 8.0;         ///< the distance from the route, or another floor
    double seconds = 3.0;        ///< for how long
    double arrivalMeters = 4.0;  ///< the distance from the destination that counts as arrival
  };

  /// Follows an itinerary of the guide. The guide must not be null.
  Follower(std::shared_ptr<const Guide> guide, Itinerary itinerary);

  /// As above, with other limits.
  Follower(std::shared_ptr<const Guide> guide, Itinerary itinerary, Limits limits);

  /// Sets the traveler's position at a time. `seconds` count from any origin and must not decrease;
  /// an earlier time is treated as the last one. Returns the progress.
  const Progress& update(const Position& position, double seconds);

  /// Returns the last progress.
  const Progress& progress() const { return progress_; }

  /// Returns the itinerary.
  const Itinerary& itinerary() const { return itinerary_; }

  /// Returns the instructions of the itinerary.
  const std::vector<Step>& steps() const { return steps_; }

 private:
  std::shared_ptr<const Guide> guide_;
  Itinerary itinerary_;
  Limits limits_;
  std::vector<Step> steps_;
  Progress progress_;
};

}  // namespace orivanta::guidance
