#include "Apps/Web/Map/MapMarkers.hpp"

#include <utility>

#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/MarkerImages.hpp"

namespace orivanta::web {

namespace {

constexpr double pinHeight = 30;  // points

}  // namespace

void MapMarkers::set(int number, MapMarker marker) {
  remove(number);
  Entry& entry = entries_[number];
  entry.marker = std::move(marker);
  show(entry);
}

void MapMarkers::remove(int number) {
  const auto found = entries_.find(number);
  if (found == entries_.end()) return;
  hide(found->second);
  entries_.erase(found);
}

void MapMarkers::arrange(double scale) {
  scale_ = scale;
  for (auto& [number, entry] : entries_) {
    hide(entry);
    show(entry);
  }
}

void MapMarkers::hide(Entry& entry) {
  if (entry.shown) mapView_->removeMarker(std::exchange(entry.shown, nullptr));
}

void MapMarkers::show(Entry& entry) {
  const MapMarker& marker = entry.marker;
  const auto& floor = mapView_->currentMap();
  if (!floor || (marker.floor && marker.floor != floor)) return;
  if (marker.place && !isOnFloor(*marker.place, *floor)) return;
  const auto& colors = mapView_->style()->theme()->colors;
  auto style = labelStyle();
  style.bold = true;
  style.color = colors.text;
  style.outlineColor = colors.halo;
  entry.shown =
      makePinMarker(marker.color.value_or(colors.pin), pinHeight, marker.text, style, scale_);
  entry.shown->setPosition(marker.place ? mapView_->findPosition3D(*marker.place)
                                        : marker.position);
  mapView_->addMarker(entry.shown);
  mapView_->updateMarkerPositions();
}

}  // namespace orivanta::web
