// A simulated walk on the map.
#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "Apps/Viewer/RouteDisplay.hpp"
#include "Apps/Viewer/Walker.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta::viewer {

/// Marks the position of a walk on the shown route, and moves the camera with it. Main thread only.
class WalkDisplay {
 public:
  /// `display` must outlive this object.
  WalkDisplay(std::shared_ptr<MapView> mapView, RouteDisplay& display)
      : mapView_(std::move(mapView)), display_(display) {}

  /// Starts a walk along one of the guide's itineraries, which must have legs.
  void start(const guidance::Guide& guide, const guidance::Itinerary& itinerary);

  /// As above, but the camera only moves with the walker if it did with the former one.
  void continueOn(const guidance::Guide& guide, const guidance::Itinerary& itinerary);

  /// Removes the walk and its mark, if any.
  void stop();

  void setPaused(bool isPaused) { walker_->setPaused(isPaused); }

  /// Returns the walk that is running or has ended at the destination, or null.
  const Walker* walker() const { return walker_.get(); }

  /// Whether the walk changes the image.
  bool isMoving() const { return walker_ && !walker_->isDone() && !walker_->isPaused(); }

  /// Continues the walk until a time in seconds. `scale` is in pixels per point. Returns whether
  /// the walker has entered another floor, which the caller then shows. Call `follow` after that.
  bool advance(double time, double scale);

  /// Moves the camera with the walker while the walker's floor is shown, until the user moves it,
  /// and again on the next floor.
  void follow();

 private:
  std::shared_ptr<MapView> mapView_;
  RouteDisplay& display_;
  std::unique_ptr<Walker> walker_;
  double unitsPerMeter_ = 1;
  std::optional<CameraPose> pose_;  // set while the camera follows the walker
};

}  // namespace orivanta::viewer
