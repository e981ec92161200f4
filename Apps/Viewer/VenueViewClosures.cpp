// Marks what is closed.
#include <algorithm>

#include "Apps/Viewer/VenueView.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

constexpr double closedPinHeight = 22;  // points

}  // namespace

void VenueView::setClosures(const guidance::Closures& closures) {
  if (closures == closures_) return;
  closures_ = closures;
  if (isLoaded_) floorShown();
  if (selected_) offerRoutes(selected_);
  if (isComplete())
    startPlanning();
  else
    arrangePanels();
}

bool VenueView::isClosed(const Location& place) const {
  return closures_.contains(place.id.value_or(""));
}

// Marks the closed places and connectors of the current floor.
void VenueView::markClosed() {
  for (const auto& mark : closedMarks_) mapView_->removeMarker(mark);
  closedMarks_.clear();
  markedClosed_.clear();
  if (closures_.empty()) return;
  const Map& floor = *mapView_->currentMap();
  const auto add = [&](const Location& place, graphics::Vector3 position) {
    closedMarks_.push_back(makePinMarker(theme::warning, closedPinHeight,
                                         place.name.value_or("") + "\nClosed", labelStyle(),
                                         scale_));
    closedMarks_.back()->setPosition(position);
    mapView_->addMarker(closedMarks_.back());
  };
  for (const auto& place : *venue_->locations) {
    if (!isClosed(*place) || !isOnFloor(*place, floor)) continue;
    add(*place, mapView_->findPosition3D(*place));
    markedClosed_.push_back(place);
  }
  for (const auto& connector : *venue_->vortices) {
    if (!isClosed(*connector)) continue;
    const auto node = std::find_if(connector->nodes.begin(), connector->nodes.end(),
                                   [&](const auto& each) { return each->map.get() == &floor; });
    if (node != connector->nodes.end()) add(*connector, scenePosition(**node));
  }
}

}  // namespace orivanta::viewer
