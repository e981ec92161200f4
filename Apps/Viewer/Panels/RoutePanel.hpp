// The stops of a route, the choice of a profile, and the instructions or a problem.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Apps/Viewer/Panels/StepList.hpp"
#include "Apps/Viewer/Panels/StopLines.hpp"
#include "Apps/Viewer/Widgets/IconButton.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/Segments.hpp"

namespace orivanta::viewer {

/// The state of a simulated walk.
enum class WalkState { none, walking, paused };

class RoutePanel : public Panel {
 public:
  explicit RoutePanel(const guidance::InterfaceTexts& texts);

  std::function<void(std::size_t index)> profileChosen;  ///< of `profileChoices`
  std::function<void(std::size_t index)> routeChosen;    ///< of the plan's routes
  std::function<void(std::size_t index)> stepChosen;     ///< of the route's instructions
  std::function<void()> walkTapped;                      ///< starts or pauses a simulated walk

  /// Shows the stops and removes the route or the problem.
  void setStops(const StopNames& names);
  void setProfile(std::size_t index) { profiles_->setChosen(index); }

  /// Says that a route is being planned.
  void setPlanning();

  /// Shows the routes to choose from and one of them, with its warning. `remark` is shown beside
  /// the summary.
  void setRoute(const GuidedPlan& plan, std::size_t index, const std::string& remark);

  /// Shows a problem, and offers the profile of `profileChoices` that may help, if any.
  void setProblem(const std::string& text, std::optional<std::size_t> helpfulProfile);

  /// Replaces the text beside the summary, such as the time of arrival.
  void setRemark(std::string text) { remark_->setText(std::move(text)); }

  /// During a walk, the choices of profiles and routes are hidden.
  void setWalk(WalkState state);

  /// Highlights an instruction, or none.
  void setCurrentStep(std::optional<std::size_t> index) { steps_->setCurrent(index); }

  const std::string& summary() const { return summary_->text(); }
  const std::string& remark() const { return remark_->text(); }
  const std::string& warning() const { return warning_->text(); }
  const StepList& steps() const { return *steps_; }
  StopLines& stops() { return *stops_; }
  Segments& profiles() { return *profiles_; }
  Segments& routes() { return *routes_; }
  Button& offer() { return *offer_; }
  IconButton& walkButton() { return *walkButton_; }

  /// Returns the height for this width. If `mostHeight` has no room for instructions, the choice
  /// of routes is left out, then the stops and the choice of profiles, then the instructions. If
  /// even the rest needs more, the height is greater than `mostHeight`.
  double arrange(double width, double mostHeight);

 private:
  double arrangeParts(double width, double mostHeight);
  double arrangeSummary(double width, double top);
  double arrangeChoices(double width, double top);

  const guidance::InterfaceTexts texts_;
  std::shared_ptr<StopLines> stops_;
  std::shared_ptr<Segments> profiles_;
  std::shared_ptr<Segments> routes_;
  std::shared_ptr<Label> summary_;  // or what is asked for, or the problem
  std::shared_ptr<Label> remark_;
  std::shared_ptr<Label> warning_;
  std::shared_ptr<IconButton> walkButton_;
  std::shared_ptr<Button> offer_;
  std::optional<std::size_t> helpfulProfile_;
  std::shared_ptr<StepList> steps_;
  WalkState walk_ = WalkState::none;
  int leftOut_ = 0;  // 1: the choice of routes, 2: also the stops and the profiles
};

}  // namespace orivanta::viewer
