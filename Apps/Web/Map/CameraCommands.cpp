#include "Apps/Web/Map/CommandTable.hpp"
#include "Apps/Web/Map/MapValues.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

void setPose(MapHost& map, const json::value& value) {
  CameraPose pose = map.camera().pose();
  const auto read = [&](const char* name, double& part) {
    part = numberOf(memberOf(value, name)).value_or(part);
  };
  read("x", pose.x);
  read("y", pose.y);
  read("z", pose.z);
  read("distance", pose.distance);
  read("tilt", pose.tilt);
  read("turn", pose.turn);
  map.whenVisible(nullptr);  // the pose replaces what waits
  motionOf(value) == CameraMotion::glide ? map.camera().glideTo(pose) : map.camera().setPose(pose);
}

void fit(MapHost& map, const json::value& value) {
  MapCamera& camera = map.camera();
  if (map.floors().whenShown([&map, value] { fit(map, value); })) return;
  // Without a size of the canvas, there is nothing to fit into.
  if (map.whenVisible([&map, value] { fit(map, value); })) return;
  if (!camera.isReady()) return;
  if (isTrue(memberOf(value, "route"))) return map.route().frame(motionOf(value));
  if (const auto place = placeOf(map.venue(), memberOf(value, "place")))
    return camera.frame({map.view().findPosition3D(*place)}, aroundPlace, motionOf(value));
  const json::value& points = memberOf(value, "points");
  if (!points.is_array()) return camera.fit(motionOf(value));
  std::vector<graphics::Vector3> positions;
  for (const json::value& each : points.get_array())
    if (const auto position = positionOf(each)) positions.push_back(*position);
  camera.frame(positions, aroundRoute(map.view()), motionOf(value));
}

void showFirstView(MapHost& map, const json::value& value) {
  if (map.floors().whenShown([&map, value] { showFirstView(map, value); })) return;
  if (map.whenVisible([&map, value] { showFirstView(map, value); })) return;
  map.style().showFirstView(motionOf(value));
}

void zoomBy(MapHost& map, const json::value& value) {
  const auto factor = numberOf(memberOf(value, "factor"));
  if (!factor || *factor <= 0) return;
  const auto x = numberOf(memberOf(value, "x"));
  const auto y = numberOf(memberOf(value, "y"));
  if (x && y)
    map.camera().zoomBy(*factor, {*x, *y}, motionOf(value));
  else
    map.camera().zoomBy(*factor, motionOf(value));
}

void panBy(MapHost& map, const json::value& value) {
  map.camera().panBy(numberOf(memberOf(value, "right")).value_or(0),
                     numberOf(memberOf(value, "up")).value_or(0), motionOf(value));
}

void turnBy(MapHost& map, const json::value& value) {
  map.camera().rotateBy(numberOf(memberOf(value, "angle")).value_or(0), motionOf(value));
}

void tiltBy(MapHost& map, const json::value& value) {
  map.camera().tiltBy(numberOf(memberOf(value, "angle")).value_or(0), motionOf(value));
}

void turnNorth(MapHost& map, const json::value& value) { map.camera().resetNorth(motionOf(value)); }

}  // namespace

std::span<const NamedCommand> cameraCommands() {
  static constexpr std::array commands{
      NamedCommand{"pose", setPose},
      NamedCommand{"fit", fit},
      NamedCommand{"firstView", showFirstView},
      NamedCommand{"north", turnNorth},
      NamedCommand{"zoomBy", zoomBy},
      NamedCommand{"panBy", panBy},
      NamedCommand{"turnBy", turnBy},
      NamedCommand{"tiltBy", tiltBy},
  };
  return commands;
}

}  // namespace orivanta::web
