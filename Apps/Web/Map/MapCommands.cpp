#include "Apps/Web/Map/MapCommands.hpp"

#include <array>
#include <boost/json/array.hpp>
#include <utility>

#include "Apps/Web/Map/MapValues.hpp"
#include "Apps/Web/QueryReading.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

void setLook(MapHost& map, const json::value& value) {
  if (!value.is_object()) return;
  MapLook look = map.look();
  look.update(value.get_object());
  map.setLook(look);
}

void setFloor(MapHost& map, const json::value& value) {
  if (const auto floor = floorOf(map.venue(), value)) map.floors().show(floor);
}

// --- Camera

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
  motionOf(value) == CameraMotion::glide ? map.camera().glideTo(pose) : map.camera().setPose(pose);
}

void fit(MapHost& map, const json::value& value) {
  MapCamera& camera = map.camera();
  if (map.floors().whenShown([&map, value] { fit(map, value); })) return;
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
  map.style().showFirstView(motionOf(value));
}

void zoomBy(MapHost& map, const json::value& value) {
  const graphics::Size size = map.view().bounds().size;
  const auto factor = numberOf(memberOf(value, "factor"));
  if (!factor || *factor <= 0) return;
  map.camera().zoomBy(*factor,
                      {numberOf(memberOf(value, "x")).value_or(size.width / 2),
                       numberOf(memberOf(value, "y")).value_or(size.height / 2)},
                      motionOf(value));
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

void setInsets(MapHost& map, const json::value& value) {
  const auto inset = [&](const char* name) { return numberOf(memberOf(value, name)).value_or(0); };
  map.camera().setInsets({inset("left"), inset("top"), inset("right"), inset("bottom")});
  view::View::setNeedsFrame();
}

void setCovered(MapHost& map, const json::value& value) {
  std::vector<graphics::Rect> covered;
  if (value.is_array())
    for (const json::value& each : value.get_array())
      if (const auto sides = numbersOf(each); sides.size() == 4)
        covered.push_back({{sides[0], sides[1]}, {sides[2], sides[3]}});
  map.setCovered(std::move(covered));
}

// --- Routes

void setRoute(MapHost& map, const json::value& value) {
  ShownRoute route;
  const auto& nodes = *map.venue().venue().nodes;
  for (const double index : numbersOf(memberOf(value, "nodes")))
    if (index >= 0 && index < static_cast<double>(nodes.size()))
      route.path.push_back(nodes[static_cast<std::size_t>(index)]);
  route.from = placeOf(map.venue(), memberOf(value, "from"));
  route.to = placeOf(map.venue(), memberOf(value, "to"));
  route.color = colorOf(memberOf(value, "color"));
  if (const json::value& stops = memberOf(value, "stops"); stops.is_array())
    for (const json::value& stop : stops.get_array())
      if (const auto index = numberOf(memberOf(stop, "index")); index && *index >= 0)
        route.stops.push_back(
            {static_cast<std::size_t>(*index), placeOf(map.venue(), memberOf(stop, "place"))});
  map.route().set(std::move(route));
}

void setPassed(MapHost& map, const json::value& value) {
  const auto floor = floorOf(map.venue(), memberOf(value, "floor"));
  const auto position = positionOf(memberOf(value, "position"));
  floor&& position ? map.route().setPassed(*floor, *position) : map.route().clearPassed();
}

// --- Marks

void select(MapHost& map, const json::value& value) {
  map.style().setSelected(placeOf(map.venue(), value));
}

void setClosures(MapHost& map, const json::value& value) {
  std::vector<std::string> closed;
  if (value.is_array())
    for (const json::value& each : value.get_array()) closed.push_back(textOf(each));
  map.style().setClosures(guidance::Closures(std::move(closed)));
}

void highlight(MapHost& map, const json::value& value) {
  const auto place = placeOf(map.venue(), memberOf(value, "place"));
  const auto color = colorOf(memberOf(value, "color"));
  if (!place || !color) return;
  for (const auto& polygon : place->polygons) map.view().highlightPolygon(polygon, *color);
}

void clearHighlights(MapHost& map, const json::value& /*value*/) {
  map.view().clearHighlightedPolygons();
}

void setMarker(MapHost& map, const json::value& value) {
  const auto number = numberOf(memberOf(value, "number"));
  MapMarker marker;
  marker.place = placeOf(map.venue(), memberOf(value, "place"));
  marker.floor = floorOf(map.venue(), memberOf(value, "floor"));
  const auto position = positionOf(memberOf(value, "position"));
  if (!number || (!marker.place && !position)) return;
  marker.position = position.value_or(graphics::Vector3(0.0F));
  marker.text = textOf(memberOf(value, "text"));
  marker.color = colorOf(memberOf(value, "color"));
  map.markers().set(static_cast<int>(*number), std::move(marker));
}

void removeMarker(MapHost& map, const json::value& value) {
  map.markers().remove(static_cast<int>(numberOf(value).value_or(0)));
}

void setPosition(MapHost& map, const json::value& value) {
  const auto floor = floorOf(map.venue(), memberOf(value, "floor"));
  const auto at = positionOf(memberOf(value, "position"));
  if (!floor || !at) return map.style().setPosition(std::nullopt);
  map.style().setPosition(
      MapPosition{.floor = floor,
                  .x = at->x,
                  .y = at->y,
                  .z = at->z,
                  .accuracyMeters = numberOf(memberOf(value, "accuracy")).value_or(0),
                  .heading = numberOf(memberOf(value, "heading"))});
}

using Command = void (*)(MapHost& map, const json::value& value);

constexpr std::array<std::pair<std::string_view, Command>, 24> commands{{
    {"look", setLook},
    {"floor", setFloor},
    {"stacked", [](MapHost& map, const json::value& on) { map.style().setStacked(isTrue(on)); }},
    {"reload",
     [](MapHost& map, const json::value& /*value*/) { map.load(map.view().currentMap()); }},
    {"pose", setPose},
    {"fit", fit},
    {"firstView", showFirstView},
    {"north",
     [](MapHost& map, const json::value& value) { map.camera().resetNorth(motionOf(value)); }},
    {"zoomBy", zoomBy},
    {"panBy", panBy},
    {"turnBy", turnBy},
    {"tiltBy", tiltBy},
    {"insets", setInsets},
    {"covered", setCovered},
    {"route", setRoute},
    {"passed", setPassed},
    {"select", select},
    {"closures", setClosures},
    {"highlight", highlight},
    {"clearHighlights", clearHighlights},
    {"marker", setMarker},
    {"removeMarker", removeMarker},
    {"position", setPosition},
    {"follow", [](MapHost& map, const json::value& on) { map.style().setFollowing(isTrue(on)); }},
}};

json::object poseJson(const CameraPose& pose) {
  return {{"x", pose.x},       {"y", pose.y},      {"z", pose.z}, {"distance", pose.distance},
          {"tilt", pose.tilt}, {"turn", pose.turn}};
}

json::object stateOf(MapHost& map) {
  const CameraPose pose = map.camera().pose();
  return {{"floor", map.venue().indexOf(map.view().currentMap())},
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
    for (const auto& [known, command] : commands)
      if (known == name) command(map, value);
  map.floors().check();
  return stateOf(map);
}

graphics::Point pointOf(MapHost& map, graphics::Vector3 position) {
  return map.view().findPositionCameraViewport(position);
}

}  // namespace orivanta::web
