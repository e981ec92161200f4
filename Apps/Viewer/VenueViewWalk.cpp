// A simulated walk along the route, and the mark of a position.
#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "Apps/Viewer/VenueView.hpp"
#include "Apps/Viewer/Widgets/Icon.hpp"
#include "Source/Map.hpp"
#include "Source/UI/MarkerImages.hpp"

namespace orivanta::viewer {

namespace {

constexpr double dotSide = 22;      // points
constexpr double metersShown = 30;  // around the walker
constexpr graphics::Color dotColor{0.05F, 0.48F, 1.0F};

}  // namespace

void VenueView::toggleWalk() {
  if (walker_) return stopWalk();
  if (!isLoaded_ || !route() || route()->steps.empty()) return;
  walker_ = std::make_unique<Walker>(*plan_.guide, route()->itinerary);
  walkPose_.reset();
  routePanel_->setWalking(true);
  showFloor(walker_->floor());
}

void VenueView::stopWalk() {
  if (!walker_) return;
  walker_.reset();
  clearPosition();
  routePanel_->setWalking(false);
  if (!route()) return;
  routePanel_->setCurrentStep(std::nullopt);
  routePanel_->setRemark(arrivalText(*route()));
  arrangePanels();
}

void VenueView::walk(double time) {
  if (walker_->isDone()) return;
  walker_->advance(time);
  setPosition(walker_->floor(), walker_->position());
  if (walker_->floor() != mapView_->currentMap()) {
    walkPose_.reset();
    showFloor(walker_->floor());
  }
  routePanel_->setCurrentStep(walker_->step());
  const guidance::Progress& progress = walker_->progress();
  const auto minutes = std::max(1L, std::lround(progress.secondsLeft / 60));
  const std::string remark =
      progress.arrived ? "You are there"
                       : fmt::format("{:.0f} m, {} min left", progress.metersLeft, minutes);
  if (remark != routePanel_->arrival()) {
    routePanel_->setRemark(remark);
    arrangePanels();
  }
  followWalker();
}

// Moves the camera with the walker until the user moves it, and again on the next floor.
void VenueView::followWalker() {
  if (walker_->floor() != mapView_->currentMap()) return;  // not loaded yet
  const Surroundings surroundings{0, metersShown * plan_.guide->unitsPerMeter()};
  if (camera().isGliding()) return;
  if (walkPose_ && !(camera().pose() == *walkPose_)) return;
  camera().frame({walker_->position()}, surroundings);
  walkPose_ = camera().pose();
}

void VenueView::setPosition(const std::shared_ptr<Map>& floor, graphics::Vector3 position) {
  if (!positionMark_) positionMark_ = makeImageMarker(drawDot(dotColor, dotSide, scale_));
  positionFloor_ = floor;
  positionMark_->setPosition(position);
  markPosition();
}

void VenueView::clearPosition() {
  positionFloor_ = nullptr;
  markPosition();
  positionMark_ = nullptr;
}

// Shows the mark if its floor is shown.
void VenueView::markPosition() {
  const bool isShown = positionFloor_ && positionFloor_ == mapView_->currentMap();
  if (isShown == isPositionShown_) return;
  isPositionShown_ = isShown;
  if (isShown)
    mapView_->addMarker(positionMark_);
  else
    mapView_->removeMarker(positionMark_);
}

}  // namespace orivanta::viewer
