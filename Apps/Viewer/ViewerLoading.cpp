// How the viewer loads venues, and what it says if that fails.
#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Viewer.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/UI/OfflineDownloader.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr double venueShare = 0.4;  // of the bar, for the records; the rest is for the floors

}  // namespace

VenueSource::Handlers Viewer::handlers(std::function<void()> retry, Fallback fallback) {
  VenueSource::Handlers result;
  result.progressed = [this](const LoadProgress& progress) {
    if (progress.bytes > 0) endWait();
    const double share = progress.collections > 0 ? static_cast<double>(progress.collectionsDone) /
                                                        static_cast<double>(progress.collections)
                                                  : 0.0;
    const auto tenths = progress.bytes / 100'000;  // of megabytes
    veil_->setProgress(share * venueShare,
                       texts_.text("interface.loading.records",
                                   {{"done", fmt::to_string(progress.collectionsDone)},
                                    {"all", fmt::to_string(progress.collections)},
                                    {"whole", fmt::to_string(tenths / 10)},
                                    {"tenths", fmt::to_string(tenths % 10)}}));
  };
  result.failed = [this, retry = std::move(retry),
                   fallback = std::move(fallback)](const Problem& problem) {
    endWait();
    if (fallback && settings_.store && !problem.isRefused) return fallback(problem);
    showProblem(problem, retry, wayBack(), texts_.text("interface.venues.all"));
    if (!problem.isRefused) awaitServer();
  };
  return result;
}

void Viewer::showLoading(const std::string& title) {
  endAwaiting();
  venueList_->setHidden(true);
  message_->setHidden(true);
  veil_->setHidden(false);
  veil_->setBusy(true);
  veil_->setTitle(title);
  veil_->setWayBack(wayBack());
  veil_->setProgress(0, "");
  arrange();
}

void Viewer::showProblem(const Problem& problem, std::function<void()> retry,
                         std::function<void()> dismiss, const std::string& otherWay) {
  veil_->setBusy(false);
  message_->show(problem, dismiss ? otherWay : "");
  message_->retried = std::move(retry);
  message_->dismissed = std::move(dismiss);
  message_->setHidden(false);
  arrange();
}

void Viewer::listVenues() {
  showLoading(texts_.text("interface.venues.loading"));
  if (isOffline_) return listStored(nothingStored());
  source_.fetchVenues(
      handlers([this] { listVenues(); }, [this](const Problem& problem) { listStored(problem); }),
      [this](const VenueSource::Venues& venues) { choose(venues); });
  waitFor([this] { listStored({}, true); });
}

void Viewer::choose(const VenueSource::Venues& venues) {
  if (reached) reached("venues listed");
  endWait();
  veil_->setBusy(false);
  venueList_->show(venues);
  if (slug_) {
    const auto venue = std::find_if(venues.begin(), venues.end(),
                                    [&](const auto& each) { return each->slug == slug_; });
    if (venue != venues.end()) return open(*venue);
    return showProblem(
        unknownVenue(venues), [this] { listVenues(); }, [this] { showList(); },
        texts_.text("interface.venues.all"));
  }
  showList();
}

Problem Viewer::unknownVenue(const VenueSource::Venues& venues) const {
  const std::string address = texts_.name(source_.endpoint());
  const auto only = texts_.name(venues.front()->slug.value_or(""));
  return {
      texts_.text("interface.problem.unknown", {{"slug", texts_.name(*slug_)}}),
      venues.size() == 1
          ? texts_.text("interface.problem.unknown.one", {{"address", address}, {"slug", only}})
          : texts_.text("interface.problem.unknown.many", venues.size(), {{"address", address}})};
}

void Viewer::showList() {
  slug_.reset();
  endAwaiting();
  message_->setHidden(true);
  veil_->setBusy(false);
  veil_->setHidden(false);
  venueList_->setHidden(false);
  if (isDisconnected())
    connectionNote_->setText(texts_.text(isOffline_ ? "interface.connection.off.list"
                                                    : "interface.connection.lost.list"));
  arrange();
}

// Loads a copy of the list's record, so that everything is released with the map.
void Viewer::open(const std::shared_ptr<Venue>& venue) {
  venue_ = Venue::make(venue->_data);
  showLoading(venue_->name.value_or(""));
  const std::string slug = venue->slug.value_or("");
  const auto retry = [this, venue] { open(venue); };
  if (isDisconnected()) return openStored(slug, nothingStored(), retry);
  const auto fallback = [this, slug, retry](const Problem& problem) {
    openStored(slug, problem, retry);
  };
  waitFor([this, slug, retry] { openStored(slug, {}, retry, true); });
  source_.loadVenue(venue_, handlers(retry, fallback),
                    [this](const std::vector<LoadFailure>& missing) {
                      endWait();
                      showFloors();
                      if (!missing.empty()) remark(texts_.text("interface.note.categories"));
                    });
}

bool Viewer::canGoBack() const { return venue_ != nullptr && (!slug_ || venueList_->size() > 1); }

std::function<void()> Viewer::wayBack() {
  if (!canGoBack()) return nullptr;
  return [this] { goBack(); };
}

void Viewer::goBack() {
  if (!canGoBack()) return;
  closeVenue();
  showList();
}

void Viewer::closeVenue() {
  source_.cancel();
  endWait();
  dropIncoming();
  pictures_.cancel();
  if (venueView_) {
    venueView_->stopLoading();
    venueView_->removeFromSuperview();
    // The view must outlive this call, because one of its buttons may have made it.
    foundation::mainQueue::async([left = std::move(venueView_)] {});
    venueView_ = nullptr;
  }
  venue_ = nullptr;
  hideNote();
  mapFingers_.clear();
}

void Viewer::showFloors() {
  if (reached) reached("venue loaded");
  venueView_ = makeView(venue_);
  venueView_->progressed = [this](double share, const std::string& text) {
    veil_->setProgress(venueShare + (1 - venueShare) * share, text);
  };
  venueView_->loaded = [this] {
    if (reached) reached("first floor ready");
    veil_->setHidden(true);
    arrange();
    cachePictures();
  };
  venueView_->failed = [this](const Problem& problem, const auto& floor) {
    floorFailed(problem, floor);
  };
  fetchClosures();
  arrange();
  venueView_->load();
}

// Makes a view above the others.
std::shared_ptr<VenueView> Viewer::makeView(const std::shared_ptr<Venue>& venue) {
  auto made = VenueView::make(venue, texts_, {clock_, walksAtOnce_, theme_, reducesMotion_});
  if (isDisconnected()) made->mapView().downloader = std::make_shared<OfflineDownloader>();
  made->wayBack = wayBack();
  made->remarked = [this](const std::string& sentence) { remark(sentence); };
  made->closuresWanted = [this] { fetchClosures(); };
  made->panels().mapButtons->tapped = [this, view = made.get()](std::string_view key) {
    if (!changeLook(key)) view->carryOut(key);
  };
  root_->addSubview(made);
  raisePanels();
  return made;
}

// Only a venue that is stored needs all of its pictures.
void Viewer::cachePictures() {
  pictures_.cancel();
  pictures_ = {};
  if (settings_.store && !isDisconnected())
    PictureFetch::cacheAll(*venue_, venueView_->mapView().downloader, pictures_.token());
}

void Viewer::fetchClosures() {
  closuresEnd_.reset();
  source_.fetchClosures(venue_->slug.value_or(""), [this](const guidance::Closures& closures) {
    if (venueView_) venueView_->setClosures(closures);
  });
}

void Viewer::raisePanels() {
  for (const view::View* above :
       {static_cast<view::View*>(veil_.get()), static_cast<view::View*>(venueList_.get()),
        static_cast<view::View*>(message_.get()), static_cast<view::View*>(connectionNote_.get()),
        static_cast<view::View*>(note_.get())})
    root_->bringSubviewToFront(*above);
}

void Viewer::floorFailed(const Problem& problem, const std::shared_ptr<Map>& floor) {
  const auto backToTheMap = [this] { message_->setHidden(true); };
  const auto retryFloor = [this, floor] {
    message_->setHidden(true);
    venueView_->retry(floor);
  };
  const auto retryAll = [this] {
    showLoading(venueView_->venue()->name.value_or(""));
    venueView_->load();
  };
  if (floor)
    showProblem(problem, retryFloor, backToTheMap, texts_.text("interface.map.back"));
  else
    showProblem(problem, retryAll, wayBack(), texts_.text("interface.venues.all"));
}

}  // namespace orivanta::viewer
