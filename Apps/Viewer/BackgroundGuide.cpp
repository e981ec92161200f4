#include "Apps/Viewer/BackgroundGuide.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/FloorVisits.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

std::vector<std::shared_ptr<Map>> floorsOf(const NodeList& path) {
  std::vector<std::shared_ptr<Map>> floors;
  for (const FloorVisit& visit : floorVisits(path))
    if (std::find(floors.begin(), floors.end(), visit.floor) == floors.end())
      floors.push_back(visit.floor);
  return floors;
}

}  // namespace

// The state that requests use on the queue. It may outlive the object that started them.
struct BackgroundGuide::Work {
  std::shared_ptr<Venue> venue;  // null after the guide is made
  guidance::Narrator narrator;
  std::shared_ptr<const guidance::Guide> guide;  // null before the first request
  foundation::CancellationSource end;            // cancels all work

  void makeGuide() {
    if (end.isCanceled() || !venue) return;
    guide = guidance::Guide::make(*venue);
    venue = nullptr;
  }

  guidance::Plan search(const guidance::Request& request,
                        const foundation::CancellationToken& token) const {
    if (!guide) return {{}, guidance::Problem{}};
    const auto* category = request.stops.size() == 2
                               ? std::get_if<std::shared_ptr<Category>>(&request.stops[1])
                               : nullptr;
    if (category == nullptr) return guide->plan(request, token);
    return guide->nearest(request.stops[0], *category, request.profile, request.closures,
                          request.at, request.alternatives);
  }

  GuidedRoute describe(guidance::Itinerary itinerary) const {
    GuidedRoute route;
    route.path = itinerary.path();
    route.floors = floorsOf(route.path);
    route.steps = guide->steps(itinerary);
    route.texts = narrator.texts(itinerary, route.steps);
    route.summary = narrator.summary(itinerary);
    if (!itinerary.hasScale) route.summary = fmt::format("{:.0f} units", itinerary.meters());
    if (route.path.size() == 1) {
      route.summary = "You are already there";
      route.steps.clear();
      route.texts.clear();
    }
    route.itinerary = std::move(itinerary);
    return route;
  }

  // Returns nothing if the request was canceled.
  std::optional<GuidedPlan> plan(const guidance::Request& request,
                                 const foundation::CancellationToken& token) {
    if (token.isCanceled()) return std::nullopt;
    makeGuide();
    auto found = search(request, token);
    GuidedPlan plan;
    plan.guide = guide;
    for (auto& itinerary : found.itineraries) plan.routes.push_back(describe(std::move(itinerary)));
    plan.problem = found.problem;
    if (plan.problem)
      plan.problemText =
          narrator.text(*plan.problem, plan.problem->stop < request.stops.size()
                                           ? guide->spokenName(request.stops[plan.problem->stop])
                                           : "");
    return token.isCanceled() ? std::nullopt : std::optional(std::move(plan));
  }
};

BackgroundGuide::BackgroundGuide(std::shared_ptr<Venue> venue, std::string_view language,
                                 Planned planned)
    : work_(std::make_shared<Work>(
          Work{std::move(venue), guidance::Narrator(language), nullptr, {}})),
      planned_(std::make_shared<Planned>([this, tell = std::move(planned)](auto plan) {
        isBusy_ = false;
        tell(std::move(plan));
      })) {}

BackgroundGuide::~BackgroundGuide() {
  cancel();
  work_->end.cancel();
}

void BackgroundGuide::prepare() {
  queue_->async([work = work_] { work->makeGuide(); });
}

void BackgroundGuide::start(guidance::Request request) {
  cancel();
  request_ = foundation::CancellationSource();
  isBusy_ = true;
  queue_->async([work = work_, request = std::move(request), token = request_.token(),
                 planned = std::weak_ptr(planned_)] {
    auto plan = work->plan(request, token);
    if (!plan) return;
    foundation::mainQueue::async([token, planned, plan = std::move(*plan)]() mutable {
      const auto tell = planned.lock();
      if (tell && !token.isCanceled()) (*tell)(std::move(plan));
    });
  });
}

void BackgroundGuide::cancel() {
  request_.cancel();
  isBusy_ = false;
}

}  // namespace orivanta::viewer
