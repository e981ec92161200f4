// A simulated walk along a route.
#pragma once

#include <memory>
#include <optional>

#include "Platform/Graphics/Vector.hpp"
#include "Source/Guidance/Follower.hpp"
#include "Source/Guidance/SimulatedWalk.hpp"

namespace orivanta::viewer {

/// Moves along an itinerary, four times as fast as a traveler, and determines the progress. Main
/// thread only.
class Walker {
 public:
  static constexpr double speedUp = 4.0;

  /// The itinerary must be one of the guide and have legs.
  Walker(const guidance::Guide& guide, guidance::Itinerary itinerary);

  /// Continues the walk until a time in seconds. The first call is the start.
  void advance(double time);

  /// While the walk is paused, `advance` does not change the position. The time of the pause does
  /// not count, whether or not `advance` is called.
  void setPaused(bool isPaused) {
    isPaused_ = isPaused;
    time_.reset();
  }
  bool isPaused() const { return isPaused_; }

  /// Whether the end has been reached.
  bool isDone() const { return seconds_ >= walk_.seconds(); }

  const std::shared_ptr<Map>& floor() const { return point_.position.map; }
  const guidance::Position& position() const { return point_.position; }
  graphics::Vector3 scenePosition() const;  ///< in the scene of the floor

  const guidance::Progress& progress() const { return follower_.progress(); }

 private:
  guidance::Follower follower_;
  guidance::SimulatedWalk walk_;
  guidance::SimulatedWalk::Point point_;
  std::optional<double> time_;  // of the last call of `advance`; empty at the start and in a pause
  double seconds_ = 0;          // of the walk
  bool isPaused_ = false;
};

}  // namespace orivanta::viewer
