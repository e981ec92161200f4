// Makes areas, places and doors of cells and boundaries.
#include <algorithm>
#include <array>
#include <set>
#include <unordered_set>
#include <utility>

#include "Apps/Import/Read/IndoorGml/GmlFootprint.hpp"
#include "Apps/Import/Read/IndoorGml/GmlImport.hpp"
#include "Apps/Import/Read/IndoorGml/GmlKinds.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"

namespace orivanta::importer {

namespace {

// A cell with doors to at least so many others is a hall, whatever it is called.
constexpr std::size_t neighborsOfHall = 5;

// A cell without a stated kind is a hall from here on.
constexpr std::size_t neighborsOfUnknownHall = 4;

std::vector<Polygon> onPlane(const GmlScale& scale, std::vector<Polygon> polygons) {
  GeoGeometry geometry;
  geometry.polygons = std::move(polygons);
  changePositions(geometry, [&](Point point) { return scale.toPlane(point); });
  return std::move(geometry.polygons);
}

AreaKind kindByGraph(const GmlImport& import, std::size_t cell) {
  const std::optional<AreaKind> stated = statedKind(import.document.cells[cell]);
  if (stated && *stated != AreaKind::room) return *stated;
  const std::vector<std::size_t>& neighbors = import.graph.neighbors(cell);
  const auto beside = static_cast<std::size_t>(
      std::count_if(neighbors.begin(), neighbors.end(),
                    [&](std::size_t each) { return import.levels[each] == import.levels[cell]; }));
  const std::size_t fewest = stated ? neighborsOfHall : neighborsOfUnknownHall;
  return beside >= fewest ? AreaKind::walkway : AreaKind::room;
}

Names namesOf(const GmlSpace& cell) {
  if (cell.name.empty() || cell.name == cell.id) return {};
  return {cell.name, {}};
}

class DoorReader {
 public:
  explicit DoorReader(GmlImport& import) : import_(import) {}

  void read() {
    for (std::size_t each = 0; each < import_.document.cells.size(); ++each)
      if (isGmlDoor(import_.document.cells[each])) addCell(each);
    for (const GmlSpace& boundary : import_.document.boundaries) addBoundary(boundary);
  }

 private:
  void addCell(std::size_t cell) {
    const GmlSpace& space = import_.document.cells[cell];
    std::vector<std::string> areas;
    for (const std::size_t each : import_.graph.neighbors(cell))
      if (import_.areas[each]) areas.push_back(import_.building.areas[*import_.areas[each]].id);
    add(space, import_.levels[cell], std::move(areas),
        space.element == "AnchorSpace" ? DoorKind::entrance : DoorKind::door);
  }

  // The boundary between two cells that a transition leads through. Each may be there twice, once
  // for each cell.
  void addBoundary(const GmlSpace& boundary) {
    const GmlTransition* transition =
        boundary.duality.empty() ? nullptr : import_.graph.transition(boundary.duality);
    if (transition == nullptr || !used_.insert(transition).second) return;
    const auto cells = import_.graph.cellsOf(*transition);
    if (!cells || import_.levels[cells->first] != import_.levels[cells->second]) return;
    std::vector<std::string> areas;
    for (const std::size_t each : {cells->first, cells->second}) {
      if (isGmlDoor(import_.document.cells[each])) return;
      if (import_.areas[each]) areas.push_back(import_.building.areas[*import_.areas[each]].id);
    }
    add(boundary, import_.levels[cells->first], std::move(areas), DoorKind::door);
  }

  void add(const GmlSpace& space, double level, std::vector<std::string> areas, DoorKind kind) {
    constexpr double widestDoor = 6.0;
    std::vector<Point> line = baseLineOf(space.faces);
    if (line.size() != 2) return;
    for (Point& point : line) point = import_.scale.toPlane(point);
    Door door;
    door.id = door.source = space.id;
    door.kind = kind;
    door.level = level;
    door.position = (line[0] + line[1]) * 0.5;
    door.width = package::distance(line[0], line[1]);
    if (*door.width > widestDoor) door.kind = DoorKind::passage;
    door.line = std::move(line);
    door.names = namesOf(space);
    door.areas = std::move(areas);
    import_.building.doors.push_back(std::move(door));
  }

  GmlImport& import_;
  std::unordered_set<const GmlTransition*> used_;
};

}  // namespace

void decideGmlKinds(GmlImport& import) {
  const std::size_t count = import.document.cells.size();
  for (std::size_t each = 0; each < count; ++each)
    import.levels.push_back(import.storeys.of(import.document.cells[each]));
  for (std::size_t each = 0; each < count; ++each)
    import.kinds.push_back(kindByGraph(import, each));
}

void readGmlAreas(GmlImport& import) {
  std::unordered_set<std::string> ids;
  for (std::size_t each = 0; each < import.document.cells.size(); ++each) {
    const GmlSpace& cell = import.document.cells[each];
    import.areas.emplace_back();
    if (isGmlDoor(cell)) continue;
    Area area;
    area.id = area.source = cell.id;
    for (int copy = 2; !ids.insert(area.id).second; ++copy)
      area.id = cell.id + '#' + std::to_string(each + static_cast<std::size_t>(copy));
    area.kind = import.kinds[each];
    area.level = import.levels[each];
    area.shape = onPlane(import.scale, footprintOf(cell.faces));
    area.category = gmlCategory(cell);
    if (area.shape.empty()) {
      import.report(Severity::warning, "geometry-missing", cell.id, "The cell has no faces.",
                    "It is left out.", "Draw its solid or its floor.");
      continue;
    }
    const bool room = statedKind(cell).value_or(area.kind) == AreaKind::room;
    if (!room) area.names = namesOf(cell);
    if (Names names = namesOf(cell); room && !names.name.empty()) {
      area.place = area.id;
      Place place;
      place.id = area.id;
      place.source = cell.id;
      place.names = std::move(names);
      place.category = area.category;
      place.areas = {area.id};
      import.building.places.push_back(std::move(place));
    }
    import.areas.back() = import.building.areas.size();
    import.building.areas.push_back(std::move(area));
  }
}

void readGmlDoors(GmlImport& import) { DoorReader(import).read(); }

}  // namespace orivanta::importer
