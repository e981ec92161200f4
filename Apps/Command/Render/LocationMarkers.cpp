#include "Apps/Command/Render/LocationMarkers.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr graphics::Color pinColor{0.85F, 0.42F, 0.10F};
constexpr double pinHeight = 30;    // points
constexpr double labelSize = 11.5;  // points

bool isOn(const Location& location, const std::shared_ptr<Map>& floor) {
  const auto floors = floorsOf(location);
  return std::find(floors.begin(), floors.end(), floor) != floors.end();
}

}  // namespace

LocationMarkers::LocationMarkers(std::vector<std::shared_ptr<Location>> pinned, bool labels,
                                 std::vector<std::shared_ptr<Location>> unlabelled)
    : pinned_(std::move(pinned)), labels_(labels), unlabelled_(std::move(unlabelled)) {}

void LocationMarkers::show(MapView& mapView, double scale) {
  for (const auto& marker : markers_) mapView.removeMarker(marker);
  markers_.clear();
  if (labels_)
    for (const auto& location : *mapView.venue->locations)
      if (isOn(*location, mapView.currentMap()) && !isIn(pinned_, *location) &&
          !isIn(unlabelled_, *location))
        add(mapView, makeLabelMarker(location->name.value_or(""), labelStyle(labelSize), scale),
            *location);
  auto bold = labelStyle();
  bold.bold = true;
  for (const auto& location : pinned_)
    if (isOn(*location, mapView.currentMap()))
      add(mapView, makePinMarker(pinColor, pinHeight, location->name.value_or(""), bold, scale),
          *location);
}

void LocationMarkers::add(MapView& mapView, const std::shared_ptr<MapViewMarker2D>& marker,
                          const Location& location) {
  if (!marker) return;
  marker->setPosition(mapView.findPosition3D(location));
  mapView.addMarker(marker);
  markers_.push_back(marker);
}

bool LocationMarkers::isIn(const std::vector<std::shared_ptr<Location>>& list,
                           const Location& location) const {
  return std::any_of(list.begin(), list.end(),
                     [&](const auto& entry) { return entry.get() == &location; });
}

}  // namespace orivanta::command
