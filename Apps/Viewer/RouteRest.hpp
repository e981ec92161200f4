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

  /// Returns whether there is no way left.
  bool isEmpty() const { return points_.empty(); }

  /// Returns the position, or the end of the ride that the traveler is on.
  const guidance::Stop& start() const { return start_; }

  /// Returns the places in between that have not been visited.
  const std::vector<std::shared_ptr<Location>>& places() const { return places_; }

  /// Returns stops so close to each other that an itinerary in this order leads along the rest if
  /// nothing on it is closed, at most as many as a request may have. Begins with `start`.
  std::vector<guidance::Stop> closeStops() const;

  /// Returns whether a route from `start` leads along this rest.
  bool isFollowedBy(const GuidedRoute& route) const;

  /// Returns the name, for a label, of a closed connector or place on the rest. Empty if there is
  /// none, or if no sign shows its name.
  std::string closedName(const guidance::Closures& closures, const Venue& venue) const;

 private:
  struct Point {
    std::shared_ptr<Node> node;
    guidance::Stop stop;     // the place that is visited there, or the node
    bool isVisited = false;  // whether it is a stop of the route
    bool isPassed = false;   // whether a ride passes the node without a stop
  };

  void addLegs(const GuidedRoute& route, std::size_t firstLeg, std::size_t firstNode);
  void addLeg(const guidance::Leg& leg, std::size_t first);
  void visit(const guidance::Stop& stop);

  guidance::Stop start_;
  std::vector<std::shared_ptr<Location>> places_;
  std::vector<Point> points_;                        // after the start
  std::vector<std::shared_ptr<Vortex>> connectors_;  // of the rides, in order
};

}  // namespace orivanta::viewer
