// A route on the map, with a position on it.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::viewer {

/// Shows one route in a map view with a style, and frames parts of it. The map view must show a
/// floor before a route is shown. Main thread only.
class RouteDisplay {
 public:
  explicit RouteDisplay(std::shared_ptr<MapView> mapView) : mapView_(std::move(mapView)) {}
  RouteDisplay(const RouteDisplay&) = delete;
  RouteDisplay& operator=(const RouteDisplay&) = delete;

  /// Shows a route instead of the current one. Its start becomes the wanted part. `scale` is in
  /// pixels per point.
  void show(const GuidedRoute& route, double scale);

  /// Draws the route again for another size or scale of the view.
  void redraw(double scale);

  /// Removes the route and the position.
  void clear();
  bool isShown() const { return overlay_ != nullptr; }

  /// The floor of the wanted part of the route, for the caller to show. Null without a route.
  std::shared_ptr<Map> wantedFloor() const;

  /// Frames the wanted part of the route, or else the first part on the current floor.
  void frame(CameraMotion motion);

  /// Shows the position where an instruction begins, which becomes the wanted part.
  void markStep(const GuidedRoute& route, std::size_t index);

  /// Frames the walk from an instruction to the next one, if its floor is shown.
  void frameStep(const GuidedRoute& route, std::size_t index, CameraMotion motion);

  /// Shows the part of the route up to a position as passed, see `RouteOverlay::setPassed`.
  void setPassed(const Map& floor, graphics::Vector3 position);
  void clearPassed();

  /// Call before each frame.
  void arrange();

 private:
  std::shared_ptr<MapView> mapView_;
  std::unique_ptr<RouteOverlay> overlay_;  // null without a route
  std::shared_ptr<Node> wanted_;           // in the wanted part
};

}  // namespace orivanta::viewer
