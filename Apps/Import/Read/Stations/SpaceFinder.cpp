#include "Apps/Import/Read/Stations/SpaceFinder.hpp"

#include <algorithm>
#include <limits>

#include "Apps/Import/Read/Stations/StationCodes.hpp"

namespace orivanta::importer {

SpaceFinder::SpaceFinder(const std::vector<Area>& areas) : areas_(areas) {
  constexpr double far = std::numeric_limits<double>::max();
  for (const Area& area : areas) {
    Box& box = boxes_.emplace_back(Box{{far, far}, {-far, -far}});
    for (const Polygon& polygon : area.shape)
      for (const Point point : polygon.outer) {
        box.least = {std::min(box.least.x, point.x), std::min(box.least.y, point.y)};
        box.greatest = {std::max(box.greatest.x, point.x), std::max(box.greatest.y, point.y)};
      }
  }
}

std::optional<std::size_t> SpaceFinder::find(const Spot& spot,
                                             const std::function<bool(const Area&)>& fits) {
  if (boxes_.size() > effort_) return std::nullopt;
  effort_ -= boxes_.size();
  for (std::size_t each = 0; each < boxes_.size(); ++each) {
    const Box& box = boxes_[each];
    const Point at = spot.position;
    if (at.x < box.least.x || at.x > box.greatest.x || at.y < box.least.y ||
        at.y > box.greatest.y || areas_[each].level != spot.level || !fits(areas_[each]))
      continue;
    if (contains(areas_[each], at)) return each;
  }
  return std::nullopt;
}

bool SpaceFinder::contains(const Area& area, Point position) {
  const auto inside = [&](const Outline& ring) {
    if (ring.size() > effort_) return false;
    effort_ -= ring.size();
    return package::contains(ring, position);
  };
  return std::any_of(area.shape.begin(), area.shape.end(), [&](const Polygon& polygon) {
    return inside(polygon.outer) &&
           std::none_of(polygon.holes.begin(), polygon.holes.end(), inside);
  });
}

void findHalls(Building& building, SpaceFinder& finder) {
  constexpr int fewestNodes = 3;
  std::vector<int> nodes(building.areas.size());
  for (const SourceNode& node : building.sourceNodes)
    if (const auto found =
            finder.find(node.spot, [](const Area& area) { return mayBeHall(area.category); }))
      ++nodes[*found];
  for (std::size_t each = 0; each < building.areas.size(); ++each)
    if (nodes[each] >= fewestNodes) building.areas[each].kind = AreaKind::walkway;
}

}  // namespace orivanta::importer
