#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {
namespace {

using testing::ElementsAre;

Area area(std::string id, AreaKind kind, double level) {
  Area area;
  area.id = std::move(id);
  area.source = area.id.substr(0, area.id.find('@'));
  area.kind = kind;
  area.level = level;
  area.shape = {{package::rectangle(0, 0, 2, 2), {}}};
  return area;
}

Storey storey(double ordinal, std::string shortName, std::string building = {}) {
  Storey storey;
  storey.ordinal = ordinal;
  storey.shortName = std::move(shortName);
  storey.building = std::move(building);
  return storey;
}

Findings arrange(Building& building, const Options& options = {}) {
  Findings findings;
  arrangeStoreys(building, options, findings);
  return findings;
}

TEST(Storeys, RoomsMakeStoreysAndOtherFractionsAreLandings) {
  Building building;
  building.areas = {
      area("room", AreaKind::room, 0.1 + 0.2),   area("hall", AreaKind::walkway, 1),
      area("stairs@-1", AreaKind::stairs, -1),   area("stairs@1", AreaKind::stairs, 1),
      area("stairs@1.5", AreaKind::stairs, 1.5), area("flight", AreaKind::stairs, 0.6),
      area("seat", AreaKind::obstacle, 7.5),     area("parking", AreaKind::unknown, 3)};
  Door below;
  below.id = "below";
  below.level = -1;
  building.doors = {below};
  Line line;
  line.levels = {-1, 0.3, 1.5};
  line.points = {{0, 0}, {1, 0}};
  line.pointLevels = {-1, 1.5};
  building.lines = {line};
  Place place;
  place.areas = {"stairs@1.5", "hall"};
  building.places = {place};
  const Findings findings = arrange(building);
  std::vector<std::string> ids;
  for (const Storey& each : building.storeys) ids.push_back(each.id);
  EXPECT_THAT(ids, ElementsAre("level-0.3", "level-1", "level-3"));
  std::string areas;
  for (const Area& each : building.areas)
    areas += each.id + ":" + std::to_string(each.level)[0] + " ";
  // Stairs are on a storey once, although they also have a landing there.
  EXPECT_EQ(areas, "room:0 hall:1 stairs@1:1 flight:0 seat:3 parking:3 ");
  EXPECT_EQ(building.areas[0].level, building.areas[3].level);
  EXPECT_THAT(building.lines[0].levels, ElementsAre(0.3, 1));
  EXPECT_THAT(building.lines[0].pointLevels, ElementsAre(0.3, 1));
  EXPECT_THAT(building.places[0].areas, ElementsAre("stairs@1", "hall"));
  EXPECT_TRUE(building.doors.empty());
  EXPECT_EQ(findings.countOf("level-landing"), 3U);
  EXPECT_EQ(findings.countOf("level-empty"), 1U);
}

TEST(Storeys, RecordsOfOneOrdinalMergeAndGetNamesAndElevations) {
  Building building;
  building.language = "de";
  for (const double level : {-2, -1, 0, 1, 2, 5})
    building.areas.push_back(area("r", AreaKind::room, level));
  building.storeys = {storey(0, ""), storey(-0.0, "E"), storey(1, "1. OG"), storey(2, "M")};
  building.storeys[1].names.name = "Eingang";
  building.storeys[2].elevation = 5.0;
  building.storeys[3].elevation = 9e9;
  Options options;
  options.languages = {"fr"};
  options.storeyHeight = 3.0;
  building.storeys.push_back(storey(-2, ""));
  building.storeys.back().elevation = -7.0;
  arrange(building, options);
  struct Row {
    const char* name;
    const char* shortName;
    double elevation;
  };
  const Row rows[] = {{"2. Untergeschoss", "2. UG", -7},
                      {"1. Untergeschoss", "1. UG", -3},
                      {"Eingang", "E", 1},
                      {"1. Obergeschoss", "1. OG", 5},
                      {"Ebene M", "M", 8},
                      {"5. Obergeschoss", "5. OG", 17}};
  ASSERT_EQ(building.storeys.size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_EQ(building.storeys[i].names.name, rows[i].name);
    EXPECT_EQ(building.storeys[i].shortName, rows[i].shortName);
    EXPECT_DOUBLE_EQ(*building.storeys[i].elevation, rows[i].elevation) << rows[i].name;
  }
  EXPECT_TRUE(building.storeys[0].names.generated);
  EXPECT_FALSE(building.storeys[2].names.generated);
  EXPECT_EQ(building.storeys[0].names.byLanguage["fr"], "Sous-sol 2");
}

TEST(Storeys, BuildingsThatCountDifferentlyAreReportedAndShifted) {
  Building site;
  site.storeys = {storey(0, "1", "A"), storey(1, "2", "A"), storey(1, "1", "B"),
                  storey(2, "2", "B")};
  for (std::size_t i = 2; i < 4; ++i)
    site.storeys[i].footprint = {{package::rectangle(0, 0, 10, 10), {}}};
  site.areas = {area("in B", AreaKind::room, 1), area("also in B", AreaKind::room, 2),
                area("in A", AreaKind::room, 0)};
  site.areas[2].shape = {{package::rectangle(20, 0, 30, 10), {}}};
  Building shifted = site;
  const Findings findings = arrange(site);
  ASSERT_EQ(findings.countOf("storeys-shifted"), 1U);
  EXPECT_EQ(site.storeys.size(), 3U);
  const std::string advice = findings.sorted().front().advice;
  EXPECT_NE(advice.find("--level-shift \"B=-1\""), std::string::npos) << advice;
  Options options;
  options.levelShifts = {{"B", -1.0}, {"C", 1.0}};
  const Findings again = arrange(shifted, options);
  EXPECT_EQ(again.countOf("storeys-shifted"), 0U);
  EXPECT_EQ(again.countOf("level-shift-unknown"), 1U);
  EXPECT_EQ(shifted.areas[0].level, 0.0);
  EXPECT_EQ(shifted.areas[1].level, 1.0);
  EXPECT_EQ(shifted.areas[2].level, 0.0);
}

}  // namespace
}  // namespace orivanta::importer
