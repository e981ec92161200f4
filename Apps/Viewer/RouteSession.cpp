#include "Apps/Viewer/RouteSession.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr int alternatives = 2;

}  // namespace

RouteSession::RouteSession(std::shared_ptr<Venue> venue, const guidance::InterfaceTexts& texts,
                           Clock clock)
    : venue_(venue),
      texts_(texts),
      clock_(std::move(clock)),
      guide_(GuideWorker(std::move(venue), texts),
             [this](GuidedPlan plan) { take(std::move(plan)); }) {
  guide_.prepare();
}

// --- Stops

void RouteSession::departFrom(const std::shared_ptr<Location>& place) {
  stops_.dropEnd(RouteEnd::destination, place);
  setEnd(RouteEnd::start, place);
}

void RouteSession::goTo(const std::shared_ptr<Location>& place) {
  stops_.dropEnd(RouteEnd::start, place);
  setEnd(RouteEnd::destination, place);
}

void RouteSession::goToNearest(const std::shared_ptr<Location>& from, NearestChoice nearest) {
  if (from) stops_.setEnd(RouteEnd::start, from);
  stops_.setNearest(std::move(nearest));
  request();
}

void RouteSession::setEnd(RouteEnd end, const std::shared_ptr<Location>& place) {
  stops_.setEnd(end, place);
  request();
}

bool RouteSession::fillMissingEnd(const std::shared_ptr<Location>& place) {
  if (!hasStops() || isComplete()) return false;
  setEnd(hasStart() ? RouteEnd::destination : RouteEnd::start, place);
  return true;
}

void RouteSession::swapEnds() {
  stops_.swapEnds(route() ? route()->to() : nullptr);
  request();
}

void RouteSession::addStop(const std::shared_ptr<Location>& place) {
  if (!canAddStop(place)) return;
  stops_.add(place);
  request();
}

void RouteSession::removeStop(std::size_t index) {
  stops_.remove(index);
  request();
}

void RouteSession::setProfile(std::size_t index) {
  profile_ = index;
  request();
}

void RouteSession::clear() {
  stops_ = {};
  request();
}

StopNames RouteSession::names() const {
  return stops_.names(*venue_, texts_, route() ? route()->to() : nullptr);
}

// --- Requests

void RouteSession::request() {
  planAgain();
  if (isComplete() && requested) requested();
}

void RouteSession::planAgain() {
  guide_.cancel();
  plan_ = {};
  chosen_ = 0;
  if (isComplete()) start(Purpose::plan, stops_);
  if (changed) changed();
}

void RouteSession::start(Purpose purpose, const RouteStops& stops) {
  purpose_ = purpose;
  guidance::Request request = makeRequest();
  request.stops = stops.list(*venue_, closures_);
  request.bestOrder = stops.between().size() > 1;
  request.alternatives = alternatives;
  guide_.start(std::move(request));
}

guidance::Request RouteSession::makeRequest() const {
  guidance::Request request;
  request.profile = profileChoices[profile_].make();
  request.closures = closures_;
  request.at = clock_();
  return request;
}

void RouteSession::setClosures(const guidance::Closures& closures,
                               const std::optional<RouteProgress>& progress) {
  closures_ = closures;
  if (!isComplete()) return;
  if (!route()) return planAgain();
  if (!progress) return start(Purpose::update, stops_);
  rest_.emplace(*route(), *progress);
  if (rest_->isEmpty()) return keepOnlyChosen();
  purpose_ = Purpose::checkRest;
  guidance::Request check = makeRequest();
  check.stops = rest_->closeStops();
  guide_.start(std::move(check));
}

void RouteSession::walkEnded() {
  const bool concernsRest = purpose_ == Purpose::checkRest || purpose_ == Purpose::replaceRest;
  if (isPlanning() && concernsRest) start(Purpose::update, stops_);
}

// Returns the stops that are left, beginning at the traveler.
RouteStops RouteSession::stopsOfRest() const {
  RouteStops stops = stops_;
  stops.beginAt(rest_->start());
  stops.setBetween(rest_->places());
  return stops;
}

// --- Answers

void RouteSession::take(GuidedPlan plan) {
  if (purpose_ == Purpose::update) return takeUpdate(std::move(plan));
  if (purpose_ == Purpose::checkRest) return takeCheck(plan);
  if (purpose_ == Purpose::replaceRest) return takeNewRest(std::move(plan));
  adopt(std::move(plan));
  if (planned) planned();
}

// Keeps the chosen route if it is in the new plan. The best route is only kept if it is still the
// best one.
void RouteSession::takeUpdate(GuidedPlan plan) {
  const RouteRest whole(*route());
  const auto same =
      std::find_if(plan.routes.begin(), plan.routes.end(), [&](const GuidedRoute& other) {
        return other.path.front() == route()->path.front() && whole.isFollowedBy(other);
      });
  if (same == plan.routes.end() || (chosen_ == 0 && same != plan.routes.begin())) {
    adopt(std::move(plan));
    if (rerouted) rerouted(whole.closedName(closures_, *venue_));
    return;
  }
  chosen_ = static_cast<std::size_t>(same - plan.routes.begin());
  plan_ = std::move(plan);
  if (confirmed) confirmed();
}

void RouteSession::takeCheck(const GuidedPlan& plan) {
  if (!plan.routes.empty() && rest_->isFollowedBy(plan.routes.front())) return keepOnlyChosen();
  start(Purpose::replaceRest, stopsOfRest());
}

void RouteSession::takeNewRest(GuidedPlan plan) {
  const auto isSame = [this](const auto& other) { return rest_->isFollowedBy(other); };
  if (std::any_of(plan.routes.begin(), plan.routes.end(), isSame)) return keepOnlyChosen();
  stops_ = stopsOfRest();
  adopt(std::move(plan));
  if (rerouted) rerouted(rest_->closedName(closures_, *venue_));
}

void RouteSession::adopt(GuidedPlan plan) {
  plan_ = std::move(plan);
  chosen_ = 0;
  if (!plan_.routes.empty()) choose(0);
}

// The other routes may be closed.
void RouteSession::keepOnlyChosen() {
  guide_.cancel();
  plan_.routes = {std::move(plan_.routes[chosen_])};
  chosen_ = 0;
  if (confirmed) confirmed();
}

void RouteSession::choose(std::size_t index) {
  chosen_ = index;
  RouteStops::Places between;
  const auto& visits = plan_.routes[index].itinerary.visits;
  for (std::size_t i = 1; i + 1 < visits.size(); ++i) between.push_back(visits[i].location);
  stops_.setBetween(std::move(between));
}

const GuidedRoute* RouteSession::route() const {
  return plan_.routes.empty() ? nullptr : &plan_.routes[chosen_];
}

std::optional<guidance::LocalTime> RouteSession::arrival() const {
  if (!route() || !route()->itinerary.hasScale || route()->steps.empty()) return std::nullopt;
  const double minutes = std::ceil(route()->itinerary.seconds() / 60);
  return clock_().plusMinutes(static_cast<long long>(minutes));
}

}  // namespace orivanta::viewer
