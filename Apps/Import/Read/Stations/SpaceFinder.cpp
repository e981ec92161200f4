#include "Apps/Import/Read/Stations/SpaceFinder.hpp"

#include <algorithm>
#include <vector>

#include "Apps/Import/Read/Stations/StationCodes.hpp"

namespace orivanta::importer {

bool SpaceFinder::spend(std::size_t effort) {
  isExhausted_ = isExhausted_ || effort > effortLeft_;
  if (!isExhausted_) effortLeft_ -= effort;
  return !isExhausted_;
}

const AreaIndex* SpaceFinder::indexOf(double level) {
  if (const auto known = indices_.find(level); known != indices_.end()) return &known->second;
  if (!spend(building_.areas.size())) return nullptr;
  const Area* end = building_.areas.data() + spaces_;
  return &indices_
              .try_emplace(level, building_, level, [end](const Area& area) { return &area < end; })
              .first->second;
}

std::optional<std::size_t> SpaceFinder::find(const Spot& spot,
                                             const std::function<bool(const Area&)>& fits) {
  const AreaIndex* index = indexOf(spot.level);
  if (index == nullptr) return std::nullopt;
  for (const Area* area : index->near(spot.position, 0.0))
    if (spend(1) && fits(*area) && contains(*area, spot.position))
      return static_cast<std::size_t>(area - building_.areas.data());
  return std::nullopt;
}

bool SpaceFinder::contains(const Area& area, Point position) {
  const auto inside = [&](const Outline& ring) {
    return spend(ring.size()) && package::contains(ring, position);
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
