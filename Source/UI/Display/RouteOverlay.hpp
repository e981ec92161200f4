// A route as the pictures show it: drawn on each floor, its ends and rides marked.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/Guidance/FloorVisits.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/Parts/MarkPlacement.hpp"

namespace orivanta {

class RouteOverlay {
 public:
  /// Either end may be null when it is no location.
  RouteOverlay(NodeList path, std::shared_ptr<Location> from, std::shared_ptr<Location> to);

  /// The parts of it on one floor each, in its order; at least one.
  const std::vector<FloorVisit>& visits() const { return visits_; }

  /// The first visit to a floor, or the one that a node of the path belongs to; null if there is
  /// none.
  const FloorVisit* firstVisitTo(const Map& floor) const;
  const FloorVisit* visitWith(const Node& node) const;

  /// The points of a visit, and all of the route's points on a floor.
  std::vector<graphics::Vector3> pointsOf(const FloorVisit& visit) const;
  std::vector<graphics::Vector3> pointsOn(const Map& floor) const;

  /// Draws the route and puts the marks of the floor now shown in the place of former ones: a mark
  /// and a name where the route begins and ends, a mark where it rides to another floor, with that
  /// floor's label, and where it comes from one. With `only`, draws that visit and its marks alone.
  void show(MapView& mapView, double scale, const FloorVisit* only = nullptr);

  /// Chooses anew how the marks look, so that they hide neither each other nor the route. Call it
  /// after the camera has moved.
  void arrangeMarks(MapView& mapView);

  /// Takes the route and its marks away.
  void hide(MapView& mapView);

 private:
  struct Mark {
    std::shared_ptr<Node> node;
    graphics::Color color;
    std::shared_ptr<const graphics::Image> text;  // null without one
    std::shared_ptr<MapViewMarker2D> marker;      // null before it is first arranged
  };

  void addMarks(const Map& floor);
  void addMark(const std::shared_ptr<Node>& node, graphics::Color color, const std::string& text);
  void setLook(MapView& mapView, Mark& mark, const MarkLook& look) const;
  std::vector<std::vector<graphics::Point>> linesOn(const MapView& mapView) const;

  NodeList path_;
  std::shared_ptr<Location> from_;
  std::shared_ptr<Location> to_;
  std::vector<FloorVisit> visits_;
  FloorVisit shown_;  // the part of the path that is drawn
  double scale_ = 1;
  std::vector<Mark> marks_;
  std::vector<MarkLook> looks_;  // of the marks, once they are arranged
};

}  // namespace orivanta
