#include "Apps/Viewer/RouteSession.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

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
  if (to_.place == place) to_ = {};
  setEnd(RouteEnd::start, place);
}

void RouteSession::goTo(const std::shared_ptr<Location>& place) {
  if (from_.place == place) from_ = {};
  setEnd(RouteEnd::destination, place);
}

void RouteSession::goToNearest(const std::shared_ptr<Location>& from, NearestChoice nearest) {
  if (from) from_ = {from};
  to_ = {.nearest = std::move(nearest)};
  between_.clear();
  request();
}

void RouteSession::setEnd(RouteEnd end, const std::shared_ptr<Location>& place) {
  between_.erase(std::remove(between_.begin(), between_.end(), place), between_.end());
  (end == RouteEnd::start ? from_ : to_) = {place};
  request();
}

bool RouteSession::fillMissingEnd(const std::shared_ptr<Location>& place) {
  if (!hasStops() || isComplete()) return false;
  setEnd(from_.isSet() ? RouteEnd::destination : RouteEnd::start, place);
  return true;
}

void RouteSession::swapEnds() {
  std::reverse(between_.begin(), between_.end());
  if (to_.nearest) to_ = {route() ? route()->to() : nullptr};
  std::swap(from_, to_);
  request();
}

bool RouteSession::canAddStop(const std::shared_ptr<Location>& place) const {
  return isComplete() && !to_.nearest && place != from_.place && place != to_.place &&
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
  from_ = {};
  to_ = {};
  between_.clear();
  request();
}

StopNames RouteSession::names() const {
  StopNames names{nameOf(from_), {}, nameOf(to_)};
  for (const auto& place : between_) names.between.push_back(nameOf(*place));
  const auto found = to_.nearest && route() ? route()->to() : nullptr;
  if (found && !labelName(*venue_, *found).empty()) names.to = nameOf(*found);
  return names;
}

std::optional<std::string> RouteSession::nameOf(const End& end) const {
  if (end.nearest) return end.nearest->title;
  if (end.position) return texts_.text("interface.route.here");
  return end.place ? std::optional(nameOf(*end.place)) : std::nullopt;
}

// Returns the name of the floor if no sign shows a name.
std::string RouteSession::nameOf(const Location& place) const {
  const std::string name = labelName(*venue_, place);
  const auto floors = floorsOf(place);
  return name.empty() && !floors.empty() ? floorName(*floors.front()) : name;
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
  purpose_ = Purpose::plan;
  if (isComplete()) start(Purpose::plan, makeRequest());
  if (changed) changed();
}

void RouteSession::start(Purpose purpose, guidance::Request request) {
  purpose_ = purpose;
  guide_.start(std::move(request));
}

guidance::Request RouteSession::makeRequest(const guidance::Stop& start,
                                            const Places& between) const {
  guidance::Request request;
  request.stops = {start};
  request.stops.insert(request.stops.end(), between.begin(), between.end());
  request.stops.push_back(stopAt(to_));
  request.bestOrder = between.size() > 1;
  request.profile = profileChoices[profile_].make();
  request.closures = closures_;
  request.at = clock_();
  request.alternatives = 2;
  return request;
}

guidance::Stop RouteSession::stopAt(const End& end) const {
  if (end.nearest) return stopFor(*end.nearest, *venue_, closures_);
  return end.position ? *end.position : guidance::Stop(end.place);
}

void RouteSession::setClosures(const guidance::Closures& closures,
                               const std::optional<RouteProgress>& progress) {
  closures_ = closures;
  if (!isComplete()) return;
  if (!route()) return planAgain();
  if (!progress) return start(Purpose::update, makeRequest());
  rest_.emplace(*route(), *progress);
  if (rest_->isEmpty()) return keepOnlyChosen();
  guidance::Request check = makeRequest(rest_->start(), {});
  check.stops = rest_->closeStops();
  check.bestOrder = false;
  check.alternatives = 0;
  start(Purpose::checkRest, std::move(check));
}

void RouteSession::walkEnded() {
  const bool isOnTheWay = purpose_ == Purpose::checkRest || purpose_ == Purpose::replaceRest;
  if (isPlanning() && isOnTheWay) start(Purpose::update, makeRequest());
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
    const std::string closed = whole.closedName(closures_, *venue_);
    adopt(std::move(plan));
    if (rerouted) rerouted(closed);
    return;
  }
  chosen_ = static_cast<std::size_t>(same - plan.routes.begin());
  plan_ = std::move(plan);
  if (confirmed) confirmed();
}

void RouteSession::takeCheck(const GuidedPlan& plan) {
  if (plan.routes.empty() || !rest_->isFollowedBy(plan.routes.front()))
    return start(Purpose::replaceRest, makeRequest(rest_->start(), rest_->places()));
  keepOnlyChosen();
}

void RouteSession::takeNewRest(GuidedPlan plan) {
  if (std::any_of(plan.routes.begin(), plan.routes.end(),
                  [this](const auto& other) { return rest_->isFollowedBy(other); }))
    return keepOnlyChosen();
  from_ = {.position = rest_->start()};
  between_ = rest_->places();
  const std::string closed = rest_->closedName(closures_, *venue_);
  adopt(std::move(plan));
  if (rerouted) rerouted(closed);
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
