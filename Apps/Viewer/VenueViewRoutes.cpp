// Shows the planned route.
#include <fmt/format.h>

#include <utility>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Apps/Viewer/VenueView.hpp"
#include "Source/Map.hpp"

namespace orivanta::viewer {

void VenueView::connectRoute() {
  RoutePanel& panel = *panels_.route;
  panel.stops().closed = [this] { session_.clear(); };
  panel.stops().swapped = [this] {
    select(nullptr);
    session_.swapEnds();
  };
  panel.stops().chosen = [this](RouteEnd end) { panels_.search->open(end); };
  panel.stops().removed = [this](std::size_t index) { session_.removeStop(index); };
  panel.profileChosen = [this](std::size_t index) { session_.setProfile(index); };
  panel.routeChosen = [this](std::size_t index) {
    session_.choose(index);
    showPlan();
    lookAtRoute();
  };
  panel.stepChosen = [this](std::size_t index) { showStep(index); };
  panel.walkTapped = [this] { toggleWalk(); };
  session_.changed = [this] { routeChanged(); };
  session_.requested = [this] {
    if (closuresWanted) closuresWanted();
  };
  session_.planned = [this] {
    showPlan();
    lookAtRoute();
    if (walksAtOnce_) startWalk();
  };
  session_.confirmed = [this] { routeConfirmed(); };
  session_.rerouted = [this](const std::string& closed) { routeReplaced(closed); };
}

void VenueView::routeChanged() {
  removeRoute();
  panels_.route->setProfile(session_.profile());
  if (session_.isPlanning()) panels_.route->setPlanning();
  arrangePanels();
}

// Removes the route and the walk. The panel keeps the stops.
void VenueView::removeRoute() {
  stopWalk();
  display_.clear();
  panels_.floors->setRoute({});
  panels_.route->setStops(session_.names());
}

// Shows the chosen route or why there is none. The map does not move.
void VenueView::showPlan() {
  removeRoute();
  const GuidedPlan& plan = session_.plan();
  if (const GuidedRoute* route = session_.route()) {
    panels_.route->setRoute(plan, session_.chosen(), arrivalText());
    panels_.floors->setRoute(route->floors);
    display_.show(*route, scale_);
  } else {
    const bool hasHelp = plan.problem->kind == guidance::Problem::Kind::onlyWithSteps;
    panels_.route->setProblem(plan.problemText,
                              hasHelp ? std::optional(preferElevatorChoice) : std::nullopt);
  }
  arrangePanels();
}

// The map and a walk need no change.
void VenueView::routeConfirmed() {
  const auto step = panels_.route->steps().current();
  const std::string remark = panels_.route->remark();
  panels_.route->setRoute(session_.plan(), session_.chosen(), remark);
  arrangePanels();
  panels_.route->setCurrentStep(step);
}

// A walk continues on the new route. Nobody has asked for that route, so the map only moves with a
// walker who is in sight.
void VenueView::routeReplaced(const std::string& closed) {
  const Walker* walker = walk_.walker();
  const bool walks = walker != nullptr && !walker->isDone();
  const bool isPaused = walks && walker->isPaused();
  const bool isInSight = walks && walker->floor() == mapView_->currentMap() && !selected_;
  showPlan();
  if (!session_.route()) return;
  const std::string name = texts_.name(closed);
  if (remarked)
    remarked(closed.empty() ? texts_.text("interface.note.rerouted")
                            : texts_.text("interface.note.closed", {{"place", name}}));
  if (!walks || session_.route()->steps.empty()) return;
  walk_.continueOn(*session_.plan().guide, session_.route()->itinerary);
  walk_.setPaused(isPaused);
  panels_.route->setWalk(isPaused ? WalkState::paused : WalkState::walking);
  if (isInSight && !isPaused) showWalkedFloor();
  arrangePanels();
}

// Frames the beginning of the route, if there is one, unless the map shows a selected place.
void VenueView::lookAtRoute() {
  if (!display_.isShown() || selected_) return;
  showFloor(display_.wantedFloor());
  frameRoute();
}

void VenueView::frameRoute() {
  kept_.show([this](CameraMotion motion) { display_.frame(motion); }, CameraMotion::glide);
}

// Shows where an instruction begins, and the walk to the next one.
void VenueView::showStep(std::size_t index) {
  stopWalk();
  const GuidedRoute& route = *session_.route();
  panels_.route->setCurrentStep(index);
  display_.markStep(route, index);
  showFloor(display_.wantedFloor());
  kept_.show(
      [this, index](CameraMotion motion) {
        if (session_.route()) display_.frameStep(*session_.route(), index, motion);
      },
      CameraMotion::glide);
}

std::string VenueView::arrivalText() const {
  const auto arrival = session_.arrival();
  if (!arrival) return "";
  const std::string time = fmt::format("{:02}:{:02}", arrival->hour, arrival->minute);
  return texts_.text("interface.route.arrival", {{"time", time}});
}

}  // namespace orivanta::viewer
