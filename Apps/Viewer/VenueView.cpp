#include "Apps/Viewer/VenueView.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Source/Attribution.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/Display/MarkColors.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double pinHeight = 32;  // points

std::shared_ptr<Map> floorOf(const Location& place, const std::shared_ptr<Map>& preferred) {
  const auto floors = floorsOf(place);
  if (floors.empty() || std::find(floors.begin(), floors.end(), preferred) != floors.end())
    return preferred;
  return floors.front();
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
      labels_(std::make_unique<LabelLayer>(mapView_, 1.0)),
      planner_(venue_),
      search_(std::make_shared<SearchPanel>(*venue_)),
      card_(std::make_shared<PlaceCard>()),
      routePanel_(std::make_shared<RoutePanel>()),
      floors_(std::make_shared<FloorSwitch>(*venue_->maps)),
      attribution_(std::make_shared<AttributionLine>(attributionText(*venue_))),
      help_(std::make_shared<KeyHelp>()),
      mapButtons_(std::make_shared<Panel>()),
      backPanel_(std::make_shared<Panel>()) {
  mapView_->venue = venue_;
  mapView_->allowsSimultaneousGestures = true;
  mapView_->sceneView->setBackgroundColor(theme::backdrop);
  addMapButtons();
  addWayBack();
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           mapView_, attribution_, mapButtons_, backPanel_, floors_, card_, routePanel_, search_,
           help_})
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
  attribution_->action = [this] { toggleAttribution(); };
  help_->closed = [this] { toggleHelp(); };
}

// --- Places

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
  if (place && camera().isReady())
    camera().frame({mapView_->findPosition3D(*place)}, aroundPlace, CameraMotion::glide);
}

void VenueView::highlight(const std::shared_ptr<Location>& place) {
  mapView_->clearHighlightedPolygons();
  if (!place) return;
  for (const auto& polygon : place->polygons) mapView_->highlightPolygon(polygon, theme::amber);
}

// Shows a pin with the name on the place, if the place is on the current floor.
void VenueView::mark(const std::shared_ptr<Location>& place) {
  mapView_->removeMarker(std::exchange(mark_, nullptr));
  labels_->setMarked({});
  if (!place || route_ || !mapView_->currentMap()) return;
  if (!isOnFloor(*place, *mapView_->currentMap())) return;
  auto style = labelStyle();
  style.bold = true;
  mark_ = makePinMarker(markColors::place, pinHeight, place->name.value_or(""), style, scale_);
  mark_->setPosition(mapView_->findPosition3D(*place));
  mapView_->addMarker(mark_);
  labels_->setMarked({place});
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
  if (search_->isOpen()) search_->close();
  if (place && !fillsEnd(place)) select(place);
}

void VenueView::nothingSelected() {
  if (search_->isOpen())
    search_->close();
  else if (selected_)
    select(nullptr);
}

// --- Routes

// Uses the tapped place as the missing end of the route. Returns false if no end is missing.
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
  routeOverlay_.reset();
  floors_->setRoute({});
  routePanel_->setAccessible(accessible_);
  routePanel_->setEnds(from_.get(), to_.get());
  if (from_ && to_) {
    route_ = planner_.plan(from_, to_, accessible_);
    routePanel_->setRoute(route_);
  }
  arrangePanels();
  if (!route_) return;
  floors_->setRoute(route_->floors);
  routeOverlay_ = std::make_unique<RouteOverlay>(mapView_, route_->path, from_, to_);
  wantedNode_ = route_->path.front();
  showFloor(wantedNode_->map);
  routeOverlay_->show(scale_);
  frameRoute();
}

// Frames the wanted part of the route, or else the first part on the current floor.
void VenueView::frameRoute() {
  const FloorVisit* visit = routeOverlay_->visitWith(*wantedNode_);
  if (visit == nullptr || visit->floor != mapView_->currentMap())
    visit = routeOverlay_->firstVisitTo(*mapView_->currentMap());
  if (visit != nullptr)
    camera().frame(routeOverlay_->pointsOf(*visit), aroundRoute(*venue_), CameraMotion::glide);
}

// Shows the departure from close by. For other steps, frames the part that leads to them.
void VenueView::showStep(const RouteStep& step) {
  wantedNode_ = step.node;
  showFloor(step.node->map);
  if (mapView_->currentMap() != step.node->map) return;  // not loaded yet
  if (step.kind == StepKind::departure || routeOverlay_->visitWith(*step.node) == nullptr)
    camera().frame({scenePosition(*step.node)}, aroundPlace, CameraMotion::glide);
  else
    frameRoute();
}

void VenueView::clearRoute() {
  from_ = nullptr;
  to_ = nullptr;
  planRoute();
}

void VenueView::lookFor(bool start) {
  searchesForStart_ = start;
  search_->open(start ? "Where do you start?" : "Where do you want to go?");
}

// --- Keys

bool VenueView::handleText(std::string_view text) {
  if (search_->isOpen()) {
    search_->field().insert(text);
    return true;
  }
  const graphics::Size size = bounds().size;
  const graphics::Point middle{size.width / 2, size.height / 2};
  if (text == "+" || text == "=")
    camera().zoomBy(1.4, middle, CameraMotion::glide);
  else if (text == "-" || text == "_")
    camera().zoomBy(1 / 1.4, middle, CameraMotion::glide);
  else if (text == "f" || text == "F")
    camera().fit(CameraMotion::glide);
  else if (text == "i" || text == "I")
    toggleAttribution();
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
      showFloor(floors_->neighbor(press.key == Key::pageUp ? 1 : -1));
      return true;
    case Key::home:
      camera().fit(CameraMotion::glide);
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
  if (!press.shift) {
    camera().panBy(right * step, up * step, CameraMotion::glide);
  } else if (up != 0) {
    camera().tiltBy(up * angle, CameraMotion::glide);
  } else {
    camera().rotateBy(right * angle, CameraMotion::glide);
  }
  return true;
}

// Closes what was opened last.
bool VenueView::escape() {
  if (!help_->isHidden()) {
    toggleHelp();
  } else if (attribution_->isOpen()) {
    toggleAttribution();
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

void VenueView::toggleAttribution() {
  attribution_->setOpen(!attribution_->isOpen());
  arrangePanels();
}

void VenueView::toggleHelp() {
  help_->setHidden(!help_->isHidden());
  arrangePanels();
}

// --- Time

bool VenueView::isMoving() const {
  if (!isLoaded_) return false;
  return hasNamesToDraw_ || awaitedFloor_ || (!isHidden() && mapView_->isAnimating());
}

void VenueView::advance(double time) {
  camera().advance(time);
  if (!isLoaded_) return;
  if (routeOverlay_) routeOverlay_->arrange();
  hasNamesToDraw_ = labels_->arrange();
  lastPose_ = camera().pose();
}

}  // namespace orivanta::viewer
