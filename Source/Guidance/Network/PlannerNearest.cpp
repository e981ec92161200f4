// Finds the nearest ones of several places.
#include <algorithm>
#include <unordered_set>
#include <utility>

#include "Source/Guidance/Network/ArrivalTimes.hpp"
#include "Source/Guidance/Network/Planner.hpp"

namespace orivanta::guidance {

namespace {

using Place = PlaceTable::Place;

constexpr int mostNearest = 1000;

}  // namespace

Plan Planner::nearest(int limit) {
  if (!resolveAll()) return failed();
  if (stops_[1].places.empty()) return routes();
  NetworkSearch search(context_, *costs_, stops_.size());
  search.aimAt(stops_[1].ends);
  if (limit <= 0) search.guide();
  search.startFrom(stops_[0].ends);
  ArrivalTimes times(search, measureTo(1));
  Plan plan;
  std::unordered_set<const Place*> found;
  const std::size_t wanted = static_cast<std::size_t>(std::clamp(limit, 0, mostNearest)) + 1;
  while (plan.itineraries.size() < wanted && found.size() < stops_[1].places.size()) {
    const auto vertex = search.next();
    if (!vertex) break;
    const double seconds = request_.at ? times.at(*vertex) : 0.0;
    if (!accepts(1, *vertex, seconds)) continue;
    const Paths paths{search.pathTo(*vertex)};
    for (const Place* place : stops_[1].placesAt(*vertex)) {
      if (plan.itineraries.size() == wanted) break;
      if (!isOpenAfter(*place, seconds) || !found.insert(place).second) continue;
      plan.itineraries.push_back(itineraryOf(paths));
      plan.itineraries.back().visits.back().location = place->record;
    }
  }
  if (context_.token.isCanceled()) plan.itineraries.clear();
  if (plan.itineraries.empty()) explain(1);
  return plan.itineraries.empty() ? failed() : plan;
}

}  // namespace orivanta::guidance
