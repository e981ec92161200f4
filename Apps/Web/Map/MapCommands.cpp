#include "Apps/Web/Map/MapCommands.hpp"

#include "Apps/Web/Map/CommandTable.hpp"
#include "Apps/Web/QueryReading.hpp"
#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

// Returns null if there is no such command.
Command commandNamed(std::string_view name) {
  for (const auto& commands : {lookCommands(), cameraCommands(), markCommands()})
    for (const NamedCommand& each : commands)
      if (each.name == name) return each.command;
  return nullptr;
}

json::object poseJson(const CameraPose& pose) {
  return {{"x", pose.x},       {"y", pose.y},      {"z", pose.z}, {"distance", pose.distance},
          {"tilt", pose.tilt}, {"turn", pose.turn}};
}

json::object stateOf(MapHost& map) {
  const CameraPose pose = map.camera().pose();
  return {{"floor", map.venue().indexOf(map.view().currentMap())},
          {"awaited", map.venue().indexOf(map.floors().awaited())},
          {"stacked", map.style().isStacked()},
          {"follow", map.style().isFollowing()},
          {"loaded", map.floors().isLoaded()},
          {"ready", map.style().isReady()},
          {"pose", poseJson(pose)},
          {"target", poseJson(map.camera().target())},
          {"pointsPerUnit", 1 / (pose.distance * map.camera().lens().slopePerPoint())}};
}

}  // namespace

json::object carryOut(MapHost& map, std::string_view text) {
  const json::object requested = objectIn(text);
  for (const auto& [name, value] : requested)
    if (const Command command = commandNamed(name)) command(map, value);
  map.floors().check();
  return stateOf(map);
}

graphics::Point pointOf(MapHost& map, graphics::Vector3 position) {
  return map.view().findPositionCameraViewport(position);
}

}  // namespace orivanta::web
