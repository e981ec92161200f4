// The route that a map shows.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::web {

/// What is shown as a route.
struct ShownRoute {
  NodeList path;
  std::shared_ptr<Location> from;  ///< its name labels the start; may be null
  std::shared_ptr<Location> to;    ///< its name labels the end; may be null
  std::vector<RouteOverlay::Stop> stops;
  std::optional<graphics::Color> color;  ///< nothing for that of the theme
};

/// Shows one route in a map view with a style. It appears as soon as a floor is loaded.
class MapRoute {
 public:
  explicit MapRoute(std::shared_ptr<MapView> mapView) : mapView_(std::move(mapView)) {}

  /// Shows a route instead of the current one. An empty path removes it.
  void set(ShownRoute route);

  /// Draws the route again for another size or scale. `scale`: pixels per point.
  void redraw(double scale);

  /// Call before each frame.
  void arrange();

  /// Shows the part of the route up to a position as passed, see `RouteOverlay::setPassed`.
  void setPassed(const Map& floor, graphics::Vector3 position);
  void clearPassed();

  /// Frames the first part of the route on the current floor. Does nothing if there is none.
  void frame(CameraMotion motion);

 private:
  const std::shared_ptr<MapView> mapView_;
  std::unique_ptr<RouteOverlay> overlay_;  // null without a route
  double scale_ = 1;
};

}  // namespace orivanta::web
