#include "Apps/Viewer/WalkDisplay.hpp"

#include <cmath>

#include "Source/UI/Display/MapStyle.hpp"

namespace orivanta::viewer {

void WalkDisplay::start(const guidance::Guide& guide, const guidance::Itinerary& itinerary) {
  continueOn(guide, itinerary);
  mapView_->style()->setFollowing(true);
}

void WalkDisplay::continueOn(const guidance::Guide& guide, const guidance::Itinerary& itinerary) {
  walker_ = std::make_unique<Walker>(guide, itinerary);
  heading_.reset();
}

void WalkDisplay::stop() {
  if (!walker_) return;
  walker_.reset();
  mapView_->style()->setFollowing(false);
  mapView_->style()->setPosition(std::nullopt);
}

bool WalkDisplay::advance(double time) {
  const auto floor = walker_->floor();
  const graphics::Vector3 from = walker_->scenePosition();
  walker_->advance(time);
  const graphics::Vector3 at = walker_->scenePosition();
  const bool isOtherFloor = walker_->floor() != floor;
  if (isOtherFloor)
    mapView_->style()->setFollowing(true);
  else if (at.x != from.x || at.y != from.y)
    heading_ = std::atan2(from.x - at.x, at.y - from.y);
  mapView_->style()->setPosition(MapPosition{walker_->floor(), at.x, at.y, at.z, 0, heading_});
  return isOtherFloor;
}

}  // namespace orivanta::viewer
