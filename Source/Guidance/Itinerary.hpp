// A route in legs: walks and rides.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::guidance {

/// A part of a route: a walk on one floor or a ride on one connector. Owns its records.
struct Leg {
  /// The kinds of legs.
  enum class Kind {
    walk,  ///< on foot along edges of the walking network
    ride   ///< on a connector
  };

  Kind kind = Kind::walk;             ///< walk or ride
  NodeList nodes;                     ///< never empty; the last node begins the next leg
  std::shared_ptr<Map> map;           ///< the floor of the first node
  double meters = 0.0;                ///< the walked length; 0 for a ride
  double seconds = 0.0;               ///< the expected time, without penalties
  std::shared_ptr<Vortex> connector;  ///< null for a walk
  ConnectorKind connectorKind = ConnectorKind::other;  ///< for a ride
  std::string sign;      ///< for a ride: the name on the connector's sign; empty if there is none
  int floorsPassed = 0;  ///< for a ride: the number of floors up, negative if down
};

/// The arrival at a stop of the request, or the departure from the first one.
struct Visit {
  std::size_t stop = 0;                ///< the index of the stop in the request
  std::size_t leg = 0;                 ///< the number of legs before the visit
  std::shared_ptr<Location> location;  ///< the place; null for a node or a position
  bool isClosed = false;               ///< whether the place is closed then, by its opening hours
};

/// A route from the first stop to the last. Owns its records; stays valid after the next load.
struct ORIVANTA_API Itinerary {
  /// The legs. There is at least one between two visits; it has one node if both are at that node.
  std::vector<Leg> legs;
  std::vector<Visit> visits;          ///< in the order of the route, one per stop
  std::int64_t costMilliseconds = 0;  ///< what the search minimized: the time with penalties
  bool hasScale = false;  ///< whether meters and seconds are known: the venue has `unitsPerMetre`

  /// Returns whether instructions can be made: there are legs, each has nodes, and none of these is
  /// null. True for the itineraries of a guide.
  bool isUsable() const;

  /// Returns the walked length. In the venue's units if `hasScale` is false.
  double meters() const;

  /// Returns the expected time. Meaningless if `hasScale` is false.
  double seconds() const;

  /// Returns the nodes of all legs, each leg's first node omitted if it ends the leg before.
  NodeList path() const;
};

}  // namespace orivanta::guidance
