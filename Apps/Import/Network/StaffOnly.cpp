#include "Apps/Import/Network/StaffOnly.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Network/Rooms.hpp"

namespace orivanta::importer {

void weighStaffOnly(const Building& building, double level, const std::set<std::string>& walkable,
                    Draft& draft) {
  const auto isStaffOnly = [](const auto& one) { return one.access == Access::staff; };
  if (std::none_of(building.areas.begin(), building.areas.end(), isStaffOnly) &&
      std::none_of(building.lines.begin(), building.lines.end(), isStaffOnly))
    return;
  const AreaIndex walkways(building, level,
                           [&](const Area& area) { return walkable.contains(area.id); });
  std::vector<Segment> paths;
  for (const Line& line : building.lines)
    if (isStaffOnly(line) && line.kind == LineKind::path &&
        std::find(line.levels.begin(), line.levels.end(), level) != line.levels.end())
      for (std::size_t i = 0; i + 1 < line.points.size(); ++i)
        paths.push_back({line.points[i], line.points[i + 1]});
  const SegmentGrid grid(std::move(paths), 0.0);
  constexpr double besidePath = 0.4;
  for (DraftNode& node : draft.nodes) {
    if (node.kind != NodeKind::way || node.weight > 0.0) continue;
    const Area* walkway = walkways.smallestAt(node.position);
    if (walkway == nullptr ? grid.nearest(node.position, besidePath) != SegmentGrid::none
                           : isStaffOnly(*walkway))
      node.weight = staffWeight;
  }
}

}  // namespace orivanta::importer
