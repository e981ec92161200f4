// The ends of a route, its steps, and whether it may have stairs.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Apps/Viewer/RoutePlanner.hpp"
#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"

namespace orivanta::viewer {

class RoutePanel : public Panel {
 public:
  RoutePanel();

  std::function<void()> closed;
  std::function<void()> swapped;
  std::function<void()> fromTapped;  ///< another place is wanted for this end
  std::function<void()> toTapped;
  std::function<void(bool accessible)> accessibleChanged;
  std::function<void(const RouteStep&)> stepChosen;

  /// Either end may be null: then it asks for one.
  void setEnds(const Location* from, const Location* to);

  /// With both ends; nothing when there is no route.
  void setRoute(const std::optional<PlannedRoute>& route);
  void setAccessible(bool accessible) { accessible_->setOn(accessible); }

  /// Its height with this width, at most `mostHeight`.
  double arrange(double width, double mostHeight);
  void draw(view::Canvas& canvas) override;

 private:
  void showEnd(Label& label, const Location* place, const char* wish);

  std::shared_ptr<Pressable> from_;
  std::shared_ptr<Pressable> to_;
  std::shared_ptr<Label> fromName_;
  std::shared_ptr<Label> toName_;
  std::shared_ptr<Button> swap_;
  std::shared_ptr<Button> close_;
  std::shared_ptr<Label> summary_;
  std::shared_ptr<Switch> accessible_;
  std::shared_ptr<List> steps_;
  std::optional<PlannedRoute> route_;
};

}  // namespace orivanta::viewer
