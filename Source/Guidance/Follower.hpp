// Follows a moving position along a route.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Request.hpp"
#include "Source/Guidance/Step.hpp"

namespace orivanta::guidance {

class RouteTrack;

/// The progress along a route.
struct Progress {
  std::size_t leg = 0;        ///< the index of the current leg
  double legMeters = 0.0;     ///< the distance walked on this leg; 0 on a ride
  double metersLeft = 0.0;    ///< the walk to the destination
  double secondsLeft = 0.0;   ///< the time to the destination
  std::size_t step = 0;       ///< the index of the next instruction
  double metersToStep = 0.0;  ///< the walk to it
  /// The index of the instruction to say or show now: `step` if it is near, otherwise the one
  /// before it, whose text includes the walk to `step`. It may increase by more than one. See
  /// `Follower::Limits`.
  std::size_t announced = 0;
  bool offRoute = false;  ///< whether the traveler has left the route
  bool arrived = false;   ///< whether the destination has been reached
};

/// Determines how far a traveler is on a route, which instruction is next, and whether the traveler
/// has left the route. Then call `Guide::plan` with the position as the first stop. Without
/// `unitsPerMetre`, one unit of the venue counts as one meter. If the itinerary is not usable, only
/// `Progress::offRoute` changes. Used by one thread at a time.
class ORIVANTA_API Follower {
 public:
  /// When a traveler is off the route, and when the destination is reached.
  struct Limits {
    /// The distance from the route. Another floor exceeds it, except one that a lift passes, and
    /// the two floors of an escalator during the ride.
    double meters = 8.0;
    double seconds = 3.0;        ///< how long the distance must be exceeded
    double arrivalMeters = 4.0;  ///< the rest of the route that counts as arrival
    /// How far before its place an instruction is announced: this walk, or the walk of
    /// `announceSeconds` if that is longer. An arrival is announced `arrivalMeters` before its
    /// place, the way on after a ride at the end of the ride.
    double announceMeters = 30.0;
    double announceSeconds = 20.0;  ///< the time before the place of an instruction
  };

  /// Follows an itinerary of the guide. The guide must not be null.
  Follower(const Guide& guide, Itinerary itinerary);

  /// As above, with other limits.
  Follower(const Guide& guide, Itinerary itinerary, Limits limits);
  ~Follower();
  Follower(Follower&&) noexcept;             ///< The other follower can then only be destroyed.
  Follower& operator=(Follower&&) noexcept;  ///< The other follower can then only be destroyed.

  /// Sets the position at a time. `seconds` is counted from any origin; a time that is before the
  /// last one, or not finite, is treated as the last one. Positions that are not finite, or without
  /// a floor, are ignored. Returns the progress, valid until the next call.
  const Progress& update(const Position& position, double seconds);

  /// Returns the last progress; before the first update, that at the start.
  const Progress& progress() const { return progress_; }

  /// Returns the itinerary.
  const Itinerary& itinerary() const { return itinerary_; }

  /// Returns the instructions of the itinerary.
  const std::vector<Step>& steps() const { return steps_; }

 private:
  void show(double along);
  void showLeg(double along);
  void showRest(double along);
  void showStep(double along);
  double metersTo(const Step& step) const;
  bool isCarriedOut(const Step& step, double along) const;
  bool isNear(const Step& step) const;

  Itinerary itinerary_;
  Limits limits_;
  std::vector<Step> steps_;
  std::unique_ptr<const RouteTrack> track_;
  Progress progress_;
  double along_ = 0.0;      // the position along the track
  double seconds_ = 0.0;    // the time of the last update
  double lastOnRoute_ = 0;  // the time of the last update that was on the route
  bool started_ = false;
};

}  // namespace orivanta::guidance
