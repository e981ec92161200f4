#include "Apps/Import/Connectors/Surroundings.hpp"

#include <algorithm>

#include "Apps/Import/Doors/WalkableSpace.hpp"

namespace orivanta::importer {

namespace {

constexpr double farAway = 20.0;

}  // namespace

Surroundings::Surroundings(const Building& building)
    : building_(building), heights_(heightsOf(building)) {
  for (const Door& door : building.doors)
    for (const std::string& area : door.areas) doors_[area].push_back(&door);
  for (const Line& line : building.lines)
    if ((line.kind == LineKind::path || line.kind == LineKind::ramp) && line.levels.size() == 1)
      for (const std::string& point : line.pointIds)
        paths_[point].emplace(line.levels.front(), line.source);
}

const PathsByLevel& Surroundings::pathsAt(const std::string& point) const {
  static const PathsByLevel none;
  const auto found = paths_.find(point);
  return found == paths_.end() ? none : found->second;
}

const Space& Surroundings::space(double level) const {
  std::unique_ptr<Space>& space = spaces_[level];
  if (!space) space = std::make_unique<Space>(walkableSpace(building_, level));
  return *space;
}

std::vector<const Door*> Surroundings::doorsOf(const Area& area) const {
  const auto found = doors_.find(area.id);
  return found == doors_.end() ? std::vector<const Door*>() : found->second;
}

std::vector<double> Surroundings::neighbors(double level, int steps) const {
  for (std::size_t i = 0; i < heights_.size(); ++i) {
    if (std::find(heights_[i].begin(), heights_[i].end(), level) == heights_[i].end()) continue;
    const auto at = static_cast<std::ptrdiff_t>(i) + steps;
    if (at >= 0 && at < static_cast<std::ptrdiff_t>(heights_.size()))
      return heights_[static_cast<std::size_t>(at)];
  }
  return {};
}

double Surroundings::distance(double level, Point point) const {
  const Space& here = space(level);
  return here.contains(point) ? 0.0 : here.clearance(point, farAway);
}

bool Surroundings::isInRoom(const Spot& spot) const {
  return std::any_of(building_.areas.begin(), building_.areas.end(), [&](const Area& area) {
    return area.level == spot.level &&
           (area.kind == AreaKind::room || area.kind == AreaKind::unknown) &&
           contains(area.shape, spot.position);
  });
}

}  // namespace orivanta::importer
