#include "Apps/Web/Map/CommandTable.hpp"
#include "Apps/Web/Map/MapValues.hpp"

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

void setStacked(MapHost& map, const json::value& value) {
  if (isTrue(value)) map.loadOtherFloors();
  map.style().setStacked(isTrue(value));
}

void reload(MapHost& map, const json::value& /*value*/) { map.load(map.view().currentMap()); }

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

}  // namespace

std::span<const NamedCommand> lookCommands() {
  static constexpr std::array commands{
      NamedCommand{"look", setLook},       NamedCommand{"floor", setFloor},
      NamedCommand{"stacked", setStacked}, NamedCommand{"reload", reload},
      NamedCommand{"insets", setInsets},   NamedCommand{"covered", setCovered},
  };
  return commands;
}

}  // namespace orivanta::web
