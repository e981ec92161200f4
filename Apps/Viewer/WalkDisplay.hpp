// A simulated walk on the map.
#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "Apps/Viewer/Walker.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::viewer {

/// Shows the position of a walk on a map view with a style, which follows it until the user moves
/// the map, and again on the next floor. Main thread only.
class WalkDisplay {
 public:
  explicit WalkDisplay(std::shared_ptr<MapView> mapView) : mapView_(std::move(mapView)) {}

  /// Starts a walk along one of the guide's itineraries, which must have legs.
  void start(const guidance::Guide& guide, const guidance::Itinerary& itinerary);

  /// As above, but the camera only moves with the walker if it did with the former one.
  void continueOn(const guidance::Guide& guide, const guidance::Itinerary& itinerary);

  /// Removes the walk and its position, if any.
  void stop();

  void setPaused(bool isPaused) { walker_->setPaused(isPaused); }

  /// Returns the walk that is running or has ended at the destination, or null.
  const Walker* walker() const { return walker_.get(); }

  /// Whether the walk changes the image.
  bool isMoving() const { return walker_ && !walker_->isDone() && !walker_->isPaused(); }

  /// Continues the walk until a time in seconds. Returns whether the walker has entered another
  /// floor, which the caller then shows.
  bool advance(double time);

 private:
  std::shared_ptr<MapView> mapView_;
  std::unique_ptr<Walker> walker_;
  std::optional<double> heading_;  // see `MapPosition`
};

}  // namespace orivanta::viewer
