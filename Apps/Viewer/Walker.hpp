// A simulated walk along a route.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/Guidance/Follower.hpp"

namespace orivanta::viewer {

/// Moves along an itinerary, four times as fast as the traveler, and follows itself. Main thread
/// only.
class Walker {
 public:
  static constexpr double speedUp = 4.0;

  /// The itinerary must be one of the guide and have legs.
  Walker(const guidance::Guide& guide, guidance::Itinerary itinerary);

  /// Moves to where the walk is at a time in seconds. The first call is the start.
  void advance(double time);

  /// Whether the end has been reached.
  bool isDone() const { return isDone_; }

  const std::shared_ptr<Map>& floor() const { return floor_; }
  graphics::Vector3 position() const { return position_; }  ///< in the scene of the floor

  /// Returns the index of the instruction that the walker carries out.
  std::size_t step() const;

  const guidance::Progress& progress() const { return follower_.progress(); }

 private:
  struct Point {
    std::shared_ptr<Node> node;
    double seconds;  // from the start
  };

  void addLeg(const guidance::Leg& leg);
  void addStepStarts();

  guidance::Follower follower_;
  std::vector<Point> points_;       // in order; never empty
  std::vector<double> stepStarts_;  // in meters from the beginning of the leg of each instruction
  std::optional<double> start_;
  std::shared_ptr<Map> floor_;
  graphics::Vector3 position_{0.0F};
  bool isDone_ = false;
};

}  // namespace orivanta::viewer
