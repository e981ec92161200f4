// Answers one request.
#pragma once

#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Network/NetworkSearch.hpp"
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

  /// Finds the routes from the first stop to the nearest places of the second, a category.
  Plan nearest(int limit);

 private:
  using Paths = std::vector<NetworkPath>;

  bool resolve(std::size_t stop);
  bool resolveAll();
  std::optional<Paths> search(const CostTable& costs, std::size_t* failed) const;
  std::optional<Itinerary> best(Paths& paths);
  void orderStops(const CostTable& costs);
  void addAlternatives(Plan& plan, const Paths& best) const;
  Itinerary itineraryOf(const Paths& paths) const;
  bool closesBefore(const Itinerary& itinerary, std::size_t* visit) const;
  void explain(std::size_t place);
  Problem::Kind reasonFor(const Ends& from, const Ends& to) const;
  bool reaches(const CostTable& costs, const Ends& from, const Ends& to) const;
  Plan failed() const { return {{}, problem_}; }

  const GuideData& data_;
  const Request& request_;
  Closures closures_;  // with the places that are closed at the time
  SearchContext context_;
  StopResolver resolver_;
  std::vector<ResolvedStop> stops_;
  std::vector<std::unordered_set<const PlaceTable::Place*>> excluded_;  // per stop
  std::vector<std::size_t> order_;
  std::shared_ptr<const CostTable> costs_;
  std::optional<Problem> problem_;
};

}  // namespace orivanta::guidance
