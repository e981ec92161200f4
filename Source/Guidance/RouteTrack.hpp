// A route as one line, on which a position has a place.
// Private header.
#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::guidance {

/// Walks have their length in meters, rides a nominal length. Immutable. The itinerary must outlive
/// it, because it refers to the floors of its nodes.
class RouteTrack {
 public:
  /// A place on the track.
  struct Projection {
    double along = 0.0;
    double distance = std::numeric_limits<double>::infinity();  ///< in meters
  };

  /// The track is empty if the itinerary is not usable.
  RouteTrack(const Itinerary& itinerary, double unitsPerMeter);

  double length() const { return length_; }

  std::size_t legs() const { return starts_.size(); }

  /// Returns the position of a node of a leg along the track. Beyond the last leg, this is the end.
  double at(std::size_t leg, std::size_t node) const;

  /// Finds the place on the track for a position. Among the places within `reach` meters of the
  /// position, prefers those near the last place. The distance is infinite if there is none.
  Projection nearest(const Position& position, double last, double reach) const;

 private:
  struct Point {
    double x, y;
  };
  struct Entry {
    const Map* map;  // null if the node has none
    Point point;
    double along;
    bool continues;  // whether the entry before belongs to the same leg
    bool walk;
  };

  static bool isBeside(const Entry& from, const Entry& to, const Map& map);
  static double nearestShare(Point from, Point to, Point point);
  double distance(Point one, Point other) const;
  double length(const Node& from, const Node& to) const;
  void add(const Leg& leg);

  double unitsPerMeter_;
  double length_ = 0.0;
  std::vector<Entry> nodes_;
  std::vector<std::size_t> starts_;  // of each leg, in `nodes_`
};

}  // namespace orivanta::guidance
