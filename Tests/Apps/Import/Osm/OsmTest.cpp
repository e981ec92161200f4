#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "Apps/Import/SourceError.hpp"
#include "Tests/Apps/Import/Osm/OsmText.hpp"

namespace orivanta::importer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Read {
  Building building;
  Findings findings;

  const Area* area(std::string_view id) const {
    for (const Area& area : building.areas)
      if (area.id == id) return &area;
    return nullptr;
  }
  const Line* line(std::string_view id) const {
    for (const Line& line : building.lines)
      if (line.id == id) return &line;
    return nullptr;
  }
};

Read read(const OsmText& text, const Options& options = {}) {
  Read result;
  result.building = readOsmXml(text.files(), options, result.findings);
  return result;
}

TEST(Osm, TagsTellWhatAnAreaIs) {
  struct Row {
    std::vector<std::pair<const char*, const char*>> tags;
    std::optional<AreaKind> kind;
    const char* category = "";
    bool isPlace = false;
  };
  const Row rows[] = {
      {{{"indoor", "room"}}, AreaKind::room, "indoor=room"},
      {{{"indoor", "room"}, {"ref", "101"}}, AreaKind::room, "indoor=room", true},
      {{{"indoor", "room"}, {"shop", "shoes"}}, AreaKind::room, "shop=shoes", true},
      {{{"room", "office"}}, AreaKind::room, "room=office"},
      {{{"indoor", "room"}, {"room", "toilet"}, {"male", "yes"}}, AreaKind::room, "toilets=men"},
      {{{"buildingpart", "hall"}}, AreaKind::walkway, "buildingpart=hall"},
      {{{"indoor", "corridor"}, {"name", "Row"}}, AreaKind::walkway, "indoor=corridor"},
      {{{"indoor", "area"}, {"name", "Foyer"}}, AreaKind::walkway, "indoor=area", true},
      {{{"indoor", "area"}, {"shop", "kiosk"}}, AreaKind::room, "shop=kiosk", true},
      {{{"highway", "footway"}, {"area", "yes"}}, AreaKind::walkway, "highway=footway"},
      {{{"railway", "platform"}, {"ref", "3"}}, AreaKind::walkway, "railway=platform", true},
      {{{"indoor", "room"}, {"highway", "elevator"}}, AreaKind::elevator, "highway=elevator"},
      {{{"indoor", "room"}, {"elevator", "yes"}}, AreaKind::elevator, "indoor=room"},
      {{{"indoor", "room"}, {"stairs", "yes"}}, AreaKind::stairs, "indoor=room"},
      {{{"highway", "steps"}, {"area", "yes"}, {"conveying", "yes"}}, AreaKind::escalator},
      {{{"indoor", "area"}, {"conveying", "forward"}}, AreaKind::movingWalkway},
      {{{"room", "ramp"}}, AreaKind::ramp},
      {{{"indoor", "void"}}, AreaKind::opening},
      {{{"indoor", "wall"}, {"area", "yes"}}, AreaKind::wall},
      {{{"indoor", "column"}}, AreaKind::obstacle},
      {{{"amenity", "parking"}}, AreaKind::unknown, "amenity=parking", true},
      {{{"landuse", "grass"}}, std::nullopt},
      {{{"building", "yes"}, {"shop", "mall"}}, std::nullopt},
      {{{"building", "yes"}, {"shop", "kiosk"}}, AreaKind::room, "shop=kiosk", true},
      {{{"building:part", "yes"}}, std::nullopt},
  };
  for (const Row& row : rows) {
    OsmText text;
    text.box(1, 0, 0, 5, 5, {{"indoor", "room"}, {"level", "0"}});
    text.node(90, 10, 0);
    text.node(91, 15, 0);
    text.node(92, 15, 5);
    std::string xml = text.xml();
    std::string way = "<way id='2'><nd ref='90'/><nd ref='91'/><nd ref='92'/><nd ref='90'/>";
    std::string label;
    for (const auto& [key, value] : row.tags) {
      way += fmt::format("<tag k='{}' v='{}'/>", key, value);
      label += fmt::format("{}={} ", key, value);
    }
    xml.insert(xml.find("</osm>"), way + "<tag k='level' v='0'/></way>");
    Findings findings;
    const Building building = readOsmXml({{"plan.osm", xml}}, {}, findings);
    ASSERT_EQ(building.areas.size(), row.kind ? 2U : 1U) << label;
    if (!row.kind) continue;
    EXPECT_EQ(building.areas[1].kind, *row.kind) << label;
    if (*row.category != '\0') {
      EXPECT_EQ(building.areas[1].category, row.category) << label;
    }
    EXPECT_EQ(building.places.size(), row.isPlace ? 1U : 0U) << label;
  }
}

TEST(Osm, LevelsComeFromListsRepetitionsAndNeighbors) {
  OsmText text;
  text.box(1, 0, 0, 10, 10, {{"indoor", "room"}, {"level", "0;1"}, {"name", "Hall"}});
  text.box(2, 20, 0, 30, 10,
           {{"indoor", "room"}, {"level", "0"}, {"repeat_on", "1-2"}, {"ref", "7"}});
  text.box(3, 40, 0, 45, 5, {{"highway", "elevator"}, {"level", "0"}, {"repeat_on", "1"}});
  text.box(4, 60, 0, 65, 5, {{"indoor", "room"}, {"level", "EG"}});
  text.box(5, 70, 0, 75, 5, {{"indoor", "room"}});
  text.box(6, 0, 10, 10, 20, {{"indoor", "corridor"}, {"level", "0"}});
  text.box(7, 50, 50, 60, 60, {{"indoor", "corridor"}, {"level", "1"}});
  text.node(1, 10, 10, {{"door", "yes"}});  // not a corner: the areas have nodes of their own there
  text.node(2, 30, 0, {{"door", "no"}});
  text.way(8, {62, 71}, {{"highway", "steps"}});
  text.way(9, {62, 71}, {{"highway", "footway"}, {"level", "0;1"}, {"incline", "up"}});
  text.way(10, {62, 71, 73}, {{"highway", "footway"}});
  text.node(3, 62, 62, {{"highway", "elevator"}, {"level", "0-1"}, {"name", "Lift"}});
  text.node(4, 64, 62, {{"highway", "elevator"}, {"level", "1"}});
  const Read result = read(text);
  std::map<std::string, std::string> areas;
  for (const Area& area : result.building.areas) areas[area.id] = area.place + "|" + area.connector;
  EXPECT_EQ(areas, (std::map<std::string, std::string>{{"way/1@0", "way/1|"},
                                                       {"way/1@1", "way/1|"},
                                                       {"way/2@0", "way/2|"},
                                                       {"way/2@1", "way/2@1|"},
                                                       {"way/2@2", "way/2@2|"},
                                                       {"way/3@0", "|way/3"},
                                                       {"way/3@1", "|way/3"},
                                                       {"way/5", "|"},
                                                       {"way/6", "|"},
                                                       {"way/7", "|"}}));
  ASSERT_EQ(result.building.doors.size(), 4U);
  EXPECT_EQ(result.building.doors[0].id, "node/1");
  EXPECT_THAT(result.building.doors[0].areas, ElementsAre("way/1@0", "way/6"));
  EXPECT_EQ(result.building.doors[3].id, "node/2@2");
  EXPECT_EQ(result.building.doors[3].kind, DoorKind::passage);
  EXPECT_THAT(result.line("way/8")->levels, ElementsAre(0, 1));
  EXPECT_THAT(result.line("way/8")->pointLevels, ElementsAre(0, 1));
  EXPECT_EQ(result.line("way/9")->kind, LineKind::ramp);
  ASSERT_EQ(result.building.connectorHints.size(), 1U);
  EXPECT_EQ(result.building.connectorHints[0].spots.size(), 2U);
  for (const char* rule : {"level-unreadable", "level-missing", "elevator-without-levels"})
    EXPECT_EQ(result.findings.countOf(rule), 1U) << rule;
}

TEST(Osm, RelationsAreAreasWithHoles) {
  OsmText text;
  const int corners[][2] = {{0, 0}, {9, 0}, {9, 9}, {0, 9}};
  for (int i = 0; i < 4; ++i) text.node(1 + i, corners[i][0], corners[i][1]);
  text.way(1, {1, 2, 3}, {});
  text.way(2, {1, 4, 3}, {});
  text.box(3, 2, 2, 4, 4, {});
  text.box(4, 20, 0, 29, 9, {{"indoor", "room"}, {"level", "0"}});
  text.box(5, 22, 2, 24, 4, {});
  text.relation(1, {{"outer", 1}, {"outer", 2}, {"inner", 3}, {"outer", 99}},
                {{"type", "multipolygon"}, {"indoor", "corridor"}, {"level", "0"}});
  text.relation(2, {{"outer", 4}, {"inner", 5}}, {{"type", "multipolygon"}});
  text.relation(3, {{"outer", 1}}, {{"type", "multipolygon"}, {"indoor", "room"}, {"level", "0"}});
  std::string xml = text.xml();
  xml.insert(xml.find("</osm>"),
             "<relation id='4'><member type='relation' ref='4' role='outer'/><tag k='indoor' "
             "v='room'/><tag k='type' v='multipolygon'/></relation>");
  Findings findings;
  const Building building = readOsmXml({{"plan.osm", xml}}, {}, findings);
  ASSERT_EQ(building.areas.size(), 2U);
  EXPECT_EQ(building.areas[0].id, "way/4");
  EXPECT_EQ(building.areas[1].id, "relation/1");
  for (const Area& area : building.areas) {
    EXPECT_EQ(area.shape[0].outer.size(), 5U);
    EXPECT_GT(package::signedArea(area.shape[0].outer), 0.0);
    ASSERT_EQ(area.shape[0].holes.size(), 1U) << area.id;
    EXPECT_LT(package::signedArea(area.shape[0].holes[0]), 0.0);
  }
  EXPECT_EQ(findings.countOf("ring-open"), 1U);
}

// Two buildings with different signs for the same levels, and a street.
OsmText site() {
  OsmText text;
  text.box(1, 0, 0, 50, 50,
           {{"building", "yes"},
            {"name", "A"},
            {"name:de", "A"},
            {"name:fr", "Â"},
            {"non_existent_levels", "1"}});
  text.box(2, 100, 0, 150, 50, {{"building", "yes"}, {"name", "B"}});
  text.box(3, 5, 5, 40, 40,
           {{"indoor", "room"},
            {"level", "0-2"},
            {"level:ref", "1;2"},
            {"name", "Saal"},
            {"phone", "+49 1"}});
  text.box(4, 105, 5, 140, 40, {{"indoor", "room"}, {"level", "0"}, {"level:ref", "EG"}});
  text.box(5, 110, 10, 120, 20, {{"indoor", "room"}, {"level", "0"}, {"user", "mapper"}});
  text.node(1, 20, 20, {{"amenity", "atm"}, {"opening_hours", "24/7"}});
  text.node(2, 500, 20, {{"amenity", "atm"}});
  text.node(3, 130, 50, {{"entrance", "main"}});
  text.way(9, {3, 2}, {{"highway", "footway"}});
  return text;
}

TEST(Osm, OnlyWhatIsIndoorsMatters) {
  const Read all = read(site());
  EXPECT_EQ(all.building.names.name, "B");  // it has more rooms
  EXPECT_EQ(all.building.language, "de");
  EXPECT_EQ(all.building.areas.size(), 4U);
  EXPECT_TRUE(all.building.lines.empty());
  std::string signs;
  for (const Storey& storey : all.building.storeys)
    signs += fmt::format("{}{}={} ", storey.building, storey.ordinal, storey.shortName);
  EXPECT_EQ(signs, "A0=1 A2=2 B0=EG ");
  ASSERT_EQ(all.building.places.size(), 2U);
  EXPECT_EQ(all.building.places[1].hours, "24/7");
  EXPECT_EQ(described(all.building).find("mapper"), std::string::npos);
  EXPECT_THAT(all.building.attribution, HasSubstr("OpenStreetMap"));

  Options options;
  options.building = "A";
  EXPECT_EQ(read(site(), options).building.areas.size(), 2U);
  options.building = "C";
  EXPECT_THAT([&] { read(site(), options); },
              testing::ThrowsMessage<SourceError>(HasSubstr("the buildings are \"A\", \"B\"")));
  options.building.clear();
  options.bounds = Bounds{0.5, 13.0008, 0.51, 13.0016};
  EXPECT_EQ(read(site(), options).building.areas.size(), 2U);
}

TEST(Osm, FarThingsAndNamesInOneLanguage) {
  OsmText text = site();
  for (int room = 0; room < 12; ++room)
    text.box(20 + room, 200 + 6 * room, 0, 205 + 6 * room, 5,
             {{"indoor", "room"}, {"level", "0"}, {"name:fr", "Salle"}, {"alt_name", "Salon"}});
  text.box(40, 900'000, 0, 900'005, 5, {{"indoor", "room"}, {"level", "0"}});
  const Read result = read(text);
  EXPECT_EQ(result.building.areas.size(), 16U);
  EXPECT_EQ(result.findings.countOf("far-away"), 1U);
  const Place& place = result.building.places[1];
  EXPECT_EQ(place.id + ' ' + place.names.name, "way/20 Salle");
  EXPECT_EQ(place.description.at(""), "Salon");
}

TEST(Osm, OnlyTheMapIsCredited) {
  for (const bool isPublished : {true, false}) {
    std::string xml = site().xml();
    if (!isPublished)
      for (const std::string key : {" id='", "ref='"})
        for (std::size_t at = 0; (at = xml.find(key, at)) != std::string::npos; at += key.size())
          xml.insert(at + key.size(), "-");
    Findings findings;
    const Building building = readOsmXml({{"plan.osm", xml}}, {}, findings);
    EXPECT_EQ(building.areas.size(), 4U);
    EXPECT_EQ(building.attribution.empty(), !isPublished);
  }
}

TEST(Osm, FootwaysBetweenEntrancesAreWalked) {
  OsmText text = site();
  text.node(6, 50, 20, {{"entrance", "yes"}});
  text.node(7, 75, 30);
  text.node(8, 100, 20, {{"entrance", "yes"}});
  text.node(9, 75, -20);
  text.node(90, 80, -20);
  text.way(61, {6, 7}, {{"highway", "footway"}});
  text.way(62, {7, 8}, {{"highway", "steps"}});
  text.way(63, {9, 90}, {{"highway", "footway"}});
  const Read result = read(text);
  ASSERT_EQ(result.building.lines.size(), 2U);
  for (const Line& line : result.building.lines) EXPECT_THAT(line.levels, ElementsAre(0));
  EXPECT_TRUE(result.building.sourceLinks.empty());
}

TEST(Osm, FootwaysThatLeadToTheRoomsAreTheNetwork) {
  OsmText text;
  text.box(1, 0, 0, 10, 10, {{"indoor", "room"}, {"level", "0"}});
  text.box(2, 20, 0, 30, 10, {{"indoor", "room"}, {"level", "1"}});
  text.box(3, 0, 10, 30, 20, {{"indoor", "corridor"}, {"level", "0-1"}});
  text.node(1, 5, 10, {{"door", "yes"}, {"level", "0"}});
  text.node(2, 15, 15, {{"highway", "elevator"}, {"level", "0;1"}});
  text.way(5, {10, 1, 2}, {{"highway", "footway"}, {"level", "0"}});
  text.way(6, {2, 20}, {{"highway", "footway"}, {"level", "1"}, {"oneway", "yes"}});
  text.way(7, {1, 20}, {{"highway", "steps"}, {"level", "0;1"}});
  const Read result = read(text);
  std::string links;
  for (const SourceLink& link : result.building.sourceLinks)
    links += fmt::format("{}>{}:{} ", link.from, link.to, static_cast<int>(link.kind));
  EXPECT_EQ(links,
            "node/10@0>node/1@0:0 node/1@0>node/2@0:0 node/2@1>node/20@1:0 "
            "node/1@0>node/20@1:4 node/2@0>node/2@1:2 ");
  EXPECT_EQ(result.building.sourceLinks[2].direction, Direction::forward);
}

}  // namespace
}  // namespace orivanta::importer
