// The markers of a map view, their positions and their visibility.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/MapViewMarker2D.hpp"

namespace orivanta {

class MapView;
class MapViewOverlay2D;

/// Shows the sprites of markers in the overlay of a map view, which owns this layer. Main thread,
/// except `markers` and `updatePositions`.
class MarkerLayer {
 public:
  explicit MarkerLayer(MapView& view) : view_(view) {}

  /// See the corresponding functions of `MapView`.
  std::vector<std::shared_ptr<MapViewMarker>> markers() const;
  void add(const std::shared_ptr<MapViewMarker2D>& marker);
  void remove(const std::shared_ptr<MapViewMarker2D>& marker);
  void updatePositions();
  void updateVisibility();

  void showAll();
  void hideAll();

  /// Moves the visible sprites to another overlay.
  void moveTo(MapViewOverlay2D& overlay);

 private:
  void show(MapViewMarker2D& marker);
  static void hide(MapViewMarker2D& marker);

  MapView& view_;
  std::vector<std::shared_ptr<MapViewMarker>> markers_;
};

/// Converts a point that was projected into the scene view to a point of the overlay.
graphics::Point overlayPosition(const MapView& view, graphics::Vector3 projected);

}  // namespace orivanta
