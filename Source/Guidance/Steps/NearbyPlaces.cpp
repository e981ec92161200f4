#include "Source/Guidance/Steps/NearbyPlaces.hpp"

#include <algorithm>
#include <cmath>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

// Finds the point of the line next to an entrance, on the segments that meet at an index.
void project(NearbyPlace& place, const WalkLine& line, std::size_t index) {
  double nearest = length(place.entrance - line.point(index));
  place.along = line.along(index);
  for (std::size_t end : {index, index + 1}) {
    if (end == 0 || end >= line.size()) continue;
    const PlanePoint begin = line.point(end - 1);
    const PlanePoint segment = line.point(end) - begin;
    const double distance = distanceToSegment(place.entrance, begin, line.point(end));
    if (distance > nearest) continue;
    nearest = distance;
    place.along = line.along(end - 1) +
                  shareOnSegment(place.entrance, begin, line.point(end)) * length(segment);
  }
  const PlanePoint heading = line.at(place.along + 3.0) - line.at(place.along - 3.0);
  place.beside = cross(heading, place.entrance - line.at(place.along)) < 0.0 ? -nearest : nearest;
}

}  // namespace

NearbyPlaces::NearbyPlaces(const WalkLine& line, const Surroundings& surroundings,
                           const foundation::CancellationToken& token) {
  std::vector<const Node*> nodes;
  for (std::size_t i = 0; i < line.size(); ++i) {
    nodes.push_back(line.node(i).get());
    for (const auto& place : surroundings.placesAt(*nodes.back()))
      if (!place->polygons.empty()) entered_.insert(place.get());
  }
  for (const auto& reached : nodesOnFoot(surroundings.network(), nodes, farthestOnFoot))
    add(reached, line, surroundings, token);
  foundation::stableSort(places_.begin(), places_.end(), [](const auto& left, const auto& right) {
    return left.along < right.along;
  });
}

void NearbyPlaces::add(const ReachedNode& reached, const WalkLine& line,
                       const Surroundings& surroundings,
                       const foundation::CancellationToken& token) {
  if (reached.node->map != line.node(reached.start)->map) return;
  for (const auto& place : surroundings.placesAt(*reached.node)) {
    if (token.isCanceled()) return;
    if (entered_.contains(place.get())) continue;
    NearbyPlace nearby;
    nearby.place = place;
    if (!surroundings.hasOwnName(*place)) {
      nearby.category = surroundings.soleKind(*place, *reached.node);
      if (!nearby.category) continue;
    }
    nearby.entrance = {reached.node->x * surroundings.metersPerUnit(),
                       reached.node->y * surroundings.metersPerUnit()};
    if (!std::isfinite(nearby.entrance.x) || !std::isfinite(nearby.entrance.y)) continue;
    project(nearby, line, reached.start);
    nearby.onFoot = reached.meters;
    places_.push_back(std::move(nearby));
  }
}

std::span<const NearbyPlace> NearbyPlaces::between(double begin, double end) const {
  const auto isBefore = [](const NearbyPlace& place, double along) { return place.along < along; };
  const auto first = std::lower_bound(places_.begin(), places_.end(), begin, isBefore);
  const auto last = std::lower_bound(first, places_.end(), end, isBefore);
  return {places_.data() + (first - places_.begin()), static_cast<std::size_t>(last - first)};
}

}  // namespace orivanta::guidance
