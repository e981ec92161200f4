#include "Apps/Viewer/RouteSession.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr int alternatives = 2;

std::optional<std::string> nameOf(const std::shared_ptr<Location>& place) {
  return place ? std::optional(place->name.value_or("")) : std::nullopt;
}

template <class List>
bool isEndOf(const List& end, const List& whole) {
  return end.size() <= whole.size() && std::equal(end.rbegin(), end.rend(), whole.rbegin());
}

std::vector<std::shared_ptr<Vortex>> connectorsOf(const GuidedRoute& route) {
  std::vector<std::shared_ptr<Vortex>> connectors;
  for (const guidance::Leg& leg : route.itinerary.legs)
    if (leg.connector) connectors.push_back(leg.connector);
  return connectors;
}

bool isSame(const GuidedRoute& route, const GuidedRoute& other) {
  return route.path == other.path && connectorsOf(route) == connectorsOf(other);
}

// Returns whether a route from a position leads along another one from there to its end.
bool isRestOf(const GuidedRoute& route, const GuidedRoute& whole) {
  const NodeList after(route.path.begin() + 1, route.path.end());
  return isEndOf(after, whole.path) && isEndOf(connectorsOf(route), connectorsOf(whole));
}

}  // namespace

RouteSession::RouteSession(std::shared_ptr<Venue> venue, const guidance::InterfaceTexts& texts,
                           Clock clock)
    : venue_(venue),
      clock_(std::move(clock)),
      guide_(GuideWorker(std::move(venue), texts),
             [this](GuidedPlan plan) { take(std::move(plan)); }) {
  guide_.prepare();
}

// --- Stops

void RouteSession::departFrom(const std::shared_ptr<Location>& place) {
  if (to_ == place) to_ = nullptr;
  setEnd(RouteEnd::start, place);
}

void RouteSession::goTo(const std::shared_ptr<Location>& place) {
  if (from_ == place) from_ = nullptr;
  setEnd(RouteEnd::destination, place);
}

void RouteSession::goToNearest(std::shared_ptr<Location> from, NearestChoice nearest) {
  from_ = std::move(from);
  to_ = nullptr;
  nearest_ = std::move(nearest);
  between_.clear();
  request();
}

void RouteSession::setEnd(RouteEnd end, const std::shared_ptr<Location>& place) {
  between_.erase(std::remove(between_.begin(), between_.end(), place), between_.end());
  if (end == RouteEnd::start) {
    from_ = place;
  } else {
    to_ = place;
    nearest_.reset();
  }
  request();
}

bool RouteSession::fillMissingEnd(const std::shared_ptr<Location>& place) {
  if (!hasStops() || isComplete()) return false;
  setEnd(from_ ? RouteEnd::destination : RouteEnd::start, place);
  return true;
}

void RouteSession::swapEnds() {
  std::reverse(between_.begin(), between_.end());
  if (nearest_) to_ = route() ? route()->to() : nullptr;
  nearest_.reset();
  std::swap(from_, to_);
  request();
}

bool RouteSession::canAddStop(const std::shared_ptr<Location>& place) const {
  return from_ && to_ && place != from_ && place != to_ &&
         std::find(between_.begin(), between_.end(), place) == between_.end();
}

void RouteSession::addStop(const std::shared_ptr<Location>& place) {
  if (!canAddStop(place)) return;
  between_.push_back(place);
  request();
}

void RouteSession::removeStop(std::size_t index) {
  between_.erase(between_.begin() + static_cast<std::ptrdiff_t>(index));
  request();
}

void RouteSession::setProfile(std::size_t index) {
  profile_ = index;
  request();
}

void RouteSession::clear() {
  from_ = nullptr;
  to_ = nullptr;
  nearest_.reset();
  between_.clear();
  request();
}

StopNames RouteSession::names() const {
  StopNames names{nameOf(from_), {}, nameOf(to_)};
  for (const auto& place : between_) names.between.push_back(place->name.value_or(""));
  if (nearest_) names.to = nearest_->title;
  const auto found = nearest_ && route() ? route()->to() : nullptr;
  if (found && !hasGeneratedName(*found) && !labelName(*venue_, *found).empty())
    names.to = nameOf(found);
  return names;
}

// --- Planning

void RouteSession::request() {
  planAgain();
  if (isComplete() && requested) requested();
}

void RouteSession::planAgain() {
  guide_.cancel();
  plan_ = {};
  chosen_ = 0;
  purpose_ = Purpose::plan;
  if (isComplete()) guide_.start(makeRequest(from_, between_));
  if (changed) changed();
}

guidance::Request RouteSession::makeRequest(guidance::Stop start, const Places& between) const {
  guidance::Request request;
  request.stops = {std::move(start)};
  for (const auto& place : between) request.stops.emplace_back(place);
  request.stops.push_back(nearest_ ? stopFor(*nearest_, *venue_, closures_) : guidance::Stop(to_));
  request.bestOrder = between.size() > 1;
  request.profile = profileChoices[profile_].make();
  request.closures = closures_;
  request.at = clock_();
  request.alternatives = alternatives;
  return request;
}

void RouteSession::setClosures(const guidance::Closures& closures,
                               const std::optional<Progress>& progress) {
  closures_ = closures;
  if (!isComplete()) return;
  if (!route()) return planAgain();
  if (!progress) {
    purpose_ = Purpose::update;
    return guide_.start(makeRequest(from_, between_));
  }
  Places left;
  const auto& visits = route()->itinerary.visits;
  for (std::size_t i = 1; i + 1 < visits.size(); ++i)
    if (visits[i].leg > progress->leg) left.push_back(visits[i].location);
  purpose_ = Purpose::updateOnTheWay;
  guide_.start(makeRequest(progress->position, left));
}

void RouteSession::take(GuidedPlan plan) {
  if (purpose_ != Purpose::plan && keepRoute(plan)) {
    if (confirmed) confirmed();
    return;
  }
  plan_ = std::move(plan);
  chosen_ = 0;
  if (!plan_.routes.empty()) choose(0);
  const auto& told = purpose_ == Purpose::plan ? planned : rerouted;
  if (told) told();
}

// Keeps the chosen route if a plan after a change of the closures has it too. The best route is
// only kept if it is still the best one. Returns false if the plan has to replace the current one.
bool RouteSession::keepRoute(GuidedPlan& plan) {
  const auto found =
      std::find_if(plan.routes.begin(), plan.routes.end(), [this](const GuidedRoute& other) {
        return purpose_ == Purpose::updateOnTheWay ? isRestOf(other, *route())
                                                   : isSame(other, *route());
      });
  if (found == plan.routes.end() || (chosen_ == 0 && found != plan.routes.begin())) return false;
  if (purpose_ == Purpose::updateOnTheWay) {  // the other routes of the old plan may be closed
    plan_.routes = {std::move(plan_.routes[chosen_])};
    chosen_ = 0;
  } else {
    chosen_ = static_cast<std::size_t>(found - plan.routes.begin());
    plan_ = std::move(plan);
  }
  return true;
}

void RouteSession::choose(std::size_t index) {
  chosen_ = index;
  between_.clear();
  const auto& visits = plan_.routes[index].itinerary.visits;
  for (std::size_t i = 1; i + 1 < visits.size(); ++i) between_.push_back(visits[i].location);
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
