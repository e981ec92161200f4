// The markers of a map view: which there are, where they show, and which give way.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/MapViewMarker2D.hpp"

namespace orivanta {

class MapView;
class MapViewOverlay2D;

/// Shows the sprites of markers in the overlay of the map view that owns it. Main thread, but for
/// `markers` and `updatePositions`.
class MarkerLayer {
 public:
  explicit MarkerLayer(MapView& view) : view_(view) {}

  /// As the operations of the same names in `MapView` say.
  std::vector<std::shared_ptr<MapViewMarker>> markers() const;
  void add(const std::shared_ptr<MapViewMarker2D>& marker);
  void remove(const std::shared_ptr<MapViewMarker2D>& marker);
  void updatePositions();
  void updateVisibility();

  void showAll();
  void hideAll();

  /// Takes the sprites that show to another overlay.
  void moveTo(MapViewOverlay2D& overlay);

 private:
  void show(MapViewMarker2D& marker);
  static void hide(MapViewMarker2D& marker);

  MapView& view_;
  std::vector<std::shared_ptr<MapViewMarker>> markers_;
};

/// The point of the overlay at which a point that was projected into the scene view shows.
graphics::Point overlayPosition(const MapView& view, graphics::Vector3 projected);

}  // namespace orivanta
