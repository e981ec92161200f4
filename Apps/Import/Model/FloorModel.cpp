#include "Apps/Import/Model/FloorModel.hpp"

#include <algorithm>
#include <map>
#include <set>

#include "Apps/Import/Geometry/OrientedBox.hpp"
#include "Apps/Import/Model/AreaModels.hpp"
#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Package/Palette.hpp"

namespace orivanta::importer {

namespace {

namespace palette = package::palette;
using package::fillOf;
using package::Model;
using package::PlaceKind;

constexpr double widestGap = 6.0;
constexpr double gapWithoutWidth = 1.1;

// Adds everything on one storey.
class FloorBuilder {
 public:
  FloorBuilder(const PackageLayout& layout, const Storey& storey)
      : layout_(layout),
        building_(layout.building()),
        storey_(storey),
        model_(layout.unitsPerMeter()) {
    heights_.unitsPerMeter = layout.unitsPerMeter();
    for (const Door& door : building_.doors)
      if (door.level == storey.ordinal) addGap(door);
    for (const Connector& connector : building_.connectors) addStops(connector);
  }

  Model build() {
    addGround();
    for (const AreaKind kind :
         {AreaKind::unknown, AreaKind::walkway, AreaKind::ramp, AreaKind::movingWalkway,
          AreaKind::room, AreaKind::opening, AreaKind::stairs, AreaKind::escalator,
          AreaKind::elevator, AreaKind::wall, AreaKind::obstacle})
      for (const Area& area : building_.areas)
        if (area.kind == kind && area.level == storey_.ordinal) addArea(area);
    addWallLines();
    return std::move(model_);
  }

 private:
  struct Boarding {
    Point position;
    bool down = false;
  };

  void addGap(const Door& door) {
    Gap gap;
    gap.middle = door.position;
    gap.width = std::clamp(door.width.value_or(gapWithoutWidth), 0.7, widestGap);
    if (door.line.size() >= 2)
      gap.width =
          std::clamp(package::distance(door.line.front(), door.line.back()), 0.7, widestGap);
    for (const std::string& area : door.areas) gaps_[area].push_back(gap);
  }

  void addStops(const Connector& connector) {
    if (connector.stops.empty()) return;
    const double top = connector.stops.back().spot.level;
    const bool flat = connector.stops.front().spot.level == top;
    for (const Stop& stop : connector.stops)
      if (!stop.area.empty() && stop.spot.level == storey_.ordinal)
        boarding_[stop.area].push_back({stop.spot.position, !flat && stop.spot.level == top});
  }

  void addGround() {
    model_.use({"Ground", palette::slab});
    Point least = {1e300, 1e300};
    Point most = {-1e300, -1e300};
    const auto reach = [&](Point point) {
      least = {std::min(least.x, point.x), std::min(least.y, point.y)};
      most = {std::max(most.x, point.x), std::max(most.y, point.y)};
    };
    for (const Polygon& polygon : storey_.footprint) addPlate(model_, polygon, 0.0, heights_.slab);
    bool drawn = !storey_.footprint.empty();
    for (const Area& area : building_.areas) {
      if (area.level != storey_.ordinal || !isTappable(area.kind)) continue;
      drawn = true;
      for (const Polygon& polygon : area.shape) model_.walls(polygon.outer, 0.0, heights_.slab);
    }
    if (drawn) return;
    for (const Node& node : building_.network.nodes)
      if (node.level == storey_.ordinal) reach(node.position);
    if (least.x > most.x) reach({0.0, 0.0});
    model_.prism(package::rectangle(least.x - 2.0, least.y - 2.0, most.x + 2.0, most.y + 2.0), 0.0,
                 heights_.slab);
  }

  void addArea(const Area& area) {
    if (isTappable(area.kind)) {
      model_.use({packageId(area.id), colorOf(area, layout_.placeOf(area))});
    } else {
      useCommonMaterial(area.kind);
    }
    for (const Polygon& polygon : area.shape)
      if (polygon.outer.size() >= 3) addPolygon(area, polygon);
  }

  void useCommonMaterial(AreaKind kind) {
    if (kind == AreaKind::opening) model_.use({"Opening", palette::backdrop});
    if (kind == AreaKind::wall) model_.use({"Walls", palette::wall});
    if (kind == AreaKind::obstacle)
      model_.use({"Fixtures", package::mixed(palette::slab, palette::wall, 0.5)});
  }

  void addPolygon(const Area& area, const Polygon& polygon) {
    switch (area.kind) {
      case AreaKind::room:
        return addRoom(model_, polygon, gaps_[area.id], heights_);
      case AreaKind::stairs:
      case AreaKind::escalator:
      case AreaKind::elevator:
        return addConnector(area, polygon);
      case AreaKind::opening:
        return addPlate(model_, polygon, heights_.slab, heights_.opening);
      case AreaKind::wall:
        return addPlate(model_, polygon, heights_.slab, heights_.above(0.8));
      case AreaKind::obstacle:
        return addPlate(model_, polygon, heights_.slab, heights_.above(0.3));
      case AreaKind::ramp:
      case AreaKind::movingWalkway:
        return addPlate(model_, polygon, heights_.slab, heights_.room);
      case AreaKind::walkway:
      case AreaKind::unknown:
        return addPlate(model_, polygon, heights_.slab, heights_.walkway);
    }
  }

  void addConnector(const Area& area, const Polygon& polygon) {
    const std::vector<Boarding>& boarding = boarding_[area.id];
    if (area.kind == AreaKind::elevator) {
      addShaft(model_, polygon, heights_);
      if (!boarding.empty()) doors_.emplace_back(&polygon, boarding.front().position);
      return;
    }
    const bool down = !boarding.empty() && boarding.front().down;
    const Point from =
        boarding.empty() ? orientedBox(polygon.outer).end(-1.0) : boarding.front().position;
    if (area.kind == AreaKind::stairs)
      addSteps(model_, polygon, from, down, heights_);
    else
      addEscalator(model_, polygon, from, down, heights_);
  }

  void addWallLines() {
    for (const auto& [polygon, at] : doors_) {
      model_.use({"ElevatorDoors", package::mixed(fillOf(PlaceKind::vertical), {1, 1, 1}, 0.6)});
      addShaftDoors(model_, *polygon, at, heights_);
    }
    for (const Line& line : building_.lines) {
      if (line.kind != LineKind::wall ||
          std::find(line.levels.begin(), line.levels.end(), storey_.ordinal) == line.levels.end())
        continue;
      model_.use({"Walls", palette::wall});
      for (std::size_t i = 0; i + 1 < line.points.size(); ++i)
        addWallLine(line.points[i], line.points[i + 1]);
    }
  }

  void addWallLine(Point from, Point to) {
    const double length = package::distance(from, to);
    if (length < 0.05) return;
    const Point half = Point{-(to - from).y, (to - from).x} * (0.07 / length);
    model_.prism({from - half, to - half, to + half, from + half}, heights_.slab,
                 heights_.above(0.8));
  }

  const PackageLayout& layout_;
  const Building& building_;
  const Storey& storey_;
  Model model_;
  SurfaceHeights heights_;
  std::map<std::string, std::vector<Gap>> gaps_;
  std::map<std::string, std::vector<Boarding>> boarding_;
  std::vector<std::pair<const Polygon*, Point>> doors_;
};

}  // namespace

package::Color colorOf(const Area& area, const Place* place) {
  switch (area.kind) {
    case AreaKind::stairs:
    case AreaKind::escalator:
    case AreaKind::elevator:
      return fillOf(PlaceKind::vertical);
    case AreaKind::ramp:
    case AreaKind::movingWalkway:
      return package::mixed(palette::walkable, fillOf(PlaceKind::vertical), 0.4);
    case AreaKind::wall:
      return palette::wall;
    case AreaKind::opening:
      return palette::backdrop;
    case AreaKind::obstacle:
      return package::mixed(palette::slab, palette::wall, 0.5);
    case AreaKind::room:
    case AreaKind::walkway:
    case AreaKind::unknown:
      break;
  }
  const std::string& value = place == nullptr ? area.category : place->category;
  const Category& category = *matchCategory(value).category;
  if (area.kind == AreaKind::room) return fillOf(category.kind);
  // What people walk through looks like the rest of the way, also in a mall that is one area.
  const bool special = category.kind == PlaceKind::transit || category.kind == PlaceKind::parking ||
                       category.kind == PlaceKind::green;
  return special ? fillOf(category.kind) : palette::walkable;
}

package::Model makeFloorModel(const PackageLayout& layout, const Storey& storey) {
  return FloorBuilder(layout, storey).build();
}

}  // namespace orivanta::importer
