#include "Apps/Viewer/GuideWorker.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <variant>

#include "Apps/Viewer/RouteTitles.hpp"
#include "Source/Guidance/FloorVisits.hpp"
#include "Source/Location.hpp"

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

std::vector<std::shared_ptr<Map>> floorsOf(const NodeList& path) {
  std::vector<std::shared_ptr<Map>> floors;
  for (const FloorVisit& visit : floorVisits(path))
    if (!contains(floors, visit.floor)) floors.push_back(visit.floor);
  return floors;
}

}  // namespace

GuideWorker::GuideWorker(std::shared_ptr<Venue> venue, guidance::InterfaceTexts texts)
    : venue_(std::move(venue)), texts_(std::move(texts)), narrator_(texts_.language()) {}

void GuideWorker::prepare(const foundation::CancellationToken& end) {
  if (end.isCanceled() || !venue_) return;
  guide_ = guidance::Guide::make(*venue_);
  venue_ = nullptr;
}

guidance::Plan GuideWorker::search(Request request,
                                   const foundation::CancellationToken& token) const {
  if (!guide_) return {{}, guidance::Problem{}};
  request.visitsClosedStops = true;
  if (request.stops.size() != 2 ||
      std::holds_alternative<std::shared_ptr<Location>>(request.stops[1]))
    return guide_->plan(request, token);
  return guide_->nearest(request.stops[0], request.stops[1], request.profile, request.closures,
                         request.at, request.alternatives, token);
}

// Returns a sentence for each stop that is closed at the arrival.
std::string GuideWorker::warning(const guidance::Itinerary& itinerary) const {
  std::string sentences;
  for (const guidance::Visit& visit : itinerary.visits) {
    if (!visit.isClosed) continue;
    const std::string name = texts_.name(guide_->spokenName(visit.location));
    if (!sentences.empty()) sentences += ' ';
    sentences += name.empty() ? narrator_.text(
                                    {guidance::Problem::Kind::closesBeforeArrival, visit.stop}, "")
                              : texts_.text("interface.route.closed", {{"place", name}});
  }
  return sentences;
}

GuidedRoute GuideWorker::describe(guidance::Itinerary itinerary,
                                  const foundation::CancellationToken& token) const {
  GuidedRoute route;
  route.path = itinerary.path();
  route.floors = floorsOf(route.path);
  route.warning = warning(itinerary);
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
    plan.routes.push_back(describe(std::move(itinerary), token));
  }
  if (guide_) {
    auto titles = routeTitles(plan.routes, *guide_, texts_);
    for (std::size_t i = 0; i < titles.size(); ++i) plan.routes[i].title = std::move(titles[i]);
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
