// What is left of a route for a traveler who is on the way.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::viewer {

/// Where a traveler is on a route.
struct RouteProgress {
  guidance::Position position;
  std::size_t leg = 0;   ///< the index of the current leg
  double legMeters = 0;  ///< the walk on this leg so far
};

/// The part of a route that a traveler has not walked yet, without the ride that the traveler is
/// on. Owns its records.
class RouteRest {
 public:
  RouteRest(const GuidedRoute& route, const RouteProgress& progress);

  /// The whole route, before its start.
  explicit RouteRest(const GuidedRoute& route);

  /// Returns the position, or the end of the ride that the traveler is on.
  const guidance::Stop& start() const { return start_; }

  /// Returns the places in between that have not been visited.
  const std::vector<std::shared_ptr<Location>>& places() const { return places_; }

  /// Returns whether nothing on the rest is closed. Opening hours do not count. Takes a short
  /// search for each node, and one of the whole network if a node is closed.
  bool isOpen(const guidance::Guide& guide, const guidance::Profile& profile,
              const guidance::Closures& closures) const;

  /// Returns the name, for a label, of a closed connector or place on the rest. Empty if there is
  /// none, or if no sign shows its name.
  std::string closedName(const guidance::Closures& closures, const Venue& venue) const;

 private:
  void addLegs(const GuidedRoute& route, std::size_t firstLeg, std::size_t firstNode);

  guidance::Stop start_;
  NodeList nodes_;                                   // after the start
  std::vector<std::shared_ptr<Vortex>> connectors_;  // of the rides, in order
  std::vector<std::shared_ptr<Location>> places_;
  std::shared_ptr<Location> destination_;  // may be null
};

}  // namespace orivanta::viewer
