// Answers one request.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Network/NetworkSearch.hpp"
#include "Source/Guidance/Network/PathMeasure.hpp"
#include "Source/Guidance/Network/SequenceSearch.hpp"
#include "Source/Guidance/Network/StopResolver.hpp"
#include "Source/Guidance/Plan.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::guidance {

/// The arguments must outlive it.
class Planner {
 public:
  Planner(const GuideData& data, const Request& request,
          const foundation::CancellationToken& token);

  /// Finds the best route and the alternatives.
  Plan plan();

  /// Finds the routes from the first stop to the nearest places of the second. There is at most one
  /// if that has no places.
  Plan nearest(int limit);

 private:
  using Index = GuideNetwork::Index;
  using Order = std::vector<std::size_t>;
  using Paths = std::vector<NetworkPath>;

  bool resolveAll();
  Plan routes();
  std::vector<Index> closedArcs() const;
  Order bestOrder(const CostTable& costs) const;
  std::optional<Paths> search(const CostTable& costs, const Order& order, const Arrivals* arrivals,
                              std::size_t* failed) const;
  std::optional<Paths> best(const Arrivals* arrivals);
  std::optional<Paths> bestToClosedStops(const Arrivals* arrivals);
  std::optional<Paths> withAnEarlierStop(std::size_t place, const Arrivals* arrivals);
  bool isOpenAfter(const PlaceTable::Place& place, double seconds) const;
  bool accepts(std::size_t stop, Index vertex, double seconds);
  const PlaceTable::Place* placeAt(std::size_t stop, Index vertex, double seconds) const;
  Itinerary itineraryOf(const Paths& paths) const;
  PathMeasure measureTo(std::size_t place) const;
  double secondsOf(const Paths& paths, std::size_t place) const;
  void addAlternatives(Plan& plan, const Paths& best, const Arrivals* arrivals) const;
  void explain(std::size_t place);
  std::optional<std::size_t> failingStop(const CostTable& costs, Order order) const;
  Problem reasonFor(const Order& order, std::size_t place) const;
  Plan failed() const { return {{}, problem_}; }

  const GuideData& data_;
  const Request& request_;
  SearchContext context_;
  StopResolver resolver_;
  std::vector<ResolvedStop> stops_;
  std::vector<std::optional<Problem::Kind>> closing_;  // per stop, if a place closes
  bool ignoresStopHours_ = false;                      // see `Request::visitsClosedStops`
  Order order_;
  std::shared_ptr<const CostTable> costs_;
  std::optional<Problem> problem_;
};

}  // namespace orivanta::guidance
