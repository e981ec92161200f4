#include "Apps/Viewer/ClosureMarks.hpp"

#include <algorithm>

#include "Apps/Viewer/Theme.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

constexpr double pinHeight = 22;  // points

}  // namespace

void ClosureMarks::show(const guidance::Closures& closures, double scale) {
  for (const auto& mark : marks_) mapView_->removeMarker(mark);
  marks_.clear();
  places_.clear();
  if (closures.empty()) return;
  const Map& floor = *mapView_->currentMap();
  const Venue& venue = *mapView_->venue;
  const LabelNames names(venue);
  const auto isClosed = [&](const Location& place) {
    return closures.contains(place.id.value_or(""));
  };
  for (const auto& place : *venue.locations) {
    if (!isClosed(*place) || !isOnFloor(*place, floor)) continue;
    add(names.of(*place), mapView_->findPosition3D(*place), scale);
    places_.push_back(place);
  }
  for (const auto& connector : *venue.vortices) {
    if (!isClosed(*connector)) continue;
    const auto node = std::find_if(connector->nodes.begin(), connector->nodes.end(),
                                   [&](const auto& each) { return each->map.get() == &floor; });
    if (node != connector->nodes.end()) add(names.of(*connector), scenePosition(**node), scale);
  }
}

void ClosureMarks::add(std::string name, graphics::Vector3 position, double scale) {
  if (!name.empty()) name += '\n';
  marks_.push_back(makePinMarker(theme::warning, pinHeight, name + word_, labelStyle(), scale));
  marks_.back()->setPosition(position);
  mapView_->addMarker(marks_.back());
}

}  // namespace orivanta::viewer
