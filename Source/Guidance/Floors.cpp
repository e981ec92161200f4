#include "Source/Guidance/Floors.hpp"

#include <algorithm>

#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/Sorting.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"

namespace orivanta {

FloorList floorsFromTop(FloorList floors) {
  foundation::stableSort(floors.begin(), floors.end(), [](const auto& left, const auto& right) {
    return left->elevation > right->elevation;
  });
  return floors;
}

FloorList floorsOf(const Location& location) {
  FloorList floors;
  const auto add = [&](const std::shared_ptr<Map>& floor) {
    if (std::find(floors.begin(), floors.end(), floor) == floors.end()) floors.push_back(floor);
  };
  for (const auto& node : location.nodes) add(node->map);
  for (const auto& polygon : location.polygons) add(polygon->map);
  return floors;
}

bool isOnFloor(const Location& location, const Map& floor) {
  const auto isHere = [&](const auto& part) { return part->map.get() == &floor; };
  return std::any_of(location.nodes.begin(), location.nodes.end(), isHere) ||
         std::any_of(location.polygons.begin(), location.polygons.end(), isHere);
}

std::shared_ptr<Map> floorNamed(const FloorList& floors, std::string_view text) {
  for (const auto& floor : floors)
    if (floor->id == text || floor->shortName == text || floor->name == text) return floor;
  const std::string folded = caseFolded(text);
  for (const auto& floor : floors)
    if (caseFolded(floor->shortName) == folded || caseFolded(floor->name) == folded) return floor;
  return nullptr;
}

std::string floorLabel(const Map& floor) {
  if (!floor.shortName.empty()) return foundation::label(floor.shortName);
  return foundation::label(floor.name.empty() ? floor.id.value_or("") : floor.name);
}

std::string floorLabels(const FloorList& floors) {
  std::string labels;
  for (const auto& floor : floors) labels += (labels.empty() ? "" : ", ") + floorLabel(*floor);
  return labels;
}

std::string floorName(const Map& floor) {
  return floor.name.empty() ? floorLabel(floor) : foundation::label(floor.name);
}

}  // namespace orivanta
