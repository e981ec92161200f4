// A route as the pictures show it: drawn on each floor, its ends and rides marked.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::command {

class RouteOnMap {
 public:
  /// Either end may be null when it is no location.
  RouteOnMap(NodeList path, std::shared_ptr<Location> from, std::shared_ptr<Location> to);

  /// The floors on which there is something of it to see, in the order of the route, each once.
  std::vector<std::shared_ptr<Map>> floors() const;

  /// The route's points on a floor.
  std::vector<graphics::Vector3> pointsOn(const Map& floor) const;

  /// Draws the route and puts the marks of the floor now shown in the place of former ones: a pin
  /// and a name where the route begins and ends, a pin where it rides to another floor, with that
  /// floor's label, and where it comes from one.
  void show(MapView& mapView, double scale);

  /// Takes the route and its marks away.
  void hide(MapView& mapView);

 private:
  void mark(MapView& mapView, const Node& place, graphics::Color color, const std::string& text,
            double scale);

  NodeList path_;
  std::shared_ptr<Location> from_;
  std::shared_ptr<Location> to_;
  std::vector<std::shared_ptr<MapViewMarker2D>> marks_;
};

}  // namespace orivanta::command
