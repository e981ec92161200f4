// Pins on the locations that were asked for.
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

  /// Shows the pins of the floor that is shown, with their names, in place of those of another
  /// floor. `scale`: pixels per point.
  void show(MapView& mapView, double scale);

 private:
  std::vector<std::shared_ptr<Location>> places_;
  std::vector<std::shared_ptr<MapViewMarker2D>> markers_;
};

}  // namespace orivanta::command
