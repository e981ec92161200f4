// The markers that a page adds to a map.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Graphics/Color.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::web {

/// Where a marker is and what it shows. It has either a place or a position.
struct MapMarker {
  std::shared_ptr<Location> place;       ///< shown on its floors
  std::shared_ptr<Map> floor;            ///< of the position; null for all floors
  graphics::Vector3 position{0.0F};      ///< scene units
  std::string text{};                    ///< below the pin; may be empty
  std::optional<graphics::Color> color;  ///< of the pin; nothing for that of selected places
};

/// Shows pins. The numbers of markers are those of the page.
class MapMarkers {
 public:
  explicit MapMarkers(std::shared_ptr<MapView> mapView) : mapView_(std::move(mapView)) {}

  /// Adds a marker, or replaces the one with this number.
  void set(int number, MapMarker marker);
  void remove(int number);

  /// Shows the markers of the current floor, and no others. Call it after the floor or the scale
  /// has changed. `scale`: pixels per point.
  void arrange(double scale);

 private:
  struct Entry {
    MapMarker marker;
    std::shared_ptr<MapViewMarker2D> shown;  // null while it is not shown
  };

  void hide(Entry& entry);
  void show(Entry& entry);

  const std::shared_ptr<MapView> mapView_;
  std::map<int, Entry> entries_;
  double scale_ = 1;
};

}  // namespace orivanta::web
