// IndoorGML in its dialects.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <set>

#include "Apps/Import/Read/IndoorGml/GmlKinds.hpp"
#include "Apps/Import/Read/IndoorGml/GmlStoreys.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

namespace {

// A box of faces. Without a bottom, it has no flat face at all: its top slopes.
std::string solid(double left, double right, double z, const std::string& positions, bool bottom) {
  const auto face = [&](const std::vector<std::vector<double>>& corners) {
    std::string text;
    for (std::size_t each = 0; each <= corners.size(); ++each) {
      std::string numbers;
      for (const double number : corners[each % corners.size()])
        numbers += std::to_string(number) + (positions == "pos" ? "\n " : " ");
      text += positions == "pos" ? "<g:pos>\n" + numbers + "</g:pos>" : numbers;
    }
    if (positions != "pos") text = "<g:posList>" + text + "</g:posList>";
    return "<g:surfaceMember><g:Polygon><g:exterior><g:LinearRing>" + text +
           "</g:LinearRing></g:exterior></g:Polygon></g:surfaceMember>";
  };
  return "<cellSpaceGeometry><g:Solid><g:exterior><g:Shell>" +
         (bottom ? face({{left, 0, z}, {right, 0, z}, {right, 10, z}, {left, 10, z}}) : "") +
         face({{left, 0, z}, {right, 0, z}, {right, 0, z + 3}, {left, 0, z + 3}}) +
         face({{left, 0, z + 3}, {right, 0, z + 3}, {right, 10, z + 3.5}, {left, 10, z + 3.5}}) +
         "</g:Shell></g:exterior></g:Solid></cellSpaceGeometry>";
}

std::string cell(const std::string& element, const std::string& id, const std::string& description,
                 const std::string& geometry) {
  return "<cellSpaceMember><" + element + " g:id='" + id + "'><g:description>" + description +
         "</g:description><g:name>Name " + id + "</g:name>" + geometry + "<duality x:href='#S" +
         id + "'/></" + element + "></cellSpaceMember>";
}

std::string transition(const std::string& from, const std::string& to) {
  return "<transitionMember><Transition g:id='" + from + to + "'><connects x:href='#S" + from +
         "'/><connects x:href='#S" + to + "'/></Transition></transitionMember>";
}

std::string state(const std::string& cell, double z) {
  return "<stateMember><State g:id='S" + cell + "'><geometry><g:Point><g:pos>5 5 " +
         std::to_string(z) + "</g:pos></g:Point></geometry></State></stateMember>";
}

Building read(const std::string& contents, Findings& findings) {
  return readIndoorGml(
      {{"a.gml", "<IndoorFeatures xmlns:g='g' xmlns:x='x'>" + contents + "</IndoorFeatures>"}}, {},
      findings);
}

}  // namespace

TEST(IndoorGml, IsReadInAllDialects) {
  struct Case {
    const char* positions;
    bool bottom;
    const char *room, *flight, *above;
    double first;
  };
  const std::vector<Case> cases = {
      {"pos", true, "storey=\"1\":indoor=\"room\":", "storey=\"1\":indoor=\"stair\":",
       "storey=\"2\":indoor=\"stair\":", 1},
      {"posList", true, "level=1;desc=room;", "\n level=1;desc=stairs; ", "level=2;desc=stairs;",
       1},
      {"posList", false, "", "indoor=\"stair\"", "indoor=\"stair\"", 0},
      {"pos", false, "storey='B1'", "storey='B1':indoor='stair'", "storey='1F':indoor='stair'", -1},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.flight);
    Findings findings;
    const Building building = read(
        cell("GeneralSpace", "A", each.room, solid(0, 10, 0, each.positions, each.bottom)) +
            cell("CellSpace", "B", each.flight, solid(10, 20, 0, each.positions, each.bottom)) +
            cell("CellSpace", "C", each.above, solid(10, 20, 4, each.positions, each.bottom)) +
            "<SpaceLayer>" + state("A", 0) + state("B", 0) + state("C", 4) + transition("A", "B") +
            transition("B", "C") + transition("C", "B") + "</SpaceLayer><SpaceLayer>" +
            state("D", 0) + "</SpaceLayer>",
        findings);
    ASSERT_EQ(building.areas.size(), 3U);
    EXPECT_EQ(building.areas[0].kind, AreaKind::room);
    EXPECT_EQ(building.areas[1].kind, AreaKind::stairs);
    EXPECT_EQ(building.areas[1].connector, building.areas[2].connector);
    EXPECT_FALSE(building.areas[1].connector.empty());
    for (const Area& area : building.areas) {
      ASSERT_EQ(area.shape.size(), 1U);
      EXPECT_NEAR(std::abs(package::signedArea(area.shape[0].outer)), 100.0, 1e-6);
    }
    EXPECT_EQ(building.storeys.at(0).ordinal, each.first);
    EXPECT_EQ(building.storeys.size(), 2U);
    EXPECT_EQ(building.places.size(), 1U);
    EXPECT_EQ(building.metersPerUnit, 1.0);
    EXPECT_EQ(building.sourceNodes.size(), 2U);  // two states of a storey are at the same point
    ASSERT_EQ(building.sourceLinks.size(), 1U);
    EXPECT_EQ(building.sourceLinks[0].kind, LinkKind::stairs);
  }
}

TEST(IndoorGml, NamesTellLessThanElements) {
  struct Case {
    const char *element, *name;
    std::optional<AreaKind> kind;
  };
  for (const Case& each : {Case{"GeneralSpace", "Upstairs Cafe", AreaKind::room},
                           Case{"GeneralSpace", "Staircase Gallery", AreaKind::room},
                           Case{"GeneralSpace", "Elevator 2", AreaKind::elevator},
                           Case{"CellSpace", "Upstairs Cafe", std::nullopt},
                           Case{"CellSpace", "East Stairs B", AreaKind::stairs},
                           Case{"CellSpace", "Elevator Lobby 3", AreaKind::walkway},
                           Case{"TransitionSpace", "Passage", AreaKind::walkway},
                           Case{"CellSpace", "\uACC4\uB2E8 1", AreaKind::stairs}}) {
    GmlSpace cell;
    cell.element = each.element;
    cell.name = each.name;
    EXPECT_EQ(statedKind(cell), each.kind) << each.name;
  }
  for (const auto& [name, function] :
       {std::pair("Door-2F-13", ""), {"Outdoor", ""}, {"D", "Door"}}) {
    GmlSpace cell;
    cell.element = "CellSpace";
    cell.name = name;
    cell.function = function;
    EXPECT_EQ(isGmlDoor(cell), cell.name != "Outdoor") << name;
  }
  for (const auto& [text, ordinal] : std::map<std::string, double>{
           {"Floor-1", 1}, {"Floor -1", -1}, {"-2", -2}, {"B-1", -1}, {"B2", -2}, {"3F", 3}})
    EXPECT_EQ(ordinalIn(text), ordinal) << text;
}

// Each storey has a layer of its own, and references have no number sign. A further layer of the
// same cells is not used, nor one with a cell in another one.
TEST(IndoorGml, LayersOfStoreysAreOneNetwork) {
  const auto dual = [](const std::string& cell, double z) {
    std::string text = state(cell, z);
    return text.insert(text.find("<geometry>"), "<duality x:href='" + cell + "'/>");
  };
  std::string contents =
      cell("TransitionSpace", "A", "storey=1", solid(0, 10, 0, "pos", true)) +
      cell("TransitionSpace", "B", "storey=2", solid(0, 10, 4, "pos", true)) +
      cell("GeneralSpace", "C", "storey=2", solid(10, 20, 4, "pos", true)) +
      cell("GeneralSpace", "Sensor", "storey=2", solid(12, 22, 4, "pos", true)) + "<SpaceLayer>" +
      dual("A", 0) + "</SpaceLayer><SpaceLayer>" + dual("B", 4) + dual("C", 4) +
      transition("B", "C") + "</SpaceLayer><SpaceLayer>" +
      "<State g:id='X'><duality x:href='A'/></State></SpaceLayer><SpaceLayer>" + dual("Sensor", 4) +
      "</SpaceLayer>" +
      "<InterLayerConnection><interConnects x:href='SA'/><interConnects x:href='SB'/>"
      "</InterLayerConnection><InterLayerConnection><interConnects x:href='SA'/>"
      "<interConnects x:href='X'/></InterLayerConnection>";
  std::erase(contents, '#');
  Findings findings;
  const Building building = read(contents, findings);
  ASSERT_EQ(building.areas.size(), 3U);
  EXPECT_EQ(building.areas[0].kind, AreaKind::stairs);  // it leads up, and nowhere else
  EXPECT_EQ(building.areas[0].connector, building.areas[1].connector);
  ASSERT_EQ(building.sourceLinks.size(), 1U);
  EXPECT_EQ(building.sourceLinks[0].kind, LinkKind::stairs);
  EXPECT_EQ(findings.countOf("network-incomplete"), 0U);
  EXPECT_EQ(findings.countOf("layer-ignored"), 1U);
}

// An early version of the standard, without cells.
TEST(IndoorGml, StatesAloneAreANetworkWithPlaces) {
  std::string hall = state("1", 0);
  hall.insert(hall.find("<geometry>"), "<g:name>Hall 1</g:name>");
  std::string door = state("2", 0);
  door.insert(door.find("<geometry>"), "<g:name>Door 2</g:name>");
  door.replace(door.find("5 5"), 3, "8 5");
  Findings findings;
  const Building building =
      read("<MultiLayeredGraph><SpaceLayer>" + hall + door +
               "<Transition g:id='T'><start x:href='#S1'/><end x:href='#S2'/></Transition>"
               "</SpaceLayer></MultiLayeredGraph>",
           findings);
  EXPECT_EQ(building.sourceLinks.size(), 1U);
  ASSERT_EQ(building.places.size(), 1U);
  EXPECT_EQ(building.places[0].names.name, "Hall 1");
  EXPECT_EQ(building.places[0].spots.size(), 1U);
}

TEST(IndoorGml, LayersOfStatesAloneMayBeStoreys) {
  Findings findings;
  const std::string next = "</SpaceLayer><SpaceLayer>";
  const Building building =
      read("<MultiLayeredGraph><SpaceLayer>" + state("1", 0) + next + state("2", 4) + next +
               state("3", 0) + "</SpaceLayer></MultiLayeredGraph>",
           findings);
  EXPECT_EQ(building.storeys.size(), 2U);
  EXPECT_EQ(findings.countOf("layer-ignored"), 1U);
}

TEST(IndoorGml, DegreesNeedNoReferenceSystem) {
  std::string contents = cell("GeneralSpace", "A", "storey=1", solid(0, 1, 0, "pos", true));
  contents =
      contents.substr(0, contents.find("<cellSpaceGeometry>")) +
      "<g:Polygon><g:exterior><g:posList srsDimension='2'>8.8 47.2 8.8002 47.2 8.8002 47.2001 "
      "8.8 47.2</g:posList></g:exterior></g:Polygon></GeneralSpace></cellSpaceMember>";
  Findings findings;
  const Building building = read(contents, findings);
  ASSERT_TRUE(building.georeference);
  EXPECT_NEAR(building.georeference->latitude, 47.2, 1e-3);
  EXPECT_GT(std::abs(package::signedArea(building.areas.at(0).shape.at(0).outer)), 80.0);
}

TEST(IndoorGml, OfARealBuildingIsComplete) {
  const std::filesystem::path folder = ORIVANTA_RAW "/igml-pnu201";
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << folder << " is missing";
  struct Case {
    const char* file;
    std::size_t doors, nodes;
  };
  for (const Case& each :
       {Case{"201-2019-05-24-corrected.gml", 88, 288}, Case{"v103-PNU-bldg201_3d.gml", 89, 301}}) {
    Findings findings;
    const Building building = readIndoorGml(readFiles({folder / each.file}, {}), {}, findings);
    EXPECT_EQ(building.storeys.size(), 3U);
    EXPECT_EQ(building.areas.size(), 80U);
    EXPECT_EQ(building.doors.size(), each.doors);
    EXPECT_EQ(building.sourceNodes.size(), each.nodes);
    EXPECT_EQ(building.metersPerUnit, 0.2);  // a storey is 20 units high
    EXPECT_EQ(findings.countOf("scale-guessed"), 1U);
    std::set<std::string> connectors;
    for (const Area& area : building.areas)
      if (!area.connector.empty()) connectors.insert(area.connector);
    EXPECT_EQ(connectors.size(), 3U);
  }
}

}  // namespace orivanta::importer
