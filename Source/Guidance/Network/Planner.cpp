#include "Source/Guidance/Network/Planner.hpp"

#include <algorithm>
#include <numeric>
#include <unordered_set>
#include <utility>

#include "Source/Guidance/Network/StopOrder.hpp"
#include "Source/Guidance/Network/TravelTime.hpp"

namespace orivanta::guidance {

namespace {

using Kind = Problem::Kind;
using Place = PlaceTable::Place;

constexpr std::size_t mostEarlierPlaces = 16;

std::int64_t costOf(const std::vector<NetworkPath>& paths) {
  return std::accumulate(paths.begin(), paths.end(), std::int64_t{0},
                         [](std::int64_t sum, const NetworkPath& path) { return sum + path.cost; });
}

}  // namespace

Planner::Planner(const GuideData& data, const Request& request,
                 const foundation::CancellationToken& token)
    : data_(data),
      request_(request),
      context_{data.network, data.states, token},
      resolver_(data, request.closures, request.at),
      stops_(request.stops.size()),
      closing_(request.stops.size()) {}

bool Planner::resolveAll() {
  const std::size_t most = request_.bestOrder ? Request::mostStopsInBestOrder : Request::mostStops;
  if (stops_.size() < 2) problem_ = {Kind::tooFewStops, 0};
  if (stops_.size() > most) problem_ = {Kind::tooManyStops, most};
  for (std::size_t stop = 0; stop < stops_.size() && !problem_; ++stop) {
    stops_[stop] = resolver_.resolve(request_.stops[stop], stop, stop == 0);
    if (stops_[stop].problem) problem_ = {*stops_[stop].problem, stop};
    order_.push_back(stop);
  }
  if (!problem_) costs_ = data_.costs.table(request_.profile, closedArcs());
  return !problem_;
}

// Rooms on the way are closed if they are at the departure. Stops are judged at the arrival.
std::vector<GuideNetwork::Index> Planner::closedArcs() const {
  if (!request_.at) return data_.places.closedArcs(request_.closures);
  std::unordered_set<const Place*> own;
  for (const ResolvedStop& stop : stops_) own.insert(stop.places.begin(), stop.places.end());
  PlaceTable::Places closed;
  for (const Place* place : *data_.places.closedAt(*request_.at))
    if (own.count(place) == 0) closed.push_back(place);
  return data_.places.closedArcs(request_.closures, std::move(closed));
}

Plan Planner::plan() { return resolveAll() ? routes() : failed(); }

Plan Planner::routes() {
  const Arrivals checked{speedOf(request_.profile),
                         [this](std::size_t place, Index vertex, double seconds) {
                           return accepts(order_[place], vertex, seconds);
                         }};
  const Arrivals* arrivals = request_.at ? &checked : nullptr;
  auto paths = best(arrivals);
  if (!paths) paths = bestToClosedStops(arrivals);
  if (!paths) return failed();
  Plan plan;
  plan.itineraries.push_back(itineraryOf(*paths));
  addAlternatives(plan, *paths, arrivals);
  return plan;
}

std::optional<Planner::Paths> Planner::best(const Arrivals* arrivals) {
  if (request_.bestOrder) order_ = bestOrder(*costs_);
  std::size_t failing = 1;
  auto paths = search(*costs_, order_, arrivals, &failing);
  if (!paths && request_.bestOrder && closing_[order_[failing]])
    paths = withAnEarlierStop(failing, arrivals);
  if (!paths) explain(failing);
  return paths;
}

std::optional<Planner::Paths> Planner::bestToClosedStops(const Arrivals* arrivals) {
  const bool isAboutHours = std::any_of(closing_.begin(), closing_.end(),
                                        [](const auto& kind) { return kind.has_value(); });
  if (!request_.visitsClosedStops || !isAboutHours) return std::nullopt;
  ignoresStopHours_ = true;
  const auto problem = problem_;
  auto paths = best(arrivals);
  problem_ = problem;
  return paths;
}

// The cheapest order does not consider opening hours. If a stop closes before the arrival, the same
// order with this stop at an earlier place is tried.
std::optional<Planner::Paths> Planner::withAnEarlierStop(std::size_t place,
                                                         const Arrivals* arrivals) {
  if (place + 1 == order_.size()) return std::nullopt;
  Order best = order_;
  std::optional<Paths> cheapest;
  for (std::size_t tries = 0; tries < mostEarlierPlaces && place > 1; ++tries) {
    --place;
    std::swap(order_[place], order_[place + 1]);
    std::size_t ignored = 0;
    auto paths = search(*costs_, order_, arrivals, &ignored);
    if (!paths || (cheapest && costOf(*cheapest) <= costOf(*paths))) continue;
    cheapest = std::move(paths);
    best = order_;
  }
  order_ = best;
  return cheapest;
}

// Returns the given order if none is possible.
Planner::Order Planner::bestOrder(const CostTable& costs) const {
  std::vector<const Ends*> ends;
  for (const auto& stop : stops_) ends.push_back(&stop.ends);
  Order given(stops_.size());
  std::iota(given.begin(), given.end(), 0U);
  return cheapestOrder(context_, costs, ends).value_or(std::move(given));
}

std::optional<Planner::Paths> Planner::search(const CostTable& costs, const Order& order,
                                              const Arrivals* arrivals, std::size_t* failed) const {
  std::vector<const Ends*> ends;
  for (const std::size_t stop : order) ends.push_back(&stops_[stop].ends);
  return cheapestSequence(context_, costs, ends, stops_.size(), arrivals, failed);
}

// Without a scale, the time of the arrival is not known; then the departure's counts.
bool Planner::isOpenAfter(const Place& place, double seconds) const {
  constexpr double longest = 1e9;
  if (!request_.at || !place.hours || !(seconds < longest)) return true;
  const auto minutes = data_.network.hasScale() ? static_cast<long long>(seconds / 60.0) : 0;
  return !place.isClosedAt(request_.at->plusMinutes(minutes));
}

bool Planner::accepts(std::size_t stop, Index vertex, double seconds) {
  if (ignoresStopHours_ && std::holds_alternative<std::shared_ptr<Location>>(request_.stops[stop]))
    return true;
  const auto places = stops_[stop].placesAt(vertex);
  const auto isOpen = [&](const Place* place) { return isOpenAfter(*place, seconds); };
  if (places.empty() || std::any_of(places.begin(), places.end(), isOpen)) return true;
  const bool wasOpen = std::any_of(places.begin(), places.end(),
                                   [&](const Place* place) { return isOpenAfter(*place, 0.0); });
  if (wasOpen)
    closing_[stop] = Kind::closesBeforeArrival;
  else if (!closing_[stop])
    closing_[stop] = Kind::closed;
  return false;
}

const Place* Planner::placeAt(std::size_t stop, Index vertex, double seconds) const {
  const auto places = stops_[stop].placesAt(vertex);
  for (const Place* place : places)
    if (isOpenAfter(*place, seconds)) return place;
  return places.empty() ? nullptr : places.front();
}

}  // namespace orivanta::guidance
