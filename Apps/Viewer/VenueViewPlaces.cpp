// Finds, selects and marks the places of a venue.
#include <algorithm>
#include <utility>

#include "Apps/Viewer/VenueView.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

std::shared_ptr<Map> floorOf(const Location& place, const std::shared_ptr<Map>& preferred) {
  const auto floors = floorsOf(place);
  if (floors.empty() || std::find(floors.begin(), floors.end(), preferred) != floors.end())
    return preferred;
  return floors.front();
}

}  // namespace

void VenueView::connectSearch() {
  panels_.search->layoutChanged = [this] { arrangePanels(); };
  panels_.search->chosen = [this](const auto& place, std::optional<RouteEnd> end) {
    end ? setEnd(*end, place) : select(place);
  };
  panels_.search->nearestOffered = [this] {
    return nearestChoices(*venue_, nullptr, session_.closures(), texts_);
  };
  panels_.search->nearestChosen = [this](const NearestChoice& choice) { goToNearest(choice); };
  panels_.floors->chosen = [this](const auto& floor) { showFloor(floor); };
  panels_.layoutChanged = [this] { arrangePanels(); };
  panels_.back->action = [this] { wayBack(); };
  panels_.attribution->action = [this] { toggleAttribution(); };
  panels_.help->closed = [this] { toggleHelp(); };
  hint_->action = [this] {
    if (selected_) select(selected_);
  };
  style_->tapped = [this](const MapTap& tap) { mapTapped(tap); };
}

void VenueView::connectCard() {
  // The selection ends first, because the card hides the route.
  const auto leaving = [this](auto use) {
    return [this, use] {
      const auto place = selected_;
      select(nullptr);
      use(place);
    };
  };
  panels_.card->closed = [this] { select(nullptr); };
  panels_.card->layoutChanged = [this] { arrangePanels(); };
  panels_.card->fromHere = leaving([this](const auto& place) { session_.departFrom(place); });
  panels_.card->toHere = leaving([this](const auto& place) { session_.goTo(place); });
  panels_.card->stopAdded = leaving([this](const auto& place) { session_.addStop(place); });
  panels_.card->nearestChosen = [this](std::size_t index) {
    const auto place = selected_;
    const NearestChoice choice = offered_[index];
    select(nullptr);
    session_.goToNearest(place, choice);
  };
}

// The route begins at the traveler's position, if it is known, or else at the start of the current
// route, or else at the selected place.
void VenueView::goToNearest(const NearestChoice& choice) {
  std::optional<guidance::Position> position;
  if (const Walker* walker = walk_.walker()) position = walker->position();
  const auto from = session_.hasStart() ? nullptr : selected_;
  select(nullptr);
  if (position)
    session_.goToNearest(*position, choice);
  else
    session_.goToNearest(from, choice);
}

void VenueView::setEnd(RouteEnd end, const std::shared_ptr<Location>& place) {
  select(nullptr);
  session_.setEnd(end, place);
}

void VenueView::select(const std::shared_ptr<Location>& place) {
  selected_ = place;
  style_->setSelected(place);
  if (place) {
    panels_.search->remember(place);
    cardTime_ = clock_();
    panels_.card->show(cardOf(*place));
    offerRoutes(place);
    fetchPicture(place);
    showFloor(floorOf(*place, mapView_->currentMap()));
  }
  arrangePanels();
  if (place) lookAt(*place);
}

// Frames a place if it is on the current floor. Stacked floors are first laid flat.
void VenueView::lookAt(const Location& place) {
  if (style_->isStacked()) return style_->setStacked(false);
  const auto& floor = mapView_->currentMap();
  if (camera().isReady() && floor && isOnFloor(place, *floor))
    kept_.show([this, at = mapView_->findPosition3D(place)](
                   CameraMotion motion) { camera().frame({at}, aroundPlace, motion); },
               CameraMotion::glide);
}

void VenueView::fetchPicture(const std::shared_ptr<Location>& place) {
  pictureFetch_.start(*place, venue_->slug.value_or(""), mapView_->downloader,
                      [this, place](const auto& picture, PictureMode mode) {
                        if (selected_ != place) return;
                        panels_.card->setPicture(picture, mode);
                        arrangePanels();
                      });
}

// Offers the routes from and over a place on its card.
void VenueView::offerRoutes(const std::shared_ptr<Location>& place) {
  panels_.card->update(cardOf(*place));
  panels_.card->setCanAddStop(session_.canAddStop(place));
  offered_ = nearestChoices(*venue_, place.get(), session_.closures(), texts_);
  panels_.card->setNearest(offered_);
}

// A place opens and closes while its card is shown.
void VenueView::keepCardCurrent() {
  if (!selected_ || clock_() == cardTime_) return;
  cardTime_ = clock_();
  panels_.card->update(cardOf(*selected_));
  arrangePanels();
}

CardContent VenueView::cardOf(const Location& place) const {
  return cardContent(place, {*venue_, session_.closures(), clock_(), texts_, KindWords()});
}

void VenueView::setClosures(const guidance::Closures& closures) {
  if (closures == session_.closures()) return;
  std::optional<RouteProgress> progress;
  if (const Walker* walker = walk_.walker(); walker && !walker->isDone())
    progress = {walker->position(), walker->progress().leg, walker->progress().legMeters};
  session_.setClosures(closures, progress);
  style_->setClosures(closures);
  if (selected_) offerRoutes(selected_);
  arrangePanels();
}

bool VenueView::isClosed(const Location& place) const {
  return session_.closures().contains(place.id.value_or(""));
}

// A tap on the map closes the search. Nothing is selected if the search was open or the tap hit
// nothing.
void VenueView::mapTapped(const MapTap& tap) {
  if (tap.isFloorChange) return changeFloor(tap.floor);
  if (tap.place) return placeTapped(tap.place);
  if (panels_.search->isOpen())
    panels_.search->close();
  else if (selected_)
    select(nullptr);
}

// The map shows the floor already if it is loaded. The route continues there.
void VenueView::changeFloor(const std::shared_ptr<Map>& floor) {
  if (floor == mapView_->currentMap())
    floorShown();
  else
    showFloor(floor);
  if (!selected_ && display_.isShown() && floor == mapView_->currentMap()) frameRoute();
}

void VenueView::placeTapped(const std::shared_ptr<Location>& place) {
  const auto end = panels_.search->end();
  if (panels_.search->isOpen()) panels_.search->close();
  if (end) return setEnd(*end, place);
  if (!session_.hasStops() || session_.isComplete()) return select(place);
  select(nullptr);
  session_.fillMissingEnd(place);
}

}  // namespace orivanta::viewer
