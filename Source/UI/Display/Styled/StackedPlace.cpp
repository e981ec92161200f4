#include "Source/UI/Display/Styled/StackedPlace.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/ScenePosition.hpp"

namespace orivanta {

namespace {

graphics::Vector3 positionOn(const Map& floor, const Location& place) {
  for (const auto& polygon : place.polygons) {
    if (polygon->map.get() != &floor) continue;
    for (const auto& shape : floor.mapObject->children())
      if (shape->name() == polygon->id && shape->geometry()) return shape->boundingBox().center();
  }
  for (const auto& node : place.nodes)
    if (node->map.get() == &floor) return scenePosition(*node);
  return floor.mapObject->boundingBox().center();
}

}  // namespace

std::optional<RouteMark> stackedMark(const MapView& view, const std::shared_ptr<Location>& place,
                                     std::string name) {
  FloorList floors = floorsOf(*place);
  std::erase_if(floors, [](const auto& floor) { return !floor->mapObject; });
  if (floors.empty()) return std::nullopt;
  const auto& current = view.currentMap();
  const bool isHere = std::find(floors.begin(), floors.end(), current) != floors.end();
  const auto& floor = isHere ? current : floors.front();
  return RouteMark{.form = RouteMark::Form::end,
                   .at = {isHere ? view.findPosition3D(*place) : positionOn(*floor, *place), floor},
                   .text = std::move(name),
                   .place = place};
}

}  // namespace orivanta
