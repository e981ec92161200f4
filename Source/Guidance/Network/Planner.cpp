#include "Source/Guidance/Network/Planner.hpp"

#include <algorithm>
#include <numeric>
#include <unordered_set>
#include <utility>

#include "Source/Guidance/Network/Alternatives.hpp"
#include "Source/Guidance/Network/ItineraryBuilder.hpp"
#include "Source/Guidance/Network/PathMeasure.hpp"
#include "Source/Guidance/Network/StopOrder.hpp"
#include "Source/Guidance/Network/TravelTime.hpp"

namespace orivanta::guidance {

namespace {

using Kind = Problem::Kind;
using Place = PlaceTable::Place;

constexpr int mostAlternatives = 4;
constexpr int mostNearest = 1000;
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
  if (stops_.size() < 2) problem_ = {Kind::tooFewStops, 0};
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

Plan Planner::plan() {
  if (!resolveAll()) return failed();
  const Arrivals checked{speedOf(request_.profile),
                         [this](std::size_t place, Index vertex, double seconds) {
                           return accepts(order_[place], vertex, seconds);
                         }};
  const Arrivals* arrivals = request_.at ? &checked : nullptr;
  const auto paths = best(arrivals);
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

// The cheapest order does not consider opening hours. If a stop closes before the arrival, the same
// order with this stop at an earlier place is tried.
std::optional<Planner::Paths> Planner::withAnEarlierStop(std::size_t place,
                                                         const Arrivals* arrivals) {
  if (place + 1 == order_.size()) return std::nullopt;
  const Order given = order_;
  Order best = given;
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

// Returns the time until the stop at a place of the order.
double Planner::secondsOf(const Paths& paths, std::size_t place) const {
  double seconds = 0.0;
  for (std::size_t i = 0; i < place; ++i)
    seconds += PathMeasure(data_.network, speedOf(request_.profile), &stops_[order_[i]].ends,
                           &stops_[order_[i + 1]].ends)
                   .seconds(paths[i]);
  return seconds;
}

Itinerary Planner::itineraryOf(const Paths& paths) const {
  ItineraryBuilder builder(data_, request_.profile);
  const auto visit = [&](std::size_t place, Index vertex) {
    const double seconds = request_.at ? secondsOf(paths, place) : 0.0;
    const Place* found = placeAt(order_[place], vertex, seconds);
    builder.addVisit(order_[place], found == nullptr ? nullptr : found->record);
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

// Finds the reason why the stop at this place of the order cannot be reached.
void Planner::explain(std::size_t place) {
  problem_ = {Kind::unreachable, order_[place]};
  if (context_.token.isCanceled()) return;
  if (closing_[order_[place]]) {
    problem_->kind = *closing_[order_[place]];
    return;
  }
  std::size_t ignored = 0;
  const auto closing = std::find_if(closing_.begin(), closing_.end(),
                                    [](const auto& kind) { return kind.has_value(); });
  if (closing != closing_.end() && search(*costs_, order_, nullptr, &ignored)) {
    problem_ = {**closing, static_cast<std::size_t>(closing - closing_.begin())};
    return;
  }
  if (request_.bestOrder)  // a stop that cannot be reached from the start is the more likely reason
    for (std::size_t stop = 1; stop < stops_.size(); ++stop)
      if (!search(*costs_, {0, stop}, nullptr, &ignored)) {
        problem_ = reasonFor({0, stop}, 1);
        return;
      }
  problem_ = reasonFor(order_, place);
}

// The reason that remains longest is told: what can never be reached, then what the profile
// excludes, then what is closed.
Problem Planner::reasonFor(const Order& order, std::size_t place) const {
  const auto fastest = data_.costs.table(Profile::fastest());
  if (const auto stop = failingStop(*fastest, order)) return {Kind::unreachable, *stop};
  const auto open = data_.costs.table(request_.profile);
  if (const auto stop = failingStop(*open, order)) return {Kind::onlyWithSteps, *stop};
  return {Kind::closed, order[place]};
}

// Returns the first stop that cannot be reached, whatever the opening hours.
std::optional<std::size_t> Planner::failingStop(const CostTable& costs, Order order) const {
  if (request_.bestOrder && order.size() == stops_.size()) order = bestOrder(costs);
  std::size_t failing = 0;
  if (search(costs, order, nullptr, &failing)) return std::nullopt;
  return order[failing];
}

Plan Planner::nearest(int limit) {
  if (!resolveAll()) return failed();
  NetworkSearch search(context_, *costs_, stops_.size());
  search.aimAt(stops_[1].ends);
  if (limit <= 0) search.guide();
  search.startFrom(stops_[0].ends);
  Plan plan;
  std::unordered_set<const Place*> found;
  const std::size_t wanted = static_cast<std::size_t>(std::clamp(limit, 0, mostNearest)) + 1;
  while (plan.itineraries.size() < wanted && found.size() < stops_[1].places.size()) {
    const auto vertex = search.next();
    if (!vertex) break;
    const Paths paths{search.pathTo(*vertex)};
    const double seconds = request_.at ? secondsOf(paths, 1) : 0.0;
    if (!accepts(1, *vertex, seconds)) continue;
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
