// Writes small extracts of OpenStreetMap for tests, and buildings as text.
#pragma once

#include <fmt/format.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

using TagTexts = std::initializer_list<std::pair<const char*, const char*>>;

/// An extract in XML. Positions are in units of 1e-5 degrees, about a meter.
class OsmText {
 public:
  void node(int id, int x, int y, TagTexts tags = {}) {
    text_ +=
        fmt::format("<node id='{}' lon='{:.7f}' lat='{:.7f}'>", id, 13 + x * 1e-5, 0.5 + y * 1e-5);
    finish("node", tags);
  }
  void way(int id, const std::vector<int>& nodes, TagTexts tags) {
    text_ += fmt::format("<way id='{}'>", id);
    for (const int node : nodes) text_ += fmt::format("<nd ref='{}'/>", node);
    finish("way", tags);
  }
  /// A way with nodes of its own, numbered from ten times its identifier.
  void box(int id, int left, int bottom, int right, int top, TagTexts tags) {
    const int first = 10 * id;
    node(first, left, bottom);
    node(first + 1, right, bottom);
    node(first + 2, right, top);
    node(first + 3, left, top);
    way(id, {first, first + 1, first + 2, first + 3, first}, tags);
  }
  void relation(int id, const std::vector<std::pair<const char*, int>>& ways, TagTexts tags) {
    text_ += fmt::format("<relation id='{}'>", id);
    for (const auto& [role, way] : ways)
      text_ += fmt::format("<member type='way' ref='{}' role='{}'/>", way, role);
    finish("relation", tags);
  }

  std::string xml() const { return "<osm version='0.6'>\n" + text_ + "</osm>\n"; }
  std::vector<SourceFile> files() const { return {{"plan.osm", xml()}}; }

 private:
  void finish(const char* element, TagTexts tags) {
    for (const auto& [key, value] : tags) text_ += fmt::format("<tag k='{}' v='{}'/>", key, value);
    text_ += fmt::format("</{}>\n", element);
  }

  std::string text_;
};

inline std::string pointsText(const std::vector<Point>& points) {
  std::string result;
  for (const Point point : points) result += fmt::format(" {:.3f},{:.3f}", point.x, point.y);
  return result;
}

/// All that the formats of OpenStreetMap have in common: identifiers of untagged nodes are left
/// out.
inline std::string described(const Building& building) {
  std::string all = fmt::format("{} {} {}\n", building.id, building.names.name, building.language);
  for (const Storey& storey : building.storeys)
    all += fmt::format("storey {} {} {} {}\n", storey.ordinal, storey.names.name, storey.shortName,
                       storey.building);
  for (const Area& area : building.areas) {
    all +=
        fmt::format("area {} {} {} {} {} {} {}", area.id, static_cast<int>(area.kind), area.level,
                    area.place, area.connector, area.category, static_cast<int>(area.wheelchair));
    for (const Polygon& polygon : area.shape) {
      all += pointsText(polygon.outer);
      for (const Outline& hole : polygon.holes) all += " hole" + pointsText(hole);
    }
    all += '\n';
  }
  for (const Door& door : building.doors)
    all += fmt::format("door {} {} {}{} {} {}\n", door.id, static_cast<int>(door.kind), door.level,
                       pointsText({door.position}), door.names.name, fmt::join(door.areas, " "));
  for (const Line& line : building.lines)
    all += fmt::format("line {} {} {} {} {}{}\n", line.id, static_cast<int>(line.kind),
                       static_cast<int>(line.direction), fmt::join(line.levels, ";"),
                       fmt::join(line.pointLevels, ";"), pointsText(line.points));
  for (const Place& place : building.places) {
    all += fmt::format("place {} {} {} {} {}", place.id, place.names.name, place.category,
                       place.hours, fmt::join(place.areas, " "));
    for (const Spot& spot : place.spots)
      all += fmt::format(" {}{}", spot.level, pointsText({spot.position}));
    all += '\n';
  }
  for (const ConnectorHint& hint : building.connectorHints)
    for (const Spot& spot : hint.spots)
      all += fmt::format("hint {} {}{}\n", hint.id, spot.level, pointsText({spot.position}));
  return all +
         fmt::format("network {} {}\n", building.sourceNodes.size(), building.sourceLinks.size());
}

}  // namespace orivanta::importer
