#include "Apps/Web/Map/CommandTable.hpp"
#include "Apps/Web/Map/MapValues.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

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

void setFollowing(MapHost& map, const json::value& value) {
  map.style().setFollowing(isTrue(value));
}

}  // namespace

std::span<const NamedCommand> markCommands() {
  static constexpr std::array commands{
      NamedCommand{"route", setRoute},       NamedCommand{"passed", setPassed},
      NamedCommand{"select", select},        NamedCommand{"closures", setClosures},
      NamedCommand{"highlight", highlight},  NamedCommand{"clearHighlights", clearHighlights},
      NamedCommand{"marker", setMarker},     NamedCommand{"removeMarker", removeMarker},
      NamedCommand{"position", setPosition}, NamedCommand{"follow", setFollowing},
  };
  return commands;
}

}  // namespace orivanta::web
