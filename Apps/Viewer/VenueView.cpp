#include "Apps/Viewer/VenueView.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <ctime>
#include <utility>

#include "Platform/Foundation/Languages.hpp"
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

guidance::LocalTime systemTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min};
}

std::shared_ptr<Map> floorOf(const Location& place, const std::shared_ptr<Map>& preferred) {
  const auto floors = floorsOf(place);
  if (floors.empty() || std::find(floors.begin(), floors.end(), preferred) != floors.end())
    return preferred;
  return floors.front();
}

}  // namespace

std::shared_ptr<VenueView> VenueView::make(std::shared_ptr<Venue> venue, GuidanceOptions options) {
  std::shared_ptr<VenueView> made(new VenueView(std::move(venue), std::move(options)));
  made->mapView_->delegate = std::weak_ptr<MapViewDelegate>(made);
  made->connect();
  return made;
}

VenueView::VenueView(std::shared_ptr<Venue> venue, GuidanceOptions options)
    : venue_(std::move(venue)),
      mapView_(MapView::make()),
      labels_(std::make_unique<LabelLayer>(mapView_, 1.0)),
      clock_(options.clock ? std::move(options.clock) : systemTime),
      guide_(venue_,
             options.language.empty()
                 ? fmt::format("{}", fmt::join(foundation::preferredLanguages(), ", "))
                 : options.language,
             [this](GuidedPlan plan) { showPlan(std::move(plan)); }),
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
  guide_.prepare();
}

void VenueView::connect() {
  floors_->chosen = [this](const auto& floor) { showFloor(floor); };
  search_->layoutChanged = [this] { arrangePanels(); };
  search_->chosen = [this](const auto& place) {
    const auto start = std::exchange(searchesForStart_, std::nullopt);
    if (!start) return select(place);
    if (*start && nearest_) return beginRouteToNearest(place, nearest_);
    beginRoute(*start ? place : from_, *start ? to_ : place);
  };
  search_->nearestChosen = [this](const auto& category) {
    searchesForStart_.reset();
    beginRouteToNearest(from_ ? from_ : selected_, category);
  };
  card_->closed = [this] { select(nullptr); };
  card_->stopAdded = [this] { addStop(selected_); };
  card_->nearestChosen = [this](std::size_t index) {
    beginRouteToNearest(selected_, offered_[index]);
  };
  card_->fromHere = [this] {
    if (nearest_) return beginRouteToNearest(selected_, nearest_);
    beginRoute(selected_, to_ == selected_ ? nullptr : to_);
  };
  card_->toHere = [this] { beginRoute(from_ == selected_ ? nullptr : from_, selected_); };
  routePanel_->closed = [this] { clearRoute(); };
  routePanel_->swapped = [this] {
    std::reverse(between_.begin(), between_.end());
    beginRoute(nearest_ && route() ? route()->to() : to_, from_);
  };
  routePanel_->fromTapped = [this] { lookFor(true); };
  routePanel_->toTapped = [this] { lookFor(false); };
  routePanel_->profileChosen = [this](std::size_t index) {
    profile_ = index;
    planRoute();
  };
  routePanel_->stopRemoved = [this](std::size_t index) {
    between_.erase(between_.begin() + static_cast<std::ptrdiff_t>(index));
    planRoute();
  };
  routePanel_->routeChosen = [this](std::size_t index) { showRoute(index); };
  routePanel_->stepChosen = [this](std::size_t index) { showStep(index); };
  attribution_->action = [this] { toggleAttribution(); };
  help_->closed = [this] { toggleHelp(); };
}

// --- Places

void VenueView::select(const std::shared_ptr<Location>& place) {
  selected_ = place;
  highlight(place);
  if (place) {
    card_->show(*place);
    offerRoutes(place);
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
  std::vector<std::shared_ptr<Location>> marked = markedClosed_;
  labels_->setMarked(marked);
  if (!place || route() || !mapView_->currentMap()) return;
  if (!isOnFloor(*place, *mapView_->currentMap())) return;
  auto style = labelStyle();
  style.bold = true;
  mark_ = makePinMarker(markColors::place, pinHeight, place->name.value_or(""), style, scale_);
  mark_->setPosition(mapView_->findPosition3D(*place));
  mapView_->addMarker(mark_);
  marked.push_back(place);
  labels_->setMarked(std::move(marked));
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
  else if (text == "w" || text == "W")
    toggleWalk();
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
  } else if (walker_) {
    stopWalk();
  } else if (hasStops()) {
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
  return hasNamesToDraw_ || (walker_ && !walker_->isDone()) || awaitedFloor_ ||
         (!isHidden() && mapView_->isAnimating());
}

void VenueView::advance(double time) {
  if (walker_) walk(time);
  camera().advance(time);
  if (!isLoaded_) return;
  if (routeOverlay_) routeOverlay_->arrange();
  hasNamesToDraw_ = labels_->arrange();
  lastPose_ = camera().pose();
}

}  // namespace orivanta::viewer
