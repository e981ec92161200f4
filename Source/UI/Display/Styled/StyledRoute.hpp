// The routes of a styled map.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/RouteContents.hpp"
#include "Source/UI/Display/Styled/RouteMarks.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;
class StyledLabels;

/// Shows the parts of routes that are on the current floor, with their marks, and keeps labels
/// clear of them. Main thread, unless stated otherwise.
class StyledRoute {
 public:
  StyledRoute();
  ~StyledRoute();
  StyledRoute(const StyledRoute&) = delete;
  StyledRoute& operator=(const StyledRoute&) = delete;

  /// `view` and `labels` must exist until `detach`.
  void attach(MapView& view, StyledLabels& labels);

  /// Removes everything, also the routes.
  void detach();

  /// Draws everything for the current floor, scene and venue of the view. `theme` is not null.
  void show(const std::shared_ptr<const MapTheme>& theme);

  /// Adds a route or replaces that of the same owner. Requires `attach`.
  void set(const void* owner, RouteContents contents);

  /// Returns whether the owner has a route.
  bool has(const void* owner) const { return find(owner) != nullptr; }

  /// Sets the length of the passed part. Does nothing if the owner has no route.
  void setPassed(const void* owner, double passed);

  /// Does nothing if the owner has no route.
  void remove(const void* owner);

  /// See `MapStyle`.
  void setReducedMotion(bool isReduced);
  void setStill(bool isStill);

  /// Returns the routes, in the order in which they were added.
  std::vector<const RouteContents*> routes() const;

  /// Returns the mark at a point of the last frame, or nothing.
  std::optional<RouteMark> markAt(graphics::Point point) const;

  // Called by the thread that draws, under a transaction.

  /// Advances to a frame: moves the arrows and places the marks. `time`: seconds.
  void prepareFrame(double time);

  /// Draws the marks.
  void draw(view::Canvas& canvas);

  /// Whether arrows move.
  bool isAnimating() const;

 private:
  struct Shown;

  Shown* find(const void* owner) const;
  void update();
  void showRibbons(Shown& shown) const;
  std::vector<RouteMark> marksOnFloor() const;
  void updateLook(const Shown& shown) const;

  MapView* view_ = nullptr;
  StyledLabels* labels_ = nullptr;
  std::shared_ptr<const MapTheme> theme_;  // null until shown
  std::shared_ptr<Map> floor_;             // that is shown; may be null
  bool isReduced_ = false;
  bool isStill_ = false;
  std::vector<std::unique_ptr<Shown>> routes_;
  RouteMarks marks_;
  std::optional<double> unitsPerMeter_;  // that the venue states
  RouteScale scale_;                     // of the last frame
  std::optional<double> time_;           // of the last frame
  double phase_ = 0;                     // of the arrows, scene units
};

}  // namespace orivanta
