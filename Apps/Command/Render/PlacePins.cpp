#include "Apps/Command/Render/PlacePins.hpp"

#include <utility>

#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/MarkColors.hpp"
#include "Source/UI/MarkerImages.hpp"

namespace orivanta::command {

namespace {

constexpr double pinHeight = 30;  // points

}  // namespace

PlacePins::PlacePins(std::vector<std::shared_ptr<Location>> places) : places_(std::move(places)) {}

void PlacePins::show(MapView& mapView, double scale) {
  for (const auto& marker : markers_) mapView.removeMarker(marker);
  markers_.clear();
  auto bold = labelStyle();
  bold.bold = true;
  graphics::Color color = markColors::place;
  if (const auto style = mapView.style()) {
    const MapTheme& theme = *style->theme();
    color = theme.colors.pin;
    bold.fontFamily = theme.fontFamily;
    bold.color = theme.colors.text;
    bold.outlineColor = theme.colors.halo;
  }
  for (const auto& place : places_) {
    if (!isOnFloor(*place, *mapView.currentMap())) continue;
    markers_.push_back(makePinMarker(color, pinHeight, place->name.value_or(""), bold, scale));
    markers_.back()->setPosition(mapView.findPosition3D(*place));
    mapView.addMarker(markers_.back());
  }
}

}  // namespace orivanta::command
