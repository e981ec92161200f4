#include "Source/Guidance/FloorVisits.hpp"

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta {

namespace {

const char* arrowFor(RideWay way) {
  switch (way) {
    case RideWay::up:
      return "\u2191 ";
    case RideWay::down:
      return "\u2193 ";
    default:
      return "\u2192 ";
  }
}

}  // namespace

std::vector<FloorVisit> floorVisits(const NodeList& path) {
  std::vector<FloorVisit> visits;
  for (std::size_t first = 0; first < path.size();) {
    std::size_t last = first;
    while (last + 1 < path.size() && path[last + 1]->map == path[first]->map) ++last;
    if (last > first || first == 0 || last + 1 == path.size())
      visits.push_back({path[first]->map, first, last});
    first = last + 1;
  }
  return visits;
}

FloorList floorsAlong(const NodeList& path) {
  FloorList floors;
  for (const auto& node : path)
    if (floors.empty() || floors.back() != node->map) floors.push_back(node->map);
  return floors;
}

RideWay rideWay(const Map& from, const Map& to) {
  if (to.elevation == from.elevation) return RideWay::level;
  return to.elevation < from.elevation ? RideWay::down : RideWay::up;
}

std::vector<FloorChange> floorChanges(const NodeList& path) {
  std::vector<FloorChange> changes;
  for (std::size_t i = 1; i < path.size(); ++i) {
    if (path[i - 1]->map == path[i]->map) continue;
    if (changes.empty() || changes.back().end != i - 1) changes.push_back({i - 1, i});
    changes.back().end = i;
  }
  return changes;
}

std::string floorChangeMark(const Map& from, const Map& to) {
  return arrowFor(rideWay(from, to)) + floorLabel(to);
}

}  // namespace orivanta
