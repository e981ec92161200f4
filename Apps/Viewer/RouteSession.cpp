#include "Apps/Viewer/RouteSession.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr int alternatives = 2;

// Returns whether two routes lead along the same nodes and connectors.
bool isSameRoute(const GuidedRoute& route, const GuidedRoute& other) {
  const auto isSameRide = [](const guidance::Leg& left, const guidance::Leg& right) {
    return left.connector == right.connector;
  };
  const auto& legs = route.itinerary.legs;
  const auto& others = other.itinerary.legs;
  return route.path == other.path &&
         std::equal(legs.begin(), legs.end(), others.begin(), others.end(), isSameRide);
}

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

void RouteSession::goToNearest(const guidance::Position& from, NearestChoice nearest) {
  stops_.beginAt(from);
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

void RouteSession::restore(RouteStops stops, std::size_t profile) {
  stops_ = std::move(stops);
  profile_ = profile;
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
  guidance::Request request;
  request.stops = stops.list();
  request.bestOrder = stops.between().size() > 1;
  request.profile = profileChoices[profile_].make();
  request.closures = closures_;
  request.at = clock_();
  request.alternatives = alternatives;
  guide_.start(std::move(request));
}

void RouteSession::setClosures(const guidance::Closures& closures,
                               const std::optional<RouteProgress>& progress) {
  closures_ = closures;
  if (!isComplete()) return;
  if (!route()) return planAgain();
  if (!progress) return start(Purpose::update, stops_);
  const RouteRest rest(*route(), *progress);
  if (isOpen(rest)) return keepOpenRoutes();
  rest_ = rest;
  start(Purpose::replaceRest, stopsOfRest());
}

bool RouteSession::isOpen(const RouteRest& rest) const {
  return rest.isOpen(*plan_.guide, profileChoices[profile_].make(), closures_);
}

void RouteSession::walkEnded() {
  if (isPlanning() && purpose_ == Purpose::replaceRest) start(Purpose::update, stops_);
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
  if (purpose_ == Purpose::replaceRest) return takeNewRest(std::move(plan));
  adopt(std::move(plan));
  if (planned) planned();
}

// Keeps the chosen route if it is in the new plan. The best route is only kept if it is still the
// best one.
void RouteSession::takeUpdate(GuidedPlan plan) {
  const auto same =
      std::find_if(plan.routes.begin(), plan.routes.end(),
                   [this](const GuidedRoute& other) { return isSameRoute(other, *route()); });
  if (same == plan.routes.end() || (chosen_ == 0 && same != plan.routes.begin())) {
    const std::string closed = RouteRest(*route()).closedName(closures_, *venue_);
    adopt(std::move(plan));
    if (rerouted) rerouted(closed);
    return;
  }
  chosen_ = static_cast<std::size_t>(same - plan.routes.begin());
  plan_ = std::move(plan);
  if (confirmed) confirmed();
}

void RouteSession::takeNewRest(GuidedPlan plan) {
  stops_ = stopsOfRest();
  adopt(std::move(plan));
  if (rerouted) rerouted(rest_->closedName(closures_, *venue_));
}

void RouteSession::adopt(GuidedPlan plan) {
  plan_ = std::move(plan);
  chosen_ = 0;
  if (!plan_.routes.empty()) choose(0);
}

// Keeps the chosen route and those of the others on which nothing is closed.
void RouteSession::keepOpenRoutes() {
  guide_.cancel();
  std::vector<GuidedRoute> kept;
  std::size_t chosen = 0;
  for (std::size_t i = 0; i < plan_.routes.size(); ++i) {
    if (i == chosen_) chosen = kept.size();
    if (i == chosen_ || isOpen(RouteRest(plan_.routes[i])))
      kept.push_back(std::move(plan_.routes[i]));
  }
  plan_.routes = std::move(kept);
  chosen_ = chosen;
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
