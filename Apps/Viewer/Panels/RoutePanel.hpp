// The stops of a route, the choice of a profile, and the instructions or a problem.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Apps/Viewer/Panels/StepList.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/Segments.hpp"

namespace orivanta::viewer {

/// The names of the stops of a route. A missing name makes the panel ask for that stop.
struct StopNames {
  std::optional<std::string> from;
  std::vector<std::string> between;
  std::optional<std::string> to;
};

class RoutePanel : public Panel {
 public:
  RoutePanel();
  ~RoutePanel() override;
  RoutePanel(const RoutePanel&) = delete;
  RoutePanel& operator=(const RoutePanel&) = delete;

  std::function<void()> closed;
  std::function<void()> swapped;
  std::function<void()> fromTapped;  ///< called to choose another place for this end
  std::function<void()> toTapped;
  std::function<void(std::size_t index)> stopRemoved;    ///< of the stops in between
  std::function<void(std::size_t index)> profileChosen;  ///< of `profileChoices`
  std::function<void(std::size_t index)> routeChosen;    ///< of the plan's routes
  std::function<void(std::size_t index)> stepChosen;     ///< of the route's instructions

  /// Shows the stops and removes the route or the problem.
  void setStops(const StopNames& names);
  void setProfile(std::size_t index) { profiles_->setChosen(index); }

  /// Says that a route is being planned.
  void setPlanning();

  /// Shows the routes to choose from and one of them. `arrival` is a sentence; may be empty.
  void setRoute(const GuidedPlan& plan, std::size_t index, const std::string& arrival);

  /// Shows a problem, and offers the profile of `profileChoices` that may help, if any.
  void setProblem(const std::string& text, std::optional<std::size_t> helpfulProfile);

  /// Replaces the line beside the summary, such as the time of arrival.
  void setRemark(std::string text) { arrival_->setText(std::move(text)); }

  /// During a walk, the choices of profiles and routes are hidden.
  void setWalking(bool isWalking) { isWalking_ = isWalking; }

  /// Highlights an instruction, or none.
  void setCurrentStep(std::optional<std::size_t> index) { steps_->setCurrent(index); }

  const std::string& summary() const { return summary_->text(); }
  const std::string& arrival() const { return arrival_->text(); }
  const StepList& steps() const { return *steps_; }
  Segments& profiles() { return *profiles_; }
  Segments& routes() { return *routes_; }
  Button& offer() { return *offer_; }

  /// Returns the height for this width, at most `mostHeight`.
  double arrange(double width, double mostHeight);
  void draw(view::Canvas& canvas) override;

 private:
  struct StopLine;

  void addStop(const std::optional<std::string>& name, const char* wish);
  double arrangeStops(double width);
  double arrangeSummary(double width, double top);

  std::vector<StopLine> stops_;  // in order, at least two after `setStops`
  std::shared_ptr<Button> swap_;
  std::shared_ptr<Button> close_;
  std::shared_ptr<Segments> profiles_;
  std::shared_ptr<Segments> routes_;
  std::shared_ptr<Label> summary_;  // or what is asked for, or the problem
  std::shared_ptr<Label> arrival_;
  std::shared_ptr<Button> offer_;
  std::optional<std::size_t> helpfulProfile_;
  std::shared_ptr<StepList> steps_;
  bool isWalking_ = false;
};

}  // namespace orivanta::viewer
