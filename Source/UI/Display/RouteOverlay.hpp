// A route on a map view: drawn on the floor that is shown, with its ends and rides marked.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
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

class MapView;

/// Several overlays may show routes at once, in one map view or in several; `MapView::clearPaths`
/// does not concern them. Keeps the map view. Main thread.
class ORIVANTA_API RouteOverlay {
 public:
  /// `from` and `to` give the ends their names and may be null. Shows nothing before `show`.
  RouteOverlay(std::shared_ptr<MapView> mapView, NodeList path,
               std::shared_ptr<Location> from = nullptr, std::shared_ptr<Location> to = nullptr);

  /// Takes the route and its marks away.
  ~RouteOverlay();
  RouteOverlay(const RouteOverlay&) = delete;
  RouteOverlay& operator=(const RouteOverlay&) = delete;

  /// The color in which `show` draws the route; the map view's `pathColor` if absent.
  std::optional<graphics::Color> color;

  /// The parts of the route on one floor each, in its order. Empty for an empty path.
  const std::vector<FloorVisit>& visits() const { return visits_; }

  /// The first visit to a floor. Null if there is none.
  const FloorVisit* firstVisitTo(const Map& floor) const;

  /// The visit that a node of the path belongs to. Null if there is none.
  const FloorVisit* visitWith(const Node& node) const;

  /// The positions of the nodes of a visit, for `MapCamera::frame`.
  std::vector<graphics::Vector3> pointsOf(const FloorVisit& visit) const;

  /// The positions of all nodes on a floor, for `MapCamera::frame`.
  std::vector<graphics::Vector3> pointsOn(const Map& floor) const;

  /// Shows the route, or only one visit of it, in place of what was shown before: the route itself;
  /// a mark with a name where it begins and ends; a mark where it leaves the floor, with the label
  /// of the next floor; and a mark where it arrives from another floor. `scale`: pixels per point.
  void show(double scale, const FloorVisit* only = nullptr);

  /// Adapts what is shown to the floor that is shown and to the camera: marks hide neither each
  /// other nor the route. Call it after a floor change and before each frame; it returns at once if
  /// nothing has changed.
  void arrange();

  /// Takes the route and its marks away.
  void hide();

 private:
  struct Mark;
  struct Marks;

  void redraw();
  void drawSegments();
  void addMarks();
  void addMark(std::size_t index, graphics::Color markColor, const std::string& text);
  void arrangeMarks();
  void clear();
  bool isOnShownFloor(std::size_t index) const;
  std::vector<std::vector<graphics::Point>> linesInView() const;

  std::shared_ptr<MapView> mapView_;
  NodeList path_;
  std::shared_ptr<Location> from_;
  std::shared_ptr<Location> to_;
  std::vector<FloorVisit> visits_;
  std::size_t first_ = 0;  // of the part of the path that is shown
  std::size_t end_ = 0;    // behind that part; equal to `first_` when nothing is shown
  double scale_ = 1;
  std::vector<std::shared_ptr<scene::Node>> segments_;
  std::unique_ptr<Marks> marks_;
  std::shared_ptr<scene::Scene> scene_;  // in which the segments are; null before it is drawn
  std::shared_ptr<Map> floor_;           // that they are on
  std::uint64_t arrangedChange_ = 0;     // the count of changes when it was last arranged
};

}  // namespace orivanta
