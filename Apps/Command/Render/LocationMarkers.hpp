// Markers for locations: their names, and pins on those that were asked for.
#pragma once

#include <memory>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::command {

/// Markers of the floor now shown; those of one floor go when another is shown.
class LocationMarkers {
 public:
  /// Pins on `pinned`, and, with `labels`, the names of all other locations of the venue, save
  /// those in `unlabelled`. Names in the way of others are hidden.
  LocationMarkers(std::vector<std::shared_ptr<Location>> pinned, bool labels,
                  std::vector<std::shared_ptr<Location>> unlabelled);

  void show(MapView& mapView, double scale);

 private:
  void add(MapView& mapView, const std::shared_ptr<MapViewMarker2D>& marker,
           const Location& location);
  bool isIn(const std::vector<std::shared_ptr<Location>>& list, const Location& location) const;

  std::vector<std::shared_ptr<Location>> pinned_;
  bool labels_;
  std::vector<std::shared_ptr<Location>> unlabelled_;
  std::vector<std::shared_ptr<MapViewMarker2D>> markers_;
};

}  // namespace orivanta::command
