// Plans routes through a venue and derives instructions from them.
//
//   auto guide = guidance::Guide::make(*venue);
//   guidance::Plan plan = guide->plan({.stops = {entrance, shop}});
//   if (plan.problem) ...
//   for (const auto& step : guide->steps(plan.itineraries.front()))
//     std::cout << narrator.text(...);
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Plan.hpp"
#include "Source/Guidance/Request.hpp"
#include "Source/Guidance/Snap.hpp"
#include "Source/Guidance/Step.hpp"

namespace orivanta::guidance {

/// The costs of routes in milliseconds, by start and then by destination; -1 where there is none.
using CostRows = std::vector<std::vector<std::int64_t>>;

/// Plans exact cheapest routes by expected time. Immutable: it keeps what it needs of the venue and
/// is not affected by the next load. Later changes to the records do not change routes.
/// Thread-safe: any number of threads may use one guide. `steps` reads the records, among others
/// their names, so no thread may change them at the same time.
///
/// The cost of a walk is its time; the `multiplierWeight` of the node that an edge enters
/// multiplies it, and its `constantWeight` is added as a length in the venue's units. Values that
/// are negative or not finite have no effect. The cost of a ride is its time; the weights of
/// connectors have no effect. Leaving a room costs 30 s unless the route, or its part between two
/// stops, begins there, so a route leads through a room that is not a stop only if all other ways
/// take much longer. Without `unitsPerMetre`, a unit counts as a meter.
class ORIVANTA_API Guide {
 public:
  /// Creates a guide from all nodes and connectors of a loaded venue, whether or not the venue was
  /// loaded for accessible routes. Walking edges are those of the venue's `navigationGraph`. Nodes
  /// with coordinates that are not between -1e9 and 1e9 are left out. Returns null if the venue is
  /// not loaded. Any thread, as long as no thread loads the venue or changes its records meanwhile.
  static std::shared_ptr<const Guide> make(const Venue& venue);
  ~Guide();
  Guide(const Guide&) = delete;
  Guide& operator=(const Guide&) = delete;

  /// Finds routes. If the search is canceled, the plan has the problem `unreachable`.
  Plan plan(const Request& request, const foundation::CancellationToken& token = {}) const;

  /// Finds the route to the nearest open one of several places, or of those of a category, by cost:
  /// a request with two stops. `limit` further places, at most 1,000, are returned as alternatives,
  /// by cost. If the search is canceled, the plan has the problem `unreachable`.
  Plan nearest(const Stop& from, const Stop& to, const Profile& profile = {},
               const Closures& closures = {}, std::optional<LocalTime> at = std::nullopt,
               int limit = 0, const foundation::CancellationToken& token = {}) const;

  /// The most costs, starts times destinations, that one call of `costs` computes.
  static constexpr std::size_t mostCosts = 4'000'000;

  /// The most starts of one call of `costs`.
  static constexpr std::size_t mostCostStarts = 10'000;

  /// The most destinations of one call of `costs`.
  static constexpr std::size_t mostCostDestinations = 100'000;

  /// The most nodes of all starts, and of all destinations, of one call of `costs`.
  static constexpr std::size_t mostCostNodes = 4'000'000;

  /// Returns the costs in milliseconds from each start (row) to each destination (column), or -1 if
  /// there is no way or a stop is not known. The rows are computed concurrently; each takes a
  /// search to all destinations, time in proportion to their nodes, and 8 bytes per destination. If
  /// the search is canceled, the costs that were not found are -1. Fails if one of the four limits
  /// above is exceeded.
  foundation::Result<CostRows> costs(const std::vector<Stop>& from, const std::vector<Stop>& to,
                                     const Profile& profile = {}, const Closures& closures = {},
                                     const foundation::CancellationToken& token = {}) const;

  /// Returns for each start whether there is a way to any of the destinations; false if the start
  /// is not known. Takes a single search, however many stops there are, and time in proportion to
  /// the number of their nodes. If the search is canceled, all values are false.
  std::vector<bool> leadToAny(const std::vector<Stop>& from, const std::vector<Stop>& to,
                              const Profile& profile = {}, const Closures& closures = {},
                              const foundation::CancellationToken& token = {}) const;

  /// Returns the point of the walking network next to a position on its floor. Returns nothing if
  /// the floor has no network.
  std::optional<Snap> snap(const Position& position) const;

  /// Describes a given path: consecutive nodes must be connected. The places may be null. Returns
  /// nothing if the path is empty or two consecutive nodes are not connected.
  std::optional<Itinerary> itinerary(const NodeList& path,
                                     const std::shared_ptr<Location>& departFrom = nullptr,
                                     const std::shared_ptr<Location>& arriveAt = nullptr,
                                     const Profile& profile = {}) const;

  /// Returns how many of the venue's units are a meter; 1 if the venue does not state it.
  double unitsPerMeter() const;

  /// Returns the name of a stop for texts: that of a category or place, or what the sign of a
  /// connector shows. Empty if no sign shows the name, for nodes, several places and positions.
  std::string spokenName(const Stop& stop) const;

  /// Returns the instructions for an itinerary of this guide. Empty if it is not usable, or if the
  /// work is canceled.
  std::vector<Step> steps(const Itinerary& itinerary,
                          const foundation::CancellationToken& token = {}) const;

 private:
  class Implementation;
  explicit Guide(std::unique_ptr<Implementation> implementation);
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace orivanta::guidance
