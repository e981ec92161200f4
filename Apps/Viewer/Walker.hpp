// A simulated walk along a route.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/Guidance/Follower.hpp"
#include "Source/Guidance/SimulatedWalk.hpp"

namespace orivanta::viewer {

/// Moves along an itinerary, four times as fast as the traveler, and follows itself. Main thread
/// only.
class Walker {
 public:
  static constexpr double speedUp = 4.0;

  /// The itinerary must be one of the guide and have legs.
  Walker(const guidance::Guide& guide, guidance::Itinerary itinerary);

  /// Continues the walk until a time in seconds. The first call is the start.
  void advance(double time);

  /// While the walk is paused, `advance` does not change the position.
  void setPaused(bool isPaused) { isPaused_ = isPaused; }
  bool isPaused() const { return isPaused_; }

  /// Whether the end has been reached.
  bool isDone() const { return seconds_ >= walk_.seconds(); }

  const std::shared_ptr<Map>& floor() const { return point_.position.map; }
  graphics::Vector3 position() const;  ///< in the scene of the floor

  /// Returns the index of the instruction that the walker carries out.
  std::size_t step() const;

  const guidance::Progress& progress() const { return follower_.progress(); }

 private:
  guidance::Follower follower_;
  guidance::SimulatedWalk walk_;
  std::vector<double> stepStarts_;  // in meters from the beginning of the leg of each instruction
  guidance::SimulatedWalk::Point point_;
  std::optional<double> time_;  // of the last call of `advance`
  double seconds_ = 0;          // of the walk
  bool isPaused_ = false;
};

}  // namespace orivanta::viewer
