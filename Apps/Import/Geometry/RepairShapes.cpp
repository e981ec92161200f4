#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <utility>

#include "Apps/Import/Geometry/DoubledRooms.hpp"
#include "Apps/Import/Geometry/Extent.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

constexpr double nearPoints = 0.005;  // meters; nearer neighbors of a ring are one point
constexpr double smallestArea = 0.05;
constexpr double reportedChange = 0.01;

// Removes far points and repeated ones.
Outline cleaned(const Outline& drawn, const Extent& extent) {
  Outline outline;
  for (const Point point : drawn)
    if (extent.holds(point) &&
        (outline.empty() || package::distance(outline.back(), point) >= nearPoints))
      outline.push_back(point);
  while (outline.size() > 1 && package::distance(outline.front(), outline.back()) < nearPoints)
    outline.pop_back();
  return outline;
}

Shape cleaned(const Shape& drawn, const Extent& extent) {
  Shape shape;
  for (const Polygon& polygon : drawn) {
    Polygon kept{cleaned(polygon.outer, extent), {}};
    if (kept.outer.size() < 3) continue;
    for (const Outline& hole : polygon.holes)
      if (Outline ring = cleaned(hole, extent); ring.size() >= 3)
        kept.holes.push_back(std::move(ring));
    shape.push_back(std::move(kept));
  }
  return shape;
}

// How often the borders of a shape cross each other. Stops counting at `most`.
std::size_t crossingsIn(const Shape& shape, std::size_t most) {
  const SegmentGrid grid(bordersOf(shape), 0.0);
  const std::vector<Segment>& borders = grid.segments();
  std::size_t count = 0;
  for (std::size_t i = 0; i < borders.size(); ++i)
    if (grid.anyAlong(borders[i], [&](std::size_t other) {
          return other > i &&
                 package::cross(borders[i].a, borders[i].b, borders[other].a, borders[other].b) &&
                 ++count >= most;
        }))
      break;
  return count;
}

void direct(Outline& outline, bool counterclockwise) {
  if ((package::signedArea(outline) > 0.0) != counterclockwise)
    std::reverse(outline.begin(), outline.end());
}

// The valid shape without tiny parts. The time of a repair grows with the number of crossings, so
// `crossings` bounds how many there may be, and is reduced by what was found: a scribble encloses
// nothing.
Shape madeValid(Shape shape, std::size_t& crossings) {
  if (!isValid(shape)) {
    constexpr std::size_t mostOfOutline = 5'000;
    const std::size_t most = std::min(crossings, mostOfOutline) + 1;
    const std::size_t found = crossingsIn(shape, most);
    if (found == most) return {};
    crossings -= found;
    shape = repaired(shape);
  }
  for (Polygon& polygon : shape) {
    direct(polygon.outer, true);
    for (Outline& hole : polygon.holes) direct(hole, false);
  }
  std::erase_if(shape, [](const Polygon& polygon) { return areaOf(polygon) < smallestArea; });
  return shape;
}

std::optional<Point> somePoint(const Shape& shape) {
  for (const Polygon& polygon : shape)
    if (!polygon.outer.empty()) return polygon.outer.front();
  return {};
}

// What is said about records that are left out.
Finding leftOut(const std::string& source, std::optional<double> level, std::string what) {
  Finding finding;
  finding.rule = "geometry-repaired";
  finding.source = source;
  finding.level = level;
  finding.message = std::move(what);
  finding.effect = "It is left out.";
  finding.advice = "Draw it again, or delete it.";
  return finding;
}

void reportChange(const Area& area, double before, double after, Findings& findings) {
  if (std::abs(after - before) < reportedChange * std::max(before, after)) return;
  Finding finding;
  finding.rule = "geometry-repaired";
  finding.source = area.source;
  finding.level = area.level;
  finding.position = somePoint(area.shape);
  finding.message = fmt::format(
      "The outline crosses itself, overlaps itself or has points far away: as drawn it encloses "
      "{:.1f} m\u00B2, and {:.1f} m\u00B2 after the repair.",
      before, after);
  finding.effect = "The map shows the repaired outline, which may not be what was meant.";
  finding.advice = "Draw the outline without crossings.";
  findings.add(std::move(finding));
}

// Drops the areas of which nothing is left, and what refers to them.
void repairAreas(Building& building, const Extent& extent, std::size_t& crossings,
                 Findings& findings) {
  std::set<std::string> dropped;
  for (Area& area : building.areas) {
    const double before = areaOf(area.shape);
    area.shape = madeValid(cleaned(area.shape, extent), crossings);
    if (area.shape.empty()) {
      findings.add(leftOut(area.source, area.level,
                           "The outline encloses no area, or it crosses itself too often."));
      dropped.insert(area.id);
    } else {
      reportChange(area, before, areaOf(area.shape), findings);
    }
  }
  if (dropped.empty()) return;
  const auto gone = [&](const std::string& id) { return dropped.contains(id); };
  std::erase_if(building.areas, [](const Area& area) { return area.shape.empty(); });
  for (Place& place : building.places) std::erase_if(place.areas, gone);
  for (Door& door : building.doors) std::erase_if(door.areas, gone);
  for (ConnectorHint& hint : building.connectorHints) std::erase_if(hint.areas, gone);
}

void repairDoors(Building& building, const Extent& extent, Findings& findings) {
  std::erase_if(building.doors, [&](Door& door) {
    std::erase_if(door.line, [&](Point point) { return !extent.holds(point); });
    if (door.line.size() < 2) door.line.clear();
    if (extent.holds(door.position)) return false;
    if (!door.line.empty()) {
      door.position = (door.line.front() + door.line.back()) * 0.5;
      return false;
    }
    findings.add(leftOut(door.source, door.level, "The position of the door is far away."));
    return true;
  });
}

// Keeps the texts and levels of the points that stay.
void repairLine(Line& line, const Extent& extent) {
  const bool levels = line.pointLevels.size() == line.points.size();
  const bool ids = line.pointIds.size() == line.points.size();
  Line kept = line;
  kept.points.clear();
  kept.pointLevels.clear();
  kept.pointIds.clear();
  for (std::size_t i = 0; i < line.points.size(); ++i) {
    if (!extent.holds(line.points[i])) continue;
    kept.points.push_back(line.points[i]);
    if (levels) kept.pointLevels.push_back(line.pointLevels[i]);
    if (ids) kept.pointIds.push_back(line.pointIds[i]);
  }
  line = std::move(kept);
}

void repairLines(Building& building, const Extent& extent, Findings& findings) {
  std::erase_if(building.lines, [&](Line& line) {
    if (!std::all_of(line.points.begin(), line.points.end(),
                     [&](Point point) { return extent.holds(point); }))
      repairLine(line, extent);
    if (line.points.size() >= 2) return false;
    findings.add(leftOut(line.source, {}, "The line has fewer than two points in the building."));
    return true;
  });
}

void repairSpots(Building& building, const Extent& extent, Findings& findings) {
  const auto far = [&](const Spot& spot) { return !extent.holds(spot.position); };
  for (Place& place : building.places)
    if (std::erase_if(place.spots, far) > 0)
      findings.add(leftOut(place.source, {}, "A position of the place is far away."));
  for (ConnectorHint& hint : building.connectorHints)
    if (std::erase_if(hint.spots, far) > 0)
      findings.add(leftOut(hint.source, {}, "A position of the connector is far away."));
  std::erase_if(building.sourceNodes, [&](const SourceNode& node) {
    if (!far(node.spot)) return false;
    findings.add(leftOut(node.id, node.spot.level, "The node of the network is far away."));
    return true;
  });
}

}  // namespace

void repairShapes(Building& building, const Options& options, Findings& findings) {
  const Extent extent(building, options.limits.extentMeters / 4.0);
  if (extent.points() > options.limits.vertices)
    throw SourceError(fmt::format(
        "the building has {} points, and at most {} can be imported; import it in parts "
        "(--building, --bounds)",
        extent.points(), options.limits.vertices));
  std::size_t crossings = 50'000;  // in all outlines
  repairAreas(building, extent, crossings, findings);
  for (Storey& storey : building.storeys)
    storey.footprint = madeValid(cleaned(storey.footprint, extent), crossings);
  repairDoors(building, extent, findings);
  repairLines(building, extent, findings);
  repairSpots(building, extent, findings);
  reportDoubledRooms(building, findings);
}

}  // namespace orivanta::importer
