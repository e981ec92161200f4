#include "Apps/Viewer/WalkDisplay.hpp"

#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta::viewer {

namespace {

constexpr double metersShown = 30;  // around the walker

}  // namespace

void WalkDisplay::start(const guidance::Guide& guide, const guidance::Itinerary& itinerary) {
  continueOn(guide, itinerary);
  pose_.reset();
}

void WalkDisplay::continueOn(const guidance::Guide& guide, const guidance::Itinerary& itinerary) {
  walker_ = std::make_unique<Walker>(guide, itinerary);
  unitsPerMeter_ = guide.unitsPerMeter();
}

void WalkDisplay::stop() {
  if (!walker_) return;
  walker_.reset();
  display_.removeMark();
}

bool WalkDisplay::advance(double time, double scale) {
  const auto floor = walker_->floor();
  walker_->advance(time);
  const bool isOtherFloor = walker_->floor() != floor;
  if (isOtherFloor) pose_.reset();
  display_.markPosition(walker_->floor(), walker_->scenePosition(), scale);
  return isOtherFloor;
}

void WalkDisplay::follow() {
  if (walker_->floor() != mapView_->currentMap()) return;
  MapCamera& camera = mapView_->camera();
  if (camera.isGliding()) return;
  if (pose_ && !(camera.pose() == *pose_)) return;
  camera.frame({walker_->scenePosition()}, Surroundings{0, metersShown * unitsPerMeter_});
  pose_ = camera.pose();
}

}  // namespace orivanta::viewer
