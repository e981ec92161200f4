// The ends of a route, its steps, and a switch for routes without steps.
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
  std::function<void()> fromTapped;  ///< called to choose another place for this end
  std::function<void()> toTapped;
  std::function<void(bool accessible)> accessibleChanged;
  std::function<void(const RouteStep&)> stepChosen;

  /// If an end is null, the panel asks for it.
  void setEnds(const Location* from, const Location* to);

  /// For a route between both ends. Pass nothing if there is no route.
  void setRoute(const std::optional<PlannedRoute>& route);
  void setAccessible(bool accessible) { accessible_->setOn(accessible); }

  /// Returns the height for this width, at most `mostHeight`.
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
