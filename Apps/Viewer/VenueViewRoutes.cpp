// Shows the planned route, and the simulated walk along it.
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

// --- Routes

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
  display_.frame();
}

// Shows where an instruction begins, and the walk to the next one.
void VenueView::showStep(std::size_t index) {
  stopWalk();
  const GuidedRoute& route = *session_.route();
  panels_.route->setCurrentStep(index);
  display_.markStep(route, index, scale_);
  showFloor(display_.wantedFloor());
  display_.frameStep(route, index);
}

std::string VenueView::arrivalText() const {
  const auto arrival = session_.arrival();
  if (!arrival) return "";
  const std::string time = fmt::format("{:02}:{:02}", arrival->hour, arrival->minute);
  return texts_.text("interface.route.arrival", {{"time", time}});
}

// --- Walk

void VenueView::toggleWalk() {
  const Walker* walker = walk_.walker();
  if (walker == nullptr || walker->isDone()) return startWalk();
  walk_.setPaused(!walker->isPaused());
  panels_.route->setWalk(walker->isPaused() ? WalkState::paused : WalkState::walking);
  if (!walker->isPaused()) showWalkedFloor();
}

void VenueView::startWalk() {
  if (!isLoaded_ || !session_.route() || session_.route()->steps.empty()) return;
  walk_.start(*session_.plan().guide, session_.route()->itinerary);
  panels_.route->setWalk(WalkState::walking);
  showWalkedFloor();
  arrangePanels();
}

void VenueView::stopWalk() {
  if (!walk_.walker()) return;
  walk_.stop();
  session_.walkEnded();
  panels_.route->setWalk(WalkState::none);
  if (!session_.route()) return;
  panels_.route->setCurrentStep(std::nullopt);
  panels_.route->setRemark(arrivalText());
  arrangePanels();
}

void VenueView::showWalkedFloor() { showFloor(walk_.walker()->floor(), Asker::walk); }

void VenueView::walk(double time) {
  const Walker& walker = *walk_.walker();
  if (walker.isDone()) return;
  if (walk_.advance(time, scale_)) showWalkedFloor();
  panels_.route->setCurrentStep(walker.progress().announced);
  if (walker.isDone()) {
    session_.walkEnded();
    panels_.route->setWalk(WalkState::paused);
  }
  if (const std::string left = leftText(); left != panels_.route->remark()) {
    panels_.route->setRemark(left);
    arrangePanels();
  }
  walk_.follow();
}

// Returns what is left of the walk. Lengths and times are not known without a scale.
std::string VenueView::leftText() const {
  const guidance::Progress& progress = walk_.walker()->progress();
  if (progress.arrived) return texts_.text("interface.walk.arrived");
  if (!session_.route()->itinerary.hasScale) return "";
  const std::string length = texts_.name(narrator_.length(progress.metersLeft));
  const std::string time = texts_.name(narrator_.time(progress.secondsLeft));
  if (length.empty()) return texts_.text("interface.walk.left.time", {{"time", time}});
  return texts_.text("interface.walk.left", {{"length", length}, {"time", time}});
}

}  // namespace orivanta::viewer
