#include <fmt/format.h>

#include <algorithm>

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/OpenShape.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Benchmarks/NetworkFigures.hpp"

namespace orivanta::benchmarks {

using importer::Building;
using importer::Point;

namespace {

// Borders that nobody may pass but at doors and connectors.
class Walls {
 public:
  Walls(const Building& building, double level)
      : walls_(wallsOf(building, level), 0.0), openings_(openingsOf(building, level), 0.0) {}

  bool blocks(Point a, Point b) const {
    return walls_.anyAlong({a, b}, [&](std::size_t i) {
      const importer::Segment& wall = walls_.segments()[i];
      if (!package::cross(a, b, wall.a, wall.b)) return false;
      const double across = package::cross(b - a, wall.b - wall.a);
      const Point meets = a + (b - a) * (package::cross(wall.a - a, wall.b - wall.a) / across);
      constexpr double opening = 1.0;
      return openings_.nearest(meets, opening) == importer::SegmentGrid::none;
    });
  }

 private:
  static std::vector<importer::Segment> wallsOf(const Building& building, double level) {
    importer::Shape shape = importer::walkableSpace(building, level);
    const importer::AreaIndex contents(building, level, [](const importer::Area& area) {
      return area.kind != importer::AreaKind::obstacle;
    });
    for (const importer::Area& area : building.areas)
      if (area.level == level && area.kind == importer::AreaKind::room)
        shape = importer::joined(std::move(shape), importer::openShape(area, contents));
    return importer::bordersOf(shape);
  }
  static std::vector<importer::Segment> openingsOf(const Building& building, double level) {
    std::vector<importer::Segment> openings;
    for (const importer::Door& door : building.doors)
      if (door.level == level)
        openings.push_back(door.line.size() < 2
                               ? importer::Segment{door.position, door.position}
                               : importer::Segment{door.line.front(), door.line.back()});
    for (const importer::Connector& connector : building.connectors)
      for (const importer::Stop& stop : connector.stops)
        if (stop.spot.level == level) openings.push_back({stop.spot.position, stop.spot.position});
    // Paths may end where nothing is drawn, and people walk on.
    for (const importer::Line& line : building.lines)
      if (line.kind == importer::LineKind::path && line.levels == std::vector<double>{level}) {
        if (line.points.size() < 2) continue;
        openings.push_back(endOf(line.points[0], line.points[1]));
        openings.push_back(endOf(line.points.back(), line.points[line.points.size() - 2]));
      }
    return openings;
  }
  static importer::Segment endOf(Point end, Point before) {
    constexpr double length = 3.0;
    const double whole = package::distance(end, before);
    return {end, end + (before - end) * (std::min(length, whole) / std::max(whole, 1e-9))};
  }
  importer::SegmentGrid walls_;
  importer::SegmentGrid openings_;
};

}  // namespace

void countLinesThroughWalls(const Building& building) {
  std::size_t through = 0;
  for (const importer::Storey& storey : building.storeys) {
    const Walls walls(building, storey.ordinal);
    for (const importer::Edge& edge : building.network.edges) {
      const importer::Node& a = building.network.nodes[edge.from];
      const importer::Node& b = building.network.nodes[edge.to];
      if (a.level != storey.ordinal || !walls.blocks(a.position, b.position)) continue;
      if (++through <= 5)
        fmt::print("  through a wall   {} to {} on {:g} ({:.1f} {:.1f})\n", a.id, b.id, a.level,
                   a.position.x, a.position.y);
    }
  }
  fmt::print("through walls      {}\n", share(through, building.network.edges.size()));
}

}  // namespace orivanta::benchmarks
