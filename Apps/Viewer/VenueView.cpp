#include "Apps/Viewer/VenueView.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Command/Places.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double startTilt = 0.6;    // radians
constexpr double uprightTilt = 0.3;  // in a view that is higher than wide
constexpr double pinHeight = 32;     // points
constexpr graphics::Color pinColor{0.80F, 0.47F, 0.02F};
constexpr int floorSteps = 4;  // of a floor's load, beside its files

graphics::Point flat(const graphics::Vector3& point) { return {point.x, point.y}; }

std::shared_ptr<Map> floorOf(const Location& place, const std::shared_ptr<Map>& preferred) {
  const auto floors = command::floorsOf(place);
  if (floors.empty() || std::find(floors.begin(), floors.end(), preferred) != floors.end())
    return preferred;
  return floors.front();
}

// Done, of all that is to be done for the floors.
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

std::shared_ptr<VenueView> VenueView::make(std::shared_ptr<Venue> venue) {
  std::shared_ptr<VenueView> made(new VenueView(std::move(venue)));
  made->mapView_->delegate = std::weak_ptr<MapViewDelegate>(made);
  made->connect();
  return made;
}

VenueView::VenueView(std::shared_ptr<Venue> venue)
    : venue_(std::move(venue)),
      mapView_(MapView::make()),
      camera_(std::make_unique<CameraControl>(mapView_)),
      labels_(std::make_unique<LabelLayer>(mapView_, 1.0)),
      planner_(venue_),
      search_(std::make_shared<SearchPanel>(*venue_)),
      card_(std::make_shared<PlaceCard>()),
      routePanel_(std::make_shared<RoutePanel>()),
      floors_(std::make_shared<FloorSwitch>(*venue_->maps)),
      help_(std::make_shared<KeyHelp>()),
      mapButtons_(std::make_shared<Panel>()),
      backPanel_(std::make_shared<Panel>()) {
  mapView_->venue = venue_;
  mapView_->allowsSimultaneousGestures = true;
  mapView_->sceneView->setBackgroundColor(theme::backdrop);
  addMapButtons();
  addWayBack();
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           mapView_, mapButtons_, backPanel_, floors_, card_, routePanel_, search_, help_})
    addSubview(part);
  help_->setHidden(true);
}

void VenueView::connect() {
  floors_->chosen = [this](const auto& floor) { showFloor(floor); };
  search_->layoutChanged = [this] { arrangePanels(); };
  search_->chosen = [this](const auto& place) {
    const auto start = std::exchange(searchesForStart_, std::nullopt);
    if (!start) return select(place);
    beginRoute(*start ? place : from_, *start ? to_ : place);
  };
  card_->closed = [this] { select(nullptr); };
  card_->fromHere = [this] { beginRoute(selected_, to_ == selected_ ? nullptr : to_); };
  card_->toHere = [this] { beginRoute(from_ == selected_ ? nullptr : from_, selected_); };
  routePanel_->closed = [this] { clearRoute(); };
  routePanel_->swapped = [this] { beginRoute(to_, from_); };
  routePanel_->fromTapped = [this] { lookFor(true); };
  routePanel_->toTapped = [this] { lookFor(false); };
  routePanel_->accessibleChanged = [this](bool accessible) {
    accessible_ = accessible;
    planRoute();
  };
  routePanel_->stepChosen = [this](const RouteStep& step) { showStep(step); };
  help_->closed = [this] { toggleHelp(); };
}

// --- Floors
// ---------------------------------------------------------------------------------------

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

// Of the floor that is awaited, if it will not come.
void VenueView::tellFailure(const FloorProgress& floor) {
  if (floor.state != FloorState::failed && floor.state != FloorState::withoutModel) return;
  await(nullptr);
  if (!failed) return;
  if (floor.state == FloorState::failed)
    failed({fmt::format("{} cannot be loaded", floor.map->name), floor.problem + "."}, floor.map);
  else
    failed({fmt::format("{} has no 3D model", floor.map->name),
            "The venue's records name none for this floor."},
           floor.map);
}

// At what is wanted, once its floor is there.
void VenueView::lookAgain() {
  if (selected_)
    camera_->frame({flat(mapView_->findPosition3D(*selected_))});
  else if (routeOnMap_)
    frameRoute();
}

void VenueView::floorsEnded(const std::vector<FloorProgress>& floors) {
  if (isLoaded_) return remarkOmissions(floors);
  if (!failed) return;
  const auto broken = std::find_if(floors.begin(), floors.end(), [](const FloorProgress& floor) {
    return floor.state == FloorState::failed;
  });
  if (broken == floors.end())
    failed({"Nothing to see here yet",
            fmt::format("No floor of {} has a 3D model.", venue_->name.value_or("this venue"))},
           nullptr);
  else
    failed({"The floors cannot be loaded", broken->problem + "."}, nullptr);
}

void VenueView::remarkOmissions(const std::vector<FloorProgress>& floors) {
  std::vector<std::string> names;
  for (const FloorProgress& floor : floors)
    if (floor.state == FloorState::ready && !floor.problem.empty())
      names.push_back(floor.map->name.empty() ? command::floorLabel(*floor.map) : floor.map->name);
  if (names.empty() || !remarked) return;
  const auto remark = std::exchange(remarked, nullptr);  // once, whatever is tried again
  remark(names.size() == 1
             ? fmt::format("{} is shown without some of its textures.", names.front())
             : fmt::format("{} floors are shown without some of their textures.", names.size()));
}

void VenueView::mapViewDidLoad() {
  if (isLoaded_) return resumeMap();
  isLoaded_ = true;
  CameraPose pose = camera_->pose();
  pose.tilt = bounds().size.width < bounds().size.height ? uprightTilt : startTilt;
  camera_->setPose(pose);
  arrangePanels();
  camera_->fit(/*gliding=*/false);
  floorShown();
  if (awaitedFloor_) showFloor(awaitedFloor_);
  if (loaded) loaded();
}

// A retry has started the scene anew: the map stays where it was, unless it was left for the floor
// that has come.
void VenueView::resumeMap() {
  if (mapView_->currentMap() != awaitedFloor_ && shownFloor_->mapObject)
    mapView_->changeMap(shownFloor_);
  for (int i = 0; i < 2; ++i) camera_->setPose(labelledPose_);  // its limits go by its tilt
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
  camera_->setPose(camera_->pose());
  floorShown();
}

void VenueView::floorShown() {
  shownFloor_ = mapView_->currentMap();
  floors_->setCurrent(mapView_->currentMap());
  labels_->reload(scale_);
  if (routeOnMap_) routeOnMap_->show(*mapView_, scale_);
  mark(selected_);
  labelsAreOld_ = true;
}

// --- Places
// ---------------------------------------------------------------------------------------

void VenueView::select(const std::shared_ptr<Location>& place) {
  selected_ = place;
  highlight(place);
  if (place) {
    card_->show(*place);
    fetchPicture(place);
    showFloor(floorOf(*place, mapView_->currentMap()));
  }
  mark(place);
  arrangePanels();
  if (place && camera_->isReady()) camera_->frame({flat(mapView_->findPosition3D(*place))});
}

void VenueView::highlight(const std::shared_ptr<Location>& place) {
  mapView_->clearHighlightedPolygons();
  if (!place) return;
  for (const auto& polygon : place->polygons) mapView_->highlightPolygon(polygon, theme::amber);
}

// A pin with the name, where the place is on the floor that is shown.
void VenueView::mark(const std::shared_ptr<Location>& place) {
  mapView_->removeMarker(std::exchange(mark_, nullptr));
  labels_->setMarked(nullptr);
  labelsAreOld_ = true;
  if (!place || route_ || !mapView_->currentMap()) return;
  const auto floors = command::floorsOf(*place);
  if (std::find(floors.begin(), floors.end(), mapView_->currentMap()) == floors.end()) return;
  auto style = labelStyle();
  style.bold = true;
  mark_ = makePinMarker(pinColor, pinHeight, place->name.value_or(""), style, scale_);
  mark_->setPosition(mapView_->findPosition3D(*place));
  mapView_->addMarker(mark_);
  labels_->setMarked(place);
}

void VenueView::fetchPicture(const std::shared_ptr<Location>& place) {
  pictureFetch_.start(*place, venue_->slug.value_or(""), mapView_->downloader,
                      [this, place](const auto& picture, PictureMode mode) {
                        if (selected_ != place) return;
                        card_->setPicture(picture, mode);
                        arrangePanels();
                      });
}

void VenueView::polygonSelected(const std::shared_ptr<Polygon>& polygon) {
  const auto place = polygon->locations.front().lock();
  labelsAreOld_ = true;
  if (search_->isOpen()) search_->close();
  if (place && !fillsEnd(place)) select(place);
}

void VenueView::nothingSelected() {
  labelsAreOld_ = true;
  if (search_->isOpen())
    search_->close();
  else if (selected_)
    select(nullptr);
}

// --- Routes
// ---------------------------------------------------------------------------------------

// Whether a place that was tapped is the end that the route lacks.
bool VenueView::fillsEnd(const std::shared_ptr<Location>& place) {
  if ((from_ == nullptr) == (to_ == nullptr)) return false;
  beginRoute(from_ ? from_ : place, to_ ? to_ : place);
  return true;
}

void VenueView::beginRoute(std::shared_ptr<Location> from, std::shared_ptr<Location> to) {
  from_ = std::move(from);
  to_ = std::move(to);
  select(nullptr);
  planRoute();
}

void VenueView::planRoute() {
  route_.reset();
  if (routeOnMap_) std::exchange(routeOnMap_, nullptr)->hide(*mapView_);
  floors_->setRoute({});
  labelsAreOld_ = true;
  routePanel_->setAccessible(accessible_);
  routePanel_->setEnds(from_.get(), to_.get());
  if (from_ && to_) {
    route_ = planner_.plan(from_, to_, accessible_);
    routePanel_->setRoute(route_);
  }
  arrangePanels();
  if (!route_) return;
  floors_->setRoute(route_->floors);
  routeOnMap_ = std::make_unique<command::RouteOnMap>(route_->path, from_, to_);
  showFloor(route_->path.front()->map);
  routeOnMap_->show(*mapView_, scale_);
  frameRoute();
}

void VenueView::frameRoute() {
  std::vector<graphics::Point> points;
  for (const auto& point : routeOnMap_->pointsOn(*mapView_->currentMap()))
    points.push_back(flat(point));
  camera_->frame(points);
}

void VenueView::showStep(const RouteStep& step) {
  showFloor(step.node->map);
  camera_->frame({{step.node->x, step.node->y}});
}

void VenueView::clearRoute() {
  from_ = nullptr;
  to_ = nullptr;
  planRoute();
}

void VenueView::lookFor(bool start) {
  searchesForStart_ = start;
  search_->open(start ? "Where do you begin?" : "Where do you want to go?");
}

// --- Keys
// -----------------------------------------------------------------------------------------

bool VenueView::handleText(std::string_view text) {
  if (search_->isOpen()) {
    search_->field().insert(text);
    return true;
  }
  const graphics::Size size = bounds().size;
  const graphics::Point middle{size.width / 2, size.height / 2};
  if (text == "+" || text == "=")
    camera_->glideZoom(1.4, middle);
  else if (text == "-" || text == "_")
    camera_->glideZoom(1 / 1.4, middle);
  else if (text == "f" || text == "F")
    camera_->fit();
  else if (text == "?")
    toggleHelp();
  else if (text == "/")
    search_->open();
  else
    return false;
  return true;
}

bool VenueView::handleKey(const KeyPress& press) {
  if (press.key == Key::escape) return escape();
  if (press.key == Key::search) {
    search_->open();
    return true;
  }
  if (search_->isOpen() && handleKeyInSearch(press)) return true;
  switch (press.key) {
    case Key::pageUp:
    case Key::pageDown:
      showFloor(floors_->neighbour(press.key == Key::pageUp ? 1 : -1));
      return true;
    case Key::home:
      camera_->fit();
      return true;
    default:
      return moveCamera(press);
  }
}

bool VenueView::handleKeyInSearch(const KeyPress& press) {
  switch (press.key) {
    case Key::up:
    case Key::down:
      search_->moveMark(press.key == Key::down ? 1 : -1);
      return true;
    case Key::enter:
      search_->chooseMarked();
      return true;
    case Key::backspace:
      search_->field().eraseBack(press.control);
      return true;
    case Key::erase:
      search_->field().eraseForward();
      return true;
    case Key::left:
    case Key::right:
      search_->field().moveCaret(press.key == Key::left ? CaretStep::left : CaretStep::right);
      return true;
    case Key::home:
    case Key::end:
      search_->field().moveCaret(press.key == Key::home ? CaretStep::start : CaretStep::end);
      return true;
    default:
      return false;
  }
}

bool VenueView::moveCamera(const KeyPress& press) {
  constexpr double step = 110;   // points
  constexpr double angle = 0.2;  // radians
  const auto sign = [&](Key positive, Key negative) {
    return press.key == positive ? 1.0 : press.key == negative ? -1.0 : 0.0;
  };
  const double right = sign(Key::right, Key::left);
  const double up = sign(Key::up, Key::down);
  if (right == 0 && up == 0) return false;
  if (press.shift)
    camera_->glideTilt(up * angle, right * angle);
  else
    camera_->glidePan(right * step, up * step);
  return true;
}

// Closes what was opened last.
bool VenueView::escape() {
  if (!help_->isHidden()) {
    toggleHelp();
  } else if (search_->isOpen()) {
    searchesForStart_.reset();
    search_->close();
  } else if (selected_) {
    select(nullptr);
  } else if (from_ || to_) {
    clearRoute();
  } else {
    return false;
  }
  return true;
}

void VenueView::toggleHelp() {
  help_->setHidden(!help_->isHidden());
  arrangePanels();
}

// --- Time
// -----------------------------------------------------------------------------------------

bool VenueView::isMoving() const {
  if (!isLoaded_) return false;
  if (camera_->isGliding() || labelsAreOld_ || awaitedFloor_) return true;
  const auto floor = mapView_->currentMap();  // arrows move along a route that it is part of
  return route_ && !isHidden() &&
         std::find(route_->floors.begin(), route_->floors.end(), floor) != route_->floors.end();
}

void VenueView::advance(double time) {
  camera_->advance(time);
  if (!isLoaded_) return;
  const CameraPose pose = camera_->pose();
  if (!labelsAreOld_ && pose == labelledPose_) return;
  labelsAreOld_ = labels_->arrange();
  labelledPose_ = pose;
}

}  // namespace orivanta::viewer
