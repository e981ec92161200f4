#include "Source/Guidance/Network/Planner.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/Network/Alternatives.hpp"
#include "Source/Guidance/Network/ItineraryBuilder.hpp"
#include "Source/Guidance/Network/SequenceSearch.hpp"
#include "Source/Guidance/Network/StopOrder.hpp"

namespace orivanta::guidance {

namespace {

using Kind = Problem::Kind;
using Place = PlaceTable::Place;

bool isClosedAfter(const Place& place, const LocalTime& departure, double seconds) {
  constexpr double longest = 1e9;
  if (!place.hours || !(seconds < longest)) return false;
  return place.hours->at(departure.plusMinutes(static_cast<long long>(seconds / 60.0))) ==
         OpenState::closed;
}

}  // namespace

Planner::Planner(const GuideData& data, const Request& request,
                 const foundation::CancellationToken& token)
    : data_(data),
      request_(request),
      closures_(data.places.closedAt(request.closures, request.at)),
      context_{data.network, data.states, token},
      resolver_(data, closures_),
      stops_(request.stops.size()),
      excluded_(request.stops.size()) {}

bool Planner::resolve(std::size_t stop) {
  stops_[stop] = resolver_.resolve(request_.stops[stop], stop, stop == 0, excluded_[stop]);
  if (stops_[stop].problem) problem_ = {*stops_[stop].problem, stop};
  return !problem_;
}

bool Planner::resolveAll() {
  if (stops_.size() < 2) problem_ = {Kind::tooFewStops, 0};
  for (std::size_t stop = 0; stop < stops_.size() && !problem_; ++stop) resolve(stop);
  for (std::size_t stop = 0; stop < stops_.size(); ++stop) order_.push_back(stop);
  return !problem_;
}

Plan Planner::plan() {
  if (!resolveAll()) return failed();
  costs_ = data_.costs.table(request_.profile, closures_);
  Paths paths;
  auto itinerary = best(paths);
  if (!itinerary) return failed();
  Plan plan;
  plan.itineraries.push_back(std::move(*itinerary));
  addAlternatives(plan, paths);
  return plan;
}

// If a place of a category closes before the arrival, the next best one is tried.
std::optional<Itinerary> Planner::best(Paths& paths) {
  while (true) {
    if (request_.bestOrder) orderStops(*costs_);
    std::size_t failing = 1;
    auto found = search(*costs_, &failing);
    if (!found) {
      explain(failing);
      return std::nullopt;
    }
    auto itinerary = itineraryOf(*found);
    paths = std::move(*found);
    std::size_t visit = 0;
    if (!closesBefore(itinerary, &visit)) return itinerary;
    const std::size_t stop = itinerary.visits[visit].stop;
    const Problem closes{Kind::closesBeforeArrival, stop};
    const auto* place = stops_[stop].placeAt(paths[visit - 1].last());
    if (stops_[stop].places.size() > 1 && excluded_[stop].insert(place).second && resolve(stop))
      continue;
    problem_ = closes;
    return std::nullopt;
  }
}

void Planner::orderStops(const CostTable& costs) {
  std::vector<const Ends*> ends;
  for (const auto& stop : stops_) ends.push_back(&stop.ends);
  if (auto order = cheapestOrder(context_, costs, ends)) order_ = std::move(*order);
}

std::optional<Planner::Paths> Planner::search(const CostTable& costs, std::size_t* failed) const {
  std::vector<const Ends*> ends;
  for (const std::size_t stop : order_) ends.push_back(&stops_[stop].ends);
  return cheapestSequence(context_, costs, ends, stops_.size(), failed);
}

Itinerary Planner::itineraryOf(const Paths& paths) const {
  ItineraryBuilder builder(data_, request_.profile);
  const auto visit = [&](std::size_t place, GuideNetwork::Index vertex) {
    const Place* found = stops_[order_[place]].placeAt(vertex);
    builder.addVisit(order_[place], found == nullptr ? nullptr : found->record);
  };
  visit(0, paths.front().first);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    builder.addPath(paths[i], &stops_[order_[i]].ends, &stops_[order_[i + 1]].ends);
    visit(i + 1, paths[i].last());
  }
  return builder.take();
}

bool Planner::closesBefore(const Itinerary& itinerary, std::size_t* visit) const {
  if (!request_.at) return false;
  double seconds = 0.0;
  std::size_t leg = 0;
  for (*visit = 0; *visit < itinerary.visits.size(); ++*visit) {
    const Visit& each = itinerary.visits[*visit];
    for (; leg < each.leg; ++leg) seconds += itinerary.legs[leg].seconds;
    const Place* place = data_.places.find(each.location.get());
    if (*visit != 0 && place != nullptr && isClosedAfter(*place, *request_.at, seconds))
      return true;
  }
  return false;
}

void Planner::addAlternatives(Plan& plan, const Paths& best) const {
  const auto search = [&](const CostTable& costs) {
    std::size_t ignored = 0;
    return this->search(costs, &ignored);
  };
  std::vector<const Ends*> ends;
  for (const std::size_t stop : order_) ends.push_back(&stops_[stop].ends);
  const int wanted = std::min(request_.alternatives, 4);
  for (const Paths& paths : alternativesTo(best, ends, data_.network, *costs_, wanted, search)) {
    Itinerary itinerary = itineraryOf(paths);
    std::size_t visit = 0;
    if (!closesBefore(itinerary, &visit)) plan.itineraries.push_back(std::move(itinerary));
  }
}

// Finds the reason why the stop at this place of the order cannot be reached.
void Planner::explain(std::size_t place) {
  if (problem_) return;
  problem_ = {Kind::unreachable, order_[place]};
  if (context_.token.isCanceled()) return;
  if (request_.bestOrder)  // a stop that cannot be reached from the start is the more likely reason
    for (std::size_t stop = 1; stop < stops_.size(); ++stop)
      if (!reaches(*costs_, stops_[0].ends, stops_[stop].ends)) {
        problem_ = {reasonFor(stops_[0].ends, stops_[stop].ends), stop};
        return;
      }
  problem_->kind = reasonFor(stops_[order_[place - 1]].ends, stops_[order_[place]].ends);
}

Kind Planner::reasonFor(const Ends& from, const Ends& to) const {
  if (!closures_.empty() && reaches(*data_.costs.table(request_.profile, {}), from, to))
    return Kind::closed;
  return reaches(*data_.costs.table(Profile::fastest(), {}), from, to) ? Kind::onlyWithSteps
                                                                       : Kind::unreachable;
}

bool Planner::reaches(const CostTable& costs, const Ends& from, const Ends& to) const {
  NetworkSearch search(context_, costs, stops_.size());
  search.aimAt(to);
  search.guide();
  search.startFrom(from);
  return search.next().has_value();
}

Plan Planner::nearest(int limit) {
  if (!resolveAll()) return failed();
  costs_ = data_.costs.table(request_.profile, closures_);
  NetworkSearch search(context_, *costs_, stops_.size());
  search.aimAt(stops_[1].ends);
  if (limit <= 0) search.guide();
  search.startFrom(stops_[0].ends);
  Plan plan;
  std::unordered_set<const Place*> found;
  const std::size_t wanted = static_cast<std::size_t>(std::max(limit, 0)) + 1;
  bool closes = false;
  while (plan.itineraries.size() < wanted) {
    const auto vertex = search.next();
    if (!vertex) break;
    const Paths paths{search.pathTo(*vertex)};
    for (const Place* place : stops_[1].places) {
      if (plan.itineraries.size() == wanted) break;
      if (!std::binary_search(place->nodes.begin(), place->nodes.end(), *vertex)) continue;
      if (!found.insert(place).second) continue;
      Itinerary itinerary = itineraryOf(paths);
      itinerary.visits.back().location = place->record;
      std::size_t visit = 0;
      if (closesBefore(itinerary, &visit))
        closes = true;
      else
        plan.itineraries.push_back(std::move(itinerary));
    }
  }
  if (!plan.itineraries.empty()) return plan;
  explain(1);
  if (closes) problem_->kind = Kind::closesBeforeArrival;
  return failed();
}

}  // namespace orivanta::guidance
