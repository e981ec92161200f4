// Shows the simulated walk along the route.
#include "Apps/Viewer/VenueView.hpp"
#include "Source/Map.hpp"

namespace orivanta::viewer {

void VenueView::toggleWalk() {
  const Walker* walker = walk_.walker();
  if (walker == nullptr || walker->isDone()) return startWalk();
  walk_.setPaused(!walker->isPaused());
  panels_.route->setWalk(walker->isPaused() ? WalkState::paused : WalkState::walking);
  if (!walker->isPaused()) showWalkedFloor();
}

void VenueView::startWalk() {
  if (!isLoaded_ || !session_.route() || session_.route()->steps.empty()) return;
  display_.clearPassed();
  walk_.start(*session_.plan().guide, session_.route()->itinerary);
  panels_.route->setWalk(WalkState::walking);
  showWalkedFloor();
  arrangePanels();
}

void VenueView::stopWalk() {
  if (!walk_.walker()) return;
  walk_.stop();
  display_.clearPassed();
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
  if (walk_.advance(time)) showWalkedFloor();
  display_.setPassed(*walker.floor(), walker.scenePosition());
  panels_.route->setCurrentStep(walker.progress().announced);
  if (walker.isDone()) {
    session_.walkEnded();
    panels_.route->setWalk(WalkState::paused);
  }
  if (const std::string left = leftText(); left != panels_.route->remark()) {
    panels_.route->setRemark(left);
    arrangePanels();
  }
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
