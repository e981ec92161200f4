// Shows pins on the requested locations.
#pragma once

#include <memory>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::command {

class PlacePins {
 public:
  explicit PlacePins(std::vector<std::shared_ptr<Location>> places);

  const std::vector<std::shared_ptr<Location>>& places() const { return places_; }

  /// Shows the pins of the current floor with their names, and removes those of other floors.
  /// `scale` is in pixels per point.
  void show(MapView& mapView, double scale);

 private:
  std::vector<std::shared_ptr<Location>> places_;
  std::vector<std::shared_ptr<MapViewMarker2D>> markers_;
};

}  // namespace orivanta::command
