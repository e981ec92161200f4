// Makes itineraries of the paths that were found.
#include <algorithm>

#include "Source/Guidance/Network/Alternatives.hpp"
#include "Source/Guidance/Network/ItineraryBuilder.hpp"
#include "Source/Guidance/Network/Planner.hpp"
#include "Source/Guidance/Network/TravelTime.hpp"

namespace orivanta::guidance {

namespace {

using Place = PlaceTable::Place;

constexpr int mostAlternatives = 4;

}  // namespace

// Returns the time until the stop at a place of the order.
double Planner::secondsOf(const Paths& paths, std::size_t place) const {
  double seconds = 0.0;
  for (std::size_t i = 0; i < place; ++i) seconds += measureTo(i + 1).seconds(paths[i]);
  return seconds;
}

PathMeasure Planner::measureTo(std::size_t place) const {
  return {data_.network, speedOf(request_.profile), &stops_[order_[place - 1]].ends,
          &stops_[order_[place]].ends};
}

Itinerary Planner::itineraryOf(const Paths& paths) const {
  ItineraryBuilder builder(data_, request_.profile);
  const auto visit = [&](std::size_t place, Index vertex) {
    const double seconds = request_.at ? secondsOf(paths, place) : 0.0;
    if (const Place* found = placeAt(order_[place], vertex, seconds))
      builder.addVisit(order_[place], found->record, place > 0 && !isOpenAfter(*found, seconds));
    else
      builder.addVisit(order_[place], nullptr);
  };
  visit(0, paths.front().first);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    builder.addPath(paths[i], &stops_[order_[i]].ends, &stops_[order_[i + 1]].ends);
    visit(i + 1, paths[i].last());
  }
  return builder.take();
}

void Planner::addAlternatives(Plan& plan, const Paths& best, const Arrivals* arrivals) const {
  const auto search = [&](const CostTable& costs) {
    std::size_t ignored = 0;
    return this->search(costs, order_, arrivals, &ignored);
  };
  std::vector<const Ends*> ends;
  for (const std::size_t stop : order_) ends.push_back(&stops_[stop].ends);
  const int wanted = std::min(request_.alternatives, mostAlternatives);
  for (const Paths& paths : alternativesTo(best, ends, data_.network, *costs_, wanted, search))
    plan.itineraries.push_back(itineraryOf(paths));
}

}  // namespace orivanta::guidance
