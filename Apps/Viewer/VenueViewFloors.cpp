// Shows the floors of a venue as they are loaded, and reports failures.
#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Viewer/VenueView.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double startTilt = 0.6;    // radians
constexpr double uprightTilt = 0.3;  // in a view that is higher than wide
constexpr int floorSteps = 4;        // steps of loading a floor, besides its files

// Returns the completed share of loading the floors, from 0 to 1.
double shareOf(const std::vector<FloorProgress>& floors) {
  double done = 0;
  double all = 0;
  for (const FloorProgress& floor : floors) {
    if (floor.state == FloorState::withoutModel) continue;
    const double files = static_cast<double>(floor.fileCount);
    all += files + floorSteps;
    done += static_cast<double>(floor.filesDone);
    if (floor.state == FloorState::reading) done += 1;
    if (floor.state == FloorState::ready || floor.state == FloorState::failed)
      done = done - static_cast<double>(floor.filesDone) + files + floorSteps;
  }
  return all > 0 ? done / all : 0;
}

std::string progressText(const std::vector<FloorProgress>& floors) {
  std::size_t files = 0;
  std::size_t filesDone = 0;
  std::size_t ready = 0;
  for (const FloorProgress& floor : floors) {
    files += floor.fileCount;
    filesDone += floor.filesDone;
    if (floor.state == FloorState::ready) ++ready;
  }
  return fmt::format("{} of {} files, {} of {} floors", filesDone, files, ready, floors.size());
}

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
  floorLoad_ = mapView_->loadFloors(std::move(handlers), first);
}

void VenueView::retry(const std::shared_ptr<Map>& floor) {
  await(floor);
  load(floor);
  highlight(selected_);
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
  floors_->setState(*floor.map, isThere ? FloorState::ready : floor.state);
  if (!isLoaded_ && progressed && floorLoad_) {
    const auto all = floorLoad_->floors();
    progressed(shareOf(all), progressText(all));
  }
  if (floor.state == FloorState::ready) highlight(selected_);
  if (!isLoaded_ || floor.map != awaitedFloor_) return;
  if (isThere) {
    showFloor(floor.map);
    lookAgain();
  } else {
    tellFailure(floor);
  }
}

void VenueView::await(const std::shared_ptr<Map>& floor) {
  awaitedFloor_ = floor;
  floors_->setAwaited(floor);
}

// Reports a failure of the awaited floor.
void VenueView::tellFailure(const FloorProgress& floor) {
  if (floor.state != FloorState::failed && floor.state != FloorState::withoutModel) return;
  await(nullptr);
  if (!failed) return;
  if (floor.state == FloorState::failed)
    failed({fmt::format("{} cannot be loaded", floor.map->name), floor.problem + "."}, floor.map);
  else
    failed({fmt::format("{} has no 3D model", floor.map->name),
            "The venue's data contains no model for this floor."},
           floor.map);
}

// Frames the selected place or the route, when its floor is shown.
void VenueView::lookAgain() {
  if (selected_)
    camera().frame({mapView_->findPosition3D(*selected_)}, aroundPlace, CameraMotion::glide);
  else if (routeOverlay_)
    frameRoute();
}

void VenueView::floorsEnded(const std::vector<FloorProgress>& floors) {
  if (isLoaded_) return remarkOmissions(floors);
  if (!failed) return;
  const auto broken = std::find_if(floors.begin(), floors.end(), [](const FloorProgress& floor) {
    return floor.state == FloorState::failed;
  });
  if (broken == floors.end())
    failed({"No floors to show",
            fmt::format("No floor of {} has a 3D model.", venue_->name.value_or("this venue"))},
           nullptr);
  else
    failed({"The floors cannot be loaded", broken->problem + "."}, nullptr);
}

void VenueView::remarkOmissions(const std::vector<FloorProgress>& floors) {
  std::vector<std::string> names;
  for (const FloorProgress& floor : floors)
    if (floor.state == FloorState::ready && !floor.problem.empty())
      names.push_back(floorName(*floor.map));
  const bool isEarlier = std::any_of(floors.begin(), floors.end(),
                                     [](const auto& floor) { return floor.earlierFiles > 0; });
  if ((names.empty() && !isEarlier) || !remarked) return;
  const auto remark = std::exchange(remarked, nullptr);  // only once, even after retries
  if (names.empty())
    return remark("Some files are cached copies because the server could not provide them.");
  remark(names.size() == 1
             ? fmt::format("{} is shown without some of its textures.", names.front())
             : fmt::format("{} floors are shown without some of their textures.", names.size()));
}

void VenueView::mapViewDidLoad() {
  if (isLoaded_) return resumeMap();
  isLoaded_ = true;
  const graphics::Size size = bounds().size;
  camera().tiltTo(size.width < size.height ? uprightTilt : startTilt);
  arrangePanels();
  camera().fit();
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

void VenueView::showFloor(const std::shared_ptr<Map>& floor) {
  if (!floor) return;
  await(isLoaded_ && floor->mapObject ? nullptr : floor);
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
  floors_->setCurrent(mapView_->currentMap());
  labels_->setScale(scale_);
  if (routeOverlay_) routeOverlay_->arrange();
  markClosed();
  mark(selected_);
  markPosition();
}

}  // namespace orivanta::viewer
