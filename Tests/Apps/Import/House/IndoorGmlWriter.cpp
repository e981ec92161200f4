#include <fmt/format.h>

#include "Tests/Apps/Import/House/Geographic.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer::house {

namespace {

constexpr double storeyHeight = 4.0;

std::string ring(const Outline& outline, double height) {
  std::string text = "<gml:LinearRing>";
  for (std::size_t i = 0; i <= outline.size(); ++i) {
    const Point point = outline[i % outline.size()];
    text += fmt::format("<gml:pos srsDimension=\"3\">{} {} {}</gml:pos>", point.x, point.y, height);
  }
  return text + "</gml:LinearRing>";
}

std::string surface(const Polygon& shape, double height) {
  std::string text = "<gml:surfaceMember><gml:Polygon><gml:exterior>" + ring(shape.outer, height) +
                     "</gml:exterior>";
  for (const Outline& hole : shape.holes)
    text += "<gml:interior>" + ring(hole, height) + "</gml:interior>";
  return text + "</gml:Polygon></gml:surfaceMember>";
}

// A cell with the floor and the ceiling of its solid.
std::string cell(const std::string& type, const std::string& id, const std::string& name,
                 const std::string& indoor, double level, const Polygon& shape) {
  const double bottom = level * storeyHeight;
  return fmt::format(
      "<core:cellSpaceMember><navi:{0} gml:id=\"{1}\">"
      "<gml:description>storey=\"{2}\":indoor=\"{3}\":</gml:description><gml:name>{4}</gml:name>"
      "<core:cellSpaceGeometry><core:Geometry3D><gml:Solid gml:id=\"{1}-solid\"><gml:exterior>"
      "<gml:Shell>{5}{6}</gml:Shell></gml:exterior></gml:Solid></core:Geometry3D>"
      "</core:cellSpaceGeometry><core:duality xlink:href=\"#{1}-state\"/></navi:{0}>"
      "</core:cellSpaceMember>\n",
      type, id, level, indoor, name, surface(shape, bottom), surface(shape, bottom + 3.0));
}

std::string indoorOf(const Area& area) {
  switch (area.kind) {
    case AreaKind::walkway:
      return "corridor";
    case AreaKind::stairs:
      return "stair";
    case AreaKind::elevator:
      return "elevator";
    case AreaKind::escalator:
      return "escalator";
    default:
      return "room";
  }
}

std::string xmlId(std::string id) {
  for (char& letter : id)
    if (letter == '@') letter = '-';
  return "c" + id;
}

struct Graph {
  std::string states;
  std::string transitions;
  int count = 0;

  void state(const std::string& cell, Point point, double level) {
    states += fmt::format(
        "<core:stateMember><core:State gml:id=\"{0}-state\"><core:duality xlink:href=\"#{0}\"/>"
        "<core:geometry><gml:Point gml:id=\"{0}-point\"><gml:pos>{1} {2} {3}</gml:pos></gml:Point>"
        "</core:geometry></core:State></core:stateMember>\n",
        cell, point.x, point.y, level * storeyHeight);
  }

  void transition(const std::string& from, const std::string& to) {
    transitions += fmt::format(
        "<core:transitionMember><core:Transition gml:id=\"t{0}\"><core:weight>0.0</core:weight>"
        "<core:connects xlink:href=\"#{1}-state\"/><core:connects xlink:href=\"#{2}-state\"/>"
        "</core:Transition></core:transitionMember>\n",
        ++count, from, to);
  }
};

}  // namespace

std::vector<SourceFile> asIndoorGml(const Building& building) {
  std::string cells;
  Graph graph;
  for (const Area& area : building.areas) {
    if (area.kind == AreaKind::opening) continue;
    std::string name = area.id;
    for (const Place& place : building.places)
      if (place.id == area.place) name = place.names.name;
    const bool transition = !area.connector.empty() || area.kind == AreaKind::walkway;
    cells += cell(transition ? "TransitionSpace" : "GeneralSpace", xmlId(area.id), name,
                  indoorOf(area), area.level, area.shape.front());
    const Outline& outline = area.shape.front().outer;
    graph.state(xmlId(area.id), (outline[0] + outline[2]) * 0.5, area.level);
    for (const Area& above : building.areas)
      if (!area.connector.empty() && above.connector == area.connector &&
          above.level == area.level + 1.0)
        graph.transition(xmlId(area.id), xmlId(above.id));
  }
  for (const Door& door : building.doors) {
    const std::vector<Point> ends = openingOf(building, door);
    const Point across = Point{ends[0].y - ends[1].y, ends[1].x - ends[0].x} * 0.05;
    const Polygon shape = {{ends[0] - across, ends[1] - across, ends[1] + across, ends[0] + across},
                           {}};
    const bool entrance = door.kind == DoorKind::entrance;
    cells += cell(entrance ? "AnchorSpace" : "ConnectionSpace", xmlId(door.id), "", "door",
                  door.level, shape);
    graph.state(xmlId(door.id), door.position, door.level);
    for (const std::string& area : door.areas) graph.transition(xmlId(area), xmlId(door.id));
  }
  return {{"house.gml",
           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<core:IndoorFeatures"
           " xmlns:gml=\"http://www.opengis.net/gml/3.2\""
           " xmlns:xlink=\"http://www.w3.org/1999/xlink\""
           " xmlns:core=\"http://www.opengis.net/indoorgml/1.0/core\""
           " xmlns:navi=\"http://www.opengis.net/indoorgml/1.0/navigation\" gml:id=\"house\">"
           "<gml:name>" +
               building.names.name +
               "</gml:name>"
               "<core:primalSpaceFeatures><core:PrimalSpaceFeatures gml:id=\"primal\">\n" +
               cells +
               "</core:PrimalSpaceFeatures></core:primalSpaceFeatures><core:MultiLayeredGraph "
               "gml:id=\"graph\"><core:spaceLayers gml:id=\"layers\"><core:spaceLayerMember>"
               "<core:SpaceLayer gml:id=\"layer\"><core:nodes gml:id=\"nodes\">\n" +
               graph.states + "</core:nodes><core:edges gml:id=\"edges\">\n" + graph.transitions +
               "</core:edges></core:SpaceLayer></core:spaceLayerMember></core:spaceLayers>"
               "</core:MultiLayeredGraph></core:IndoorFeatures>\n"}};
}

}  // namespace orivanta::importer::house
