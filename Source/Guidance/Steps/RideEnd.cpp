#include "Source/Guidance/Steps/RideEnd.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

constexpr double shortest = 3.0;       // meters in the plane, for a direction
constexpr double straightSlope = 1.4;  // the length in the plane of straight stairs, per rise
constexpr double shortestWalk = 0.5;   // meters

}  // namespace

Side sideAfter(const Leg& ride, const WalkLine& walk, double reach, double metersPerUnit) {
  if (ride.kind != Leg::Kind::ride || ride.connectorKind == ConnectorKind::lift ||
      ride.connectorKind == ConnectorKind::other || ride.nodes.size() < 2 || reach < shortestWalk)
    return Side::none;
  const Node& from = *ride.nodes[ride.nodes.size() - 2];
  const Node& to = *ride.nodes.back();
  const PlanePoint heading{(to.x - from.x) * metersPerUnit, (to.y - from.y) * metersPerUnit};
  const double rise =
      from.map && to.map ? (to.map->elevation - from.map->elevation) * metersPerUnit : 0.0;
  if (!(length(heading) >= std::max(shortest, straightSlope * std::abs(rise)))) return Side::none;
  const double degrees = degreesBetween(heading, walk.at(reach) - walk.point(0));
  if (!(std::abs(degrees) >= 60.0)) return Side::none;
  if (std::abs(degrees) >= 150.0) return Side::behind;
  return degrees > 0.0 ? Side::left : Side::right;
}

}  // namespace orivanta::guidance
