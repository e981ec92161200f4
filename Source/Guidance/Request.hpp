// What a route is asked for: stops, a profile, closures and a time.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/LocalTime.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::guidance {

/// A position on a floor.
struct Position {
  std::shared_ptr<Map> map;  ///< must not be null
  double x = 0.0;            ///< in the venue's units
  double y = 0.0;            ///< in the venue's units
};

/// Locations and connectors. Owns them.
using PlaceList = std::vector<std::shared_ptr<Location>>;

/// A stop of a route: any node of a location or a connector, a node, any of several nodes, the
/// nearest open one of several places, the nearest open location of a category or of a category
/// below it, or the nearest point of the walking network to a position.
using Stop = std::variant<std::shared_ptr<Location>, std::shared_ptr<Node>, NodeList, PlaceList,
                          std::shared_ptr<Category>, Position>;

/// A request for routes. A value.
struct Request {
  /// The most stops in the given order.
  static constexpr std::size_t mostStops = 50;

  /// The most stops in the best order. The order is exact for at most 14; for more, it is a good
  /// one.
  static constexpr std::size_t mostStopsInBestOrder = 202;

  /// At least two: the start, stops in between, the destination.
  std::vector<Stop> stops;
  /// Whether the stops in between may be visited in any order. Opening hours do not affect the
  /// order unless a stop closes before the arrival; then this stop is tried at earlier places.
  bool bestOrder = false;
  Profile profile;    ///< what the traveler can use
  Closures closures;  ///< what is closed
  /// The departure. A stop that is a place must be open at the arrival, or at the departure if the
  /// venue has no scale. Of a category or of several places, those that are closed for the first
  /// hour after the departure are left out. Other places that are closed at the departure are
  /// treated as closed; the start can be left.
  std::optional<LocalTime> at;
  /// Whether the hours of a stop that is a single place are ignored if there is no route otherwise.
  /// All other hours are obeyed, and so are the closures. See `Visit::isClosed`.
  bool visitsClosedStops = false;
  int alternatives = 0;  ///< the number of further routes to look for, at most 4
};

}  // namespace orivanta::guidance
