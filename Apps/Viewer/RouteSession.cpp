#include "Apps/Viewer/RouteSession.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr int alternatives = 2;

std::optional<std::string> nameOf(const std::shared_ptr<Location>& place) {
  return place ? std::optional(place->name.value_or("")) : std::nullopt;
}

// Whether a place has a name that was not invented by a converter.
bool hasName(const std::shared_ptr<Location>& place) {
  return place && !place->_data["nameGenerated"].bool_().value_or(false);
}

}  // namespace

RouteSession::RouteSession(std::shared_ptr<Venue> venue, const guidance::InterfaceTexts& texts,
                           Clock clock)
    : clock_(std::move(clock)),
      guide_(GuideWorker(std::move(venue), texts), [this](GuidedPlan plan) {
        plan_ = std::move(plan);
        if (!plan_.routes.empty()) choose(0);
        if (planned) planned();
      }) {
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

void RouteSession::addStop(const std::shared_ptr<Location>& place) {
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

void RouteSession::setClosures(const guidance::Closures& closures) {
  closures_ = closures;
  if (isComplete()) planAgain();
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
  if (nearest_ && route() && hasName(route()->to())) names.to = nameOf(route()->to());
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
  if (isComplete()) {
    guidance::Request request;
    request.stops = {from_};
    for (const auto& place : between_) request.stops.emplace_back(place);
    request.stops.push_back(nearest_ ? nearest_->stop : guidance::Stop(to_));
    request.bestOrder = between_.size() > 1;
    request.profile = profileChoices[profile_].make();
    request.closures = closures_;
    if (nearest_) request.at = clock_();
    request.alternatives = alternatives;
    guide_.start(std::move(request));
  }
  if (changed) changed();
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
