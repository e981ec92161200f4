// How the viewer shows stored venues while there is no connection, and returns to fresh ones.
#include <algorithm>
#include <chrono>
#include <utility>

#include "Apps/Viewer/CarriedState.hpp"
#include "Apps/Viewer/StoredTime.hpp"
#include "Apps/Viewer/Viewer.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"
#include "Source/VenueComparison.hpp"

namespace orivanta::viewer {

namespace {

// Objects may be called by what they own, so they are destroyed after the current call.
template <class Object>
void destroyLater(std::shared_ptr<Object> object) {
  foundation::mainQueue::async([object = std::move(object)] {});
}

bool isFloorMissing(const Venue& venue) {
  return std::any_of(venue.maps->begin(), venue.maps->end(), [](const auto& map) {
    return !map->mapObject && !map->_data["scene"]["obj"].stringValue().empty();
  });
}

}  // namespace

Problem Viewer::nothingStored() const {
  return {texts_.text("interface.problem.stored"), texts_.text("interface.problem.stored.detail")};
}

// --- Waiting for the server

// Calls `stored` if nothing arrives for a few seconds. The request goes on meanwhile.
void Viewer::waitFor(std::function<void()> stored) {
  endWait();
  if (settings_.store) whenSlow_ = std::move(stored);
}

void Viewer::endWait() {
  whenSlow_ = nullptr;
  slowTime_.reset();
}

// --- Stored venues

void Viewer::listStored(const Problem& problem, bool stillWaits) {
  source_.loadStoredVenues([this, problem, stillWaits](const StoredListReport& report) {
    if (stillWaits && !slowTime_) return;  // the server has answered
    const auto retry = [this] { listVenues(); };
    if (!report.venues.empty()) venueList_->show(report.venues);
    if (slug_) return openStored(*slug_, problem, retry, stillWaits);
    if (report.latest) return openStored(*report.latest->slug, problem, retry, stillWaits);
    if (stillWaits) return;
    showProblem(problem, retry);
    awaitServer();
  });
}

void Viewer::openStored(const std::string& slug, const Problem& problem,
                        const std::function<void()>& retry, bool stillWaits) {
  source_.loadStoredVenue(
      slug, [this, problem, retry, stillWaits](const StoredVenueReport& report) {
        if (stillWaits && !slowTime_) return;
        if (!report.venue) {
          if (stillWaits) return;
          showProblem(problem, retry, wayBack(), texts_.text("interface.venues.all"));
          return awaitServer();
        }
        source_.cancel();
        endWait();
        venue_ = report.venue;
        const auto now = localTime(std::chrono::system_clock::now());
        const std::string date = dateText(localTime(report.storedAt), now, texts_);
        loseConnection(isOffline_ ? texts_.text("interface.connection.off", {{"date", date}})
                                  : texts_.text("interface.connection.lost", {{"date", date}}));
        showFloors();
      });
}

void Viewer::loseConnection(const std::string& sentence) {
  connectionNote_->setText(sentence);
  connectionNote_->setHidden(false);
  if (isOffline_ || reconnection_) return arrange();
  connectionNote_->retried = [this] { reconnect(); };
  reconnection_ = std::make_unique<Reconnection>(
      settings_, languages_, texts_,
      Reconnection::Handlers{
          [this] { return venueView_ ? venueView_->venue()->slug : std::nullopt; },
          [this](const auto& venues, const auto& venue) { connected(venues, venue); },
          [this](const Problem& refusal) { connectionRefused(refusal); }});
  arrange();
}

const ConnectionNote* Viewer::connectionNote() const {
  return connectionNote_->isHidden() ? nullptr : connectionNote_.get();
}

// --- The way back to the server

// Repeats what has failed as soon as the server answers. The user can still do it earlier.
void Viewer::awaitServer() {
  if (isOffline_) return;
  awaited_ = std::make_unique<Reconnection>(
      settings_, languages_, texts_,
      Reconnection::Handlers{[this] { return venue_ ? venue_->slug : std::nullopt; },
                             [this](const auto&, const auto&) { message_->retried(); },
                             [this](const Problem&) { message_->retried(); }});
}

void Viewer::endAwaiting() { destroyLater(std::shared_ptr<Reconnection>(std::move(awaited_))); }

void Viewer::reconnect() {
  if (reconnection_) reconnection_->tryNow();
}

void Viewer::endReconnection() {
  destroyLater(std::shared_ptr<Reconnection>(std::move(reconnection_)));
  connectionNote_->setHidden(true);
}

void Viewer::connected(const VenueSource::Venues& venues, const std::shared_ptr<Venue>& venue) {
  const std::string sentence = connectionNote_->text();
  endReconnection();
  venueList_->show(venues);
  const bool isShown = venueView_ && venue && venueView_->venue()->slug == venue->slug;
  if (venueView_ && !isShown) {  // the user has changed the venue
    loseConnection(sentence);
    return reconnect();
  }
  arrange();
  if (isShown) takeFresh(venue);
}

// Nobody sees venues to which the account has no access.
void Viewer::connectionRefused(const Problem& problem) {
  endReconnection();
  closeVenue();
  venueList_->show({});
  venueList_->setHidden(true);
  veil_->setHidden(false);
  showProblem(problem, [this] { listVenues(); });
}

// --- Fresh venues

// Keeps the view if the server has the same records.
void Viewer::takeFresh(const std::shared_ptr<Venue>& venue) {
  const auto shown = venueView_->venue();
  foundation::SerialQueue::make()->async([this, shown, venue, life = life_.token()] {
    const bool isSame = haveSameRecords(*shown, *venue);
    foundation::mainQueue::async([this, shown, venue, life, isSame] {
      if (life.isCanceled() || !venueView_ || venueView_->venue() != shown) return;
      remark(texts_.text("interface.connection.back"));
      if (!isSame) return replaceView(venue);
      venueView_->mapView().downloader = std::make_shared<HttpDownloader>();
      fetchClosures();
      cachePictures();
      if (showsMap() && isFloorMissing(*shown))
        venueView_->load(venueView_->mapView().currentMap());
    });
  });
}

// Loads another view behind the current one, which stays until then.
void Viewer::replaceView(const std::shared_ptr<Venue>& venue) {
  dropIncoming();
  incoming_ = makeView(venue);
  incoming_->setHidden(true);
  incoming_->loaded = [this] {
    carryStops(*venueView_, *incoming_);
    isIncomingReady_ = true;
  };
  incoming_->failed = [this](const Problem&, const std::shared_ptr<Map>& floor) {
    if (!floor) dropIncoming();
  };
  arrange();
  incoming_->load(sameFloor(*venue, venueView_->mapView().currentMap()));
}

// Replaces the view when the user is not in the middle of something.
void Viewer::advanceIncoming() {
  if (!isIncomingReady_) return;
  const Walker* const walker = venueView_->walker();
  const bool isBusy =
      wantsText() || !mapFingers_.empty() || (walker != nullptr && !walker->isDone());
  if (!isBusy && !incoming_->session().isPlanning()) showIncoming();
}

void Viewer::showIncoming() {
  carryCamera(*venueView_, *incoming_);
  isIncomingReady_ = false;
  const auto former = std::exchange(venueView_, std::exchange(incoming_, nullptr));
  former->stopLoading();
  former->removeFromSuperview();
  destroyLater(former);
  venue_ = venueView_->venue();
  venueView_->loaded = nullptr;
  venueView_->failed = [this](const Problem& problem, const auto& floor) {
    floorFailed(problem, floor);
  };
  venueView_->setHidden(false);
  arrange();
  fetchClosures();
  cachePictures();
}

void Viewer::dropIncoming() {
  isIncomingReady_ = false;
  if (!incoming_) return;
  incoming_->stopLoading();
  incoming_->removeFromSuperview();
  destroyLater(std::exchange(incoming_, nullptr));
}

}  // namespace orivanta::viewer
