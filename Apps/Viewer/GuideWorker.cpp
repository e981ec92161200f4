#include "Apps/Viewer/GuideWorker.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <variant>

#include "Source/Category.hpp"
#include "Source/Guidance/FloorVisits.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

template <class List, class Element>
bool contains(const List& list, const Element& element) {
  return std::find(list.begin(), list.end(), element) != list.end();
}

std::uint64_t units(double length) {
  constexpr double most = 1e15;
  return length > 0 ? static_cast<std::uint64_t>(std::llround(std::min(length, most))) : 0;
}

bool isAboutHours(guidance::Problem::Kind kind) {
  using Kind = guidance::Problem::Kind;
  return kind == Kind::closed || kind == Kind::closesBeforeArrival;
}

bool isStop(const guidance::Request& request, const Location& place) {
  return std::any_of(request.stops.begin(), request.stops.end(), [&](const guidance::Stop& stop) {
    const auto* location = std::get_if<std::shared_ptr<Location>>(&stop);
    return location != nullptr && location->get() == &place;
  });
}

std::vector<std::shared_ptr<Map>> floorsOf(const NodeList& path) {
  std::vector<std::shared_ptr<Map>> floors;
  for (const FloorVisit& visit : floorVisits(path))
    if (!contains(floors, visit.floor)) floors.push_back(visit.floor);
  return floors;
}

}  // namespace

GuideWorker::GuideWorker(std::shared_ptr<Venue> venue, guidance::InterfaceTexts texts)
    : venue_(std::move(venue)),
      connectors_(*venue_->vortices),
      texts_(std::move(texts)),
      narrator_(texts_.language()) {}

void GuideWorker::prepare(const foundation::CancellationToken& end) {
  if (end.isCanceled() || !venue_) return;
  guide_ = guidance::Guide::make(*venue_);
  for (const auto& place : *venue_->locations)
    if (auto hours = guidance::OpeningHours::parse(place->_data["hours"].stringValue()))
      hours_.emplace(place, *std::move(hours));
  venue_ = nullptr;
}

guidance::Plan GuideWorker::search(const Request& request,
                                   const foundation::CancellationToken& token) const {
  if (!guide_) return {{}, guidance::Problem{}};
  for (std::size_t stop = 0; stop < request.stops.size(); ++stop)
    if (const auto* nodes = std::get_if<NodeList>(&request.stops[stop]); nodes && nodes->empty())
      return {{}, guidance::Problem{guidance::Problem::Kind::closed, stop}};
  auto plan = searchOnce(request, token);
  if (!plan.problem || !request.at || !isAboutHours(plan.problem->kind)) return plan;
  auto regardless = searchOnce(withClosedStops(request), token);
  return regardless.problem ? plan : regardless;
}

// Returns a request for the same route to stops that are closed according to their opening hours.
// All other places that are closed at the departure remain closed.
guidance::Request GuideWorker::withClosedStops(Request request) const {
  auto closed = request.closures.identifiers();
  for (const auto& [place, hours] : hours_)
    if (hours.at(*request.at) == guidance::OpenState::closed && !isStop(request, *place))
      closed.push_back(place->id.value_or(""));
  request.closures = guidance::Closures(std::move(closed));
  request.at.reset();
  return request;
}

guidance::Plan GuideWorker::searchOnce(const Request& request,
                                       const foundation::CancellationToken& token) const {
  const auto* category = request.stops.size() == 2
                             ? std::get_if<std::shared_ptr<Category>>(&request.stops[1])
                             : nullptr;
  if (category == nullptr) return guide_->plan(request, token);
  return guide_->nearest(request.stops[0], *category, request.profile, request.closures, request.at,
                         request.alternatives, token);
}

// Returns a sentence for each stop that is closed at the arrival.
std::string GuideWorker::warning(const guidance::Itinerary& itinerary,
                                 const guidance::LocalTime& at) const {
  std::string sentences;
  for (std::size_t i = 1; i < itinerary.visits.size(); ++i) {
    const guidance::Visit& visit = itinerary.visits[i];
    const auto hours = hours_.find(visit.location);
    if (hours == hours_.end()) continue;
    double seconds = 0;
    for (std::size_t leg = 0; itinerary.hasScale && leg < visit.leg; ++leg)
      seconds += itinerary.legs[leg].seconds;
    const auto arrival = at.plusMinutes(static_cast<long long>(seconds / 60));
    if (hours->second.at(arrival) != guidance::OpenState::closed) continue;
    const std::string name = texts_.name(visit.location->name.value_or(""));
    sentences +=
        (sentences.empty() ? "" : " ") + texts_.text("interface.route.closed", {{"place", name}});
  }
  return sentences;
}

GuidedRoute GuideWorker::describe(guidance::Itinerary itinerary, const Request& request,
                                  const foundation::CancellationToken& token) const {
  GuidedRoute route;
  route.path = itinerary.path();
  route.floors = floorsOf(route.path);
  route.destination = itinerary.visits.back().location;
  if (request.at) route.warning = warning(itinerary, *request.at);
  for (const auto& connector : connectors_)
    if (!route.destination && contains(connector->nodes, route.path.back()))
      route.destination = connector;
  if (route.path.size() == 1) {
    route.summary = texts_.text("interface.route.none");
  } else {
    route.steps = guide_->steps(itinerary, token);
    route.texts = narrator_.texts(itinerary, route.steps);
    route.summary = itinerary.hasScale
                        ? narrator_.summary(itinerary)
                        : texts_.text("interface.route.units", units(itinerary.meters()));
  }
  route.itinerary = std::move(itinerary);
  return route;
}

GuidedPlan GuideWorker::answer(const Request& request,
                               const foundation::CancellationToken& token) const {
  auto found = search(request, token);
  GuidedPlan plan;
  plan.guide = guide_;
  for (auto& itinerary : found.itineraries) {
    if (token.isCanceled()) return plan;
    plan.routes.push_back(describe(std::move(itinerary), request, token));
  }
  plan.problem = found.problem;
  if (plan.problem)
    plan.problemText =
        narrator_.text(*plan.problem, guide_ && plan.problem->stop < request.stops.size()
                                          ? guide_->spokenName(request.stops[plan.problem->stop])
                                          : "");
  return plan;
}

}  // namespace orivanta::viewer
