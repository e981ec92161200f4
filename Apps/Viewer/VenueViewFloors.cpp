// Shows the floors of a venue as they are loaded, and reports failures.
#include <utility>

#include "Apps/Viewer/FloorTexts.hpp"
#include "Apps/Viewer/VenueView.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double startTilt = 0.6;    // radians
constexpr double uprightTilt = 0.3;  // in a view that is higher than wide

}  // namespace

void VenueView::load(const std::shared_ptr<Map>& first) {
  const auto self = std::weak_ptr(std::static_pointer_cast<VenueView>(shared_from_this()));
  FloorLoadHandlers handlers;
  handlers.floorChanged = [self](const FloorProgress& floor) {
    if (const auto view = self.lock()) view->floorsChanged(floor);
  };
  handlers.ended = [self](const std::vector<FloorProgress>& floors) {
    if (const auto view = self.lock()) view->floorsEnded(floors);
  };
  const auto& words = style_->theme()->words;
  floorLoad_ = mapView_->loadFloors(std::move(handlers),
                                    first ? first : MapStyle::firstFloor(*venue_, words));
}

void VenueView::retry(const std::shared_ptr<Map>& floor) {
  await(floor);
  load(floor);
}

void VenueView::stopLoading() {
  progressed = nullptr;
  loaded = nullptr;
  failed = nullptr;
  remarked = nullptr;
  if (floorLoad_) floorLoad_->cancel();
}

void VenueView::floorsChanged(const FloorProgress& floor) {
  const bool isThere = floor.map->mapObject != nullptr;
  panels_.floors->setState(*floor.map, isThere ? FloorState::ready : floor.state);
  if (!isLoaded_ && progressed && floorLoad_) {
    const auto all = floorLoad_->floors();
    progressed(loadedShare(all), progressText(all, texts_));
  }
  if (!isLoaded_ || floor.map != awaitedFloor_) return;
  if (isThere) {
    showFloor(floor.map);
    lookAgain();
  } else {
    tellFailure(floor);
  }
}

void VenueView::await(const std::shared_ptr<Map>& floor, Asker asker) {
  awaitedFloor_ = floor;
  asker_ = asker;
  panels_.floors->setAwaited(floor);
}

// Reports a failure of the awaited floor. If the user has not asked for it, a note is enough.
void VenueView::tellFailure(const FloorProgress& floor) {
  if (floor.state != FloorState::failed && floor.state != FloorState::withoutModel) return;
  const Asker asker = asker_;
  await(nullptr);
  if (asker == Asker::user && failed) failed(floorProblem(floor, texts_), floor.map);
  if (asker == Asker::walk && remarked) remarked(floorNote(floor, texts_));
}

// Frames the selected place or the route, when its floor is shown.
void VenueView::lookAgain() {
  if (selected_)
    lookAt(*selected_);
  else if (display_.isShown())
    frameRoute();
}

void VenueView::floorsEnded(const std::vector<FloorProgress>& floors) {
  if (!isLoaded_) {
    if (failed) failed(floorsProblem(floors, *venue_, texts_), nullptr);
    return;
  }
  const std::string sentence = omissions(floors, texts_);
  if (sentence.empty() || !remarked || std::exchange(hasToldOmissions_, true)) return;
  remarked(sentence);  // only once, even after retries
}

void VenueView::mapViewDidLoad() {
  if (isLoaded_) return resumeMap();
  isLoaded_ = true;
  const graphics::Size size = bounds().size;
  camera().tiltTo(size.width < size.height ? uprightTilt : startTilt);
  arrangePanels();
  kept_.show([this](CameraMotion motion) { style_->showFirstView(motion); }, CameraMotion::atOnce);
  floorShown();
  if (awaitedFloor_) showFloor(awaitedFloor_);
  if (loaded) loaded();
}

// A retry has restarted the scene. Restores the camera and, unless the new floor is the awaited
// one, the floor.
void VenueView::resumeMap() {
  if (mapView_->currentMap() != awaitedFloor_ && shownFloor_->mapObject)
    mapView_->changeMap(shownFloor_);
  camera().setPose(lastPose_);
  floorShown();
}

void VenueView::showFloor(const std::shared_ptr<Map>& floor) { showFloor(floor, Asker::user); }

void VenueView::showFloor(const std::shared_ptr<Map>& floor, Asker asker) {
  if (!floor) return;
  await(isLoaded_ && floor->mapObject ? nullptr : floor, asker);
  if (!isLoaded_ || floor == mapView_->currentMap()) return;
  if (!floor->mapObject) {
    const auto floors = floorLoad_ ? floorLoad_->floors() : std::vector<FloorProgress>{};
    for (const FloorProgress& progress : floors)
      if (progress.map == floor) tellFailure(progress);
    return;
  }
  mapView_->changeMap(floor);
  camera().setPose(camera().pose());  // applies the limits of this floor
  floorShown();
}

void VenueView::floorShown() {
  shownFloor_ = mapView_->currentMap();
  panels_.floors->setCurrent(mapView_->currentMap());
  display_.arrange();
  arrangePanels();
}

}  // namespace orivanta::viewer
