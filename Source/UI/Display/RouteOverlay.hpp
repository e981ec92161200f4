// A route on a map view, drawn on the current floor with marks at its ends and rides.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/FloorVisits.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

class MapStyle;
class MapView;
class RouteLine;
struct RouteMark;

/// Shows a route in a map view. A map view may have several overlays. `MapView::clearPaths` does
/// not affect them. If the map view has a style, the route is drawn in it: with a constant width,
/// and with the icons of connectors where it changes the floor, which can be tapped; see `MapTap`.
/// Keeps a reference to the map view. Main thread.
class ORIVANTA_API RouteOverlay {
 public:
  /// The names of `from` and `to`, which may be null, label the ends, see `labelName`. Shows
  /// nothing until `show`.
  RouteOverlay(std::shared_ptr<MapView> mapView, NodeList path,
               std::shared_ptr<Location> from = nullptr, std::shared_ptr<Location> to = nullptr);

  /// Removes the route and its marks.
  ~RouteOverlay();
  RouteOverlay(const RouteOverlay&) = delete;
  RouteOverlay& operator=(const RouteOverlay&) = delete;

  /// The color in which `show` draws the route. If empty, the map view's `pathColor`.
  std::optional<graphics::Color> color;

  /// A stop between the ends.
  struct Stop {
    std::size_t index = 0;            ///< of its node in the path
    std::shared_ptr<Location> place;  ///< its name is the label; may be null
  };

  /// The stops in between, in route order. `show` marks them with their numbers, from 1 on; the
  /// mark of an end at the same node replaces theirs.
  std::vector<Stop> stops;

  std::string start = "Start";              ///< the label of a start that is no place
  std::string destination = "Destination";  ///< the label of a destination that is no place

  /// Returns the visits to floors, in route order. Empty if the path is empty.
  const std::vector<FloorVisit>& visits() const { return visits_; }

  /// Returns the first visit to a floor, or null if there is none.
  const FloorVisit* firstVisitTo(const Map& floor) const;

  /// Returns the visit that contains a node of the path, or null if there is none.
  const FloorVisit* visitWith(const Node& node) const;

  /// Returns the positions of the nodes of a visit, for `MapCamera::frame`.
  std::vector<graphics::Vector3> pointsOf(const FloorVisit& visit) const;

  /// Returns the positions of all path nodes on a floor, for `MapCamera::frame`.
  std::vector<graphics::Vector3> pointsOn(const Map& floor) const;

  /// Shows the route, or only one visit, and removes what was shown before. Marks the start, the
  /// stops and the end with names, each departure from the floor with the label of the next floor,
  /// and each arrival from another floor. `scale` is in pixels per point.
  void show(double scale, const FloorVisit* only = nullptr);

  /// Adapts the route and its marks to the current floor and camera pose, so that marks do not
  /// cover each other or the route. Call it after a floor change and before each frame; it returns
  /// immediately if nothing has changed.
  void arrange();

  /// Removes the route and its marks.
  void hide();

  /// Marks the route as passed from its start to a position on a floor, in scene units: gray if the
  /// map view has a style, see `MapView::setStyle`; other views do not show it. The passed part
  /// ends at the nearest point of the route on that floor and never becomes shorter. Call it while
  /// a visitor walks. Does nothing if the route has no segment on the floor.
  void setPassed(const Map& floor, graphics::Vector3 position);

  /// Marks the whole route as not passed.
  void clearPassed();

 private:
  struct Mark;
  struct Marks;

  void redraw();
  void showStyled(MapStyle& style);
  std::vector<RouteMark> styledMarks(const MapStyle& style) const;
  void drawSegments();
  void addMarks();
  std::string nameOf(const std::shared_ptr<Location>& place, const std::string& otherwise) const;
  std::vector<std::size_t> stopsAt(std::size_t index) const;
  std::pair<std::string, std::string> stopTexts(std::size_t index) const;
  void addMark(std::size_t index);
  void arrangeMarks();
  void clear();
  bool isOnShownFloor(std::size_t index) const;
  std::vector<std::vector<graphics::Point>> linesInView() const;

  std::shared_ptr<MapView> mapView_;
  NodeList path_;
  std::shared_ptr<Location> from_;
  std::shared_ptr<Location> to_;
  std::vector<FloorVisit> visits_;
  std::shared_ptr<const RouteLine> line_;
  double passed_ = 0;              // length of the passed part
  std::weak_ptr<MapStyle> style_;  // that shows the route; empty if none does
  std::size_t first_ = 0;          // start of the shown part of the path
  std::size_t end_ = 0;            // end of that part; equal to `first_` if nothing is shown
  double scale_ = 1;
  std::vector<std::shared_ptr<scene::Node>> segments_;
  std::unique_ptr<Marks> marks_;
  std::shared_ptr<scene::Scene> scene_;  // contains the segments; null until drawn
  std::shared_ptr<Map> floor_;           // floor of the segments
  std::uint64_t arrangedChange_ = 0;     // the change count at the last `arrange`
};

}  // namespace orivanta
