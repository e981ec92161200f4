// An IMDF archive with every type of feature, and with every mistake that the standard has a rule
// for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using Archive = std::map<std::string, std::string>;

// A rectangle in steps of 1/10,000 degrees from 13 degrees east, 52 degrees north.
std::string box(int left, int bottom, int right, int top) {
  std::string ring;
  for (const auto& [x, y] :
       {std::pair(left, bottom), {right, bottom}, {right, top}, {left, top}, {left, bottom}})
    ring += (ring.empty() ? "[13.00" : ",[13.00") + std::to_string(10 + x) + ",52.00" +
            std::to_string(10 + y) + ']';
  return R"({"type":"Polygon","coordinates":[[)" + ring + "]]}";
}

std::string point(int x, int y) {
  return R"({"type":"Point","coordinates":[13.00)" + std::to_string(10 + x) + ",52.00" +
         std::to_string(10 + y) + "]}";
}

std::string line(int x, int bottom, int top) {
  return R"({"type":"LineString","coordinates":[[13.00)" + std::to_string(10 + x) + ",52.00" +
         std::to_string(10 + bottom) + "],[13.00" + std::to_string(10 + x) + ",52.00" +
         std::to_string(10 + top) + "]]}";
}

std::string feature(const std::string& type, const std::string& id, const std::string& geometry,
                    const std::string& properties) {
  return R"({"type":"Feature","id":")" + id + R"(","feature_type":")" + type + R"(","geometry":)" +
         geometry + R"(,"properties":{)" + properties + "}}";
}

Archive archive() {
  std::map<std::string, std::string> features;
  const auto add = [&](const std::string& type, const std::string& id, const std::string& geometry,
                       const std::string& properties) {
    std::string& all = features[type];
    all += (all.empty() ? "" : ",\n") + feature(type, id, geometry, properties);
  };
  add("address", "adr", "null", R"("address":"1 Main","unit":"2","locality":"X","country":"DE")");
  add("venue", "ven", box(0, 0, 40, 40),
      R"("category":"museum","name":{"en":"Museum","de":"Das Museum"},"address_id":"adr",)"
      R"("display_point":)" +
          point(5, 5));
  add("building", "bui", "null", R"("category":"unspecified","name":{"en":"House"})");
  add("footprint", "foo", box(0, 0, 40, 40), R"("category":"ground","building_ids":["bui"])");
  for (const char* level : {"0", "1"}) {
    const std::string on = std::string(R"("level_id":"lev)") + level + '"';
    const std::string id(level);
    add("level", "lev" + id, box(0, 0, 40, 40),
        R"("category":"unspecified","outdoor":false,"building_ids":["bui"],"ordinal":)" + id +
            R"(,"name":{"en":"Floor )" + id + R"("},"short_name":{"en":")" + id + R"("})");
    add("unit", "hall" + id, box(0, 0, 10, 40), R"("category":"walkway",)" + on);
    add("unit", "lift" + id, box(10, 0, 15, 10), R"("category":"elevator",)" + on);
    add("unit", "flight" + id, box(10, 30, 15, 40), R"("category":"escalator",)" + on);
    add("amenity", "cabin" + id, point(12, 5),
        R"("category":"elevator","correlation_id":"same","accessibility":["wheelchair"],)"
        R"("name":{"en":"Lift A"},"unit_ids":["lift)" +
            id + "\"]");
  }
  const std::string on = R"("level_id":"lev0")";
  add("unit", "shop", box(10, 10, 20, 20), R"("category":"room","name":{"en":"Unit 1"},)" + on);
  add("unit", "toilet", box(10, 20, 20, 30),
      R"("category":"restroom.female","restriction":"employeesonly",)" + on);
  add("opening", "door", line(10, 12, 14),
      R"("category":"pedestrian","accessibility":["wheelchair"],)"
      R"("door":{"type":"turnstile.fullheight"},)" +
          on);
  add("opening", "exit", line(0, 12, 14), R"("category":"pedestrian.principal",)" + on);
  add("anchor", "anc", point(15, 15), R"("unit_id":"shop")");
  add("anchor", "anc2", point(5, 20), R"("unit_id":"hall0")");
  add("occupant", "occ", "null",
      R"("category":"restaurant","name":{"en":"Bistro","ja":"Bi"},"anchor_id":"anc",)"
      R"("hours":"Mo-Fr 08:00-18:00","phone":"+49301","website":"https://example.org")");
  add("occupant", "news", "null", R"("category":"news","name":{"en":"News"},"anchor_id":"anc2")");
  add("kiosk", "kio", box(4, 18, 6, 22), R"("anchor_id":"anc2",)" + on);
  add("amenity", "wc", point(15, 25), R"("category":"restroom","unit_ids":["toilet"])");
  add("amenity", "atm", point(5, 5), R"("category":"atm","unit_ids":["hall0"])");
  add("fixture", "fix", box(2, 30, 4, 32), R"("category":"desk",)" + on);
  add("section", "sec", box(0, 0, 10, 20),
      R"("category":"eatingdrinking","name":{"en":"Food"},)" + on);
  add("geofence", "geo", box(0, 0, 10, 20), R"("category":"paidarea","level_ids":["lev0"])");
  add("detail", "det", line(3, 3, 5), on);
  add("relationship", "up", "null",
      R"("category":"escalator","direction":"directed","origin":{"id":"flight0",)"
      R"("feature_type":"unit"},"destination":{"id":"flight1","feature_type":"unit"})");
  add("relationship", "through", "null",
      R"("category":"traversal","direction":"undirected","origin":{"id":"hall0"},)"
      R"("intermediary":[{"id":"door"}],"destination":{"id":"shop"})");
  Archive files;
  files["manifest.json"] = R"({"version":"1.0.0","language":"en"})";
  for (const auto& [type, all] : features)
    files[type + ".geojson"] = R"({"type":"FeatureCollection","features":[)" + all + "]}";
  return files;
}

Building read(const Archive& files, Findings& findings, const std::string& building = {}) {
  std::vector<SourceFile> sources;
  for (const auto& [name, bytes] : files) sources.push_back({"a.zip/" + name, bytes});
  Options options;
  options.building = building;
  return readImdf(sources, options, findings);
}

// The name of the file of a type whose rules begin with this title.
std::string typeOf(std::string title) {
  title[0] = static_cast<char>(title[0] - 'A' + 'a');
  return title;
}

const Place& placeOf(const Building& building, const std::string& id) {
  for (const Place& place : building.places)
    if (place.id == id) return place;
  throw std::out_of_range(id);
}

}  // namespace

TEST(Imdf, IsReadWithAllTypes) {
  Findings findings;
  const Building building = read(archive(), findings, "House");
  EXPECT_EQ(findings.countOf("not-imported"), 2U);  // the geofence and the detail
  EXPECT_EQ(findings.count(), 2U);
  EXPECT_EQ(building.names.name, "Museum");
  EXPECT_EQ(building.names.byLanguage.at("de"), "Das Museum");
  ASSERT_EQ(building.storeys.size(), 2U);
  EXPECT_EQ(building.storeys[1].shortName, "1");
  std::map<std::string, AreaKind> kinds;
  for (const Area& area : building.areas) kinds[area.id] = area.kind;
  EXPECT_EQ(kinds, (std::map<std::string, AreaKind>{{"hall0", AreaKind::walkway},
                                                    {"hall1", AreaKind::walkway},
                                                    {"lift0", AreaKind::elevator},
                                                    {"lift1", AreaKind::elevator},
                                                    {"flight0", AreaKind::escalator},
                                                    {"flight1", AreaKind::escalator},
                                                    {"shop", AreaKind::room},
                                                    {"toilet", AreaKind::room},
                                                    {"kio", AreaKind::room},
                                                    {"fix", AreaKind::obstacle}}));
  ASSERT_EQ(building.places.size(), 5U);
  EXPECT_EQ(placeOf(building, "occ").hours, "Mo-Fr 08:00-18:00");
  EXPECT_EQ(placeOf(building, "occ").category, "occupant:restaurant");
  EXPECT_THAT(placeOf(building, "occ").areas, ElementsAre("shop"));
  EXPECT_THAT(placeOf(building, "news").areas, ElementsAre("kio"));
  EXPECT_THAT(placeOf(building, "wc").areas, ElementsAre("toilet"));
  EXPECT_EQ(placeOf(building, "atm").spots.size(), 1U);
  EXPECT_NEAR(placeOf(building, "sec").spots.at(0).position.y, 0.0, 500.0);
  ASSERT_EQ(building.doors.size(), 2U);
  EXPECT_EQ(building.doors[0].kind, DoorKind::gate);
  EXPECT_EQ(building.doors[0].wheelchair, Wheelchair::yes);
  EXPECT_NEAR(building.doors[0].width.value(), 22.25, 0.01);
  EXPECT_THAT(building.doors[0].areas, ElementsAre("hall0", "shop"));
  EXPECT_EQ(building.doors[1].kind, DoorKind::entrance);
  ASSERT_EQ(building.connectorHints.size(), 2U);
  EXPECT_EQ(building.connectorHints[0].direction, Direction::forward);
  EXPECT_THAT(building.connectorHints[0].areas, ElementsAre("flight0", "flight1"));
  EXPECT_EQ(building.connectorHints[1].names.name, "Lift A");
  EXPECT_EQ(building.connectorHints[1].wheelchair, Wheelchair::yes);
  EXPECT_THAT(building.connectorHints[1].areas, ElementsAre("lift0", "lift1"));
}

TEST(Imdf, BreachesAreReportedByTheirRules) {
  struct Case {
    std::string rule, file, from, to;
    Severity severity = Severity::violation;
  };
  std::vector<Case> cases = {
      {"FeatureIdMustBeString", "unit", R"("id":"shop")", R"("id":5)"},
      {"FeatureIdMustNotBeEmpty", "unit", R"("id":"shop")", R"("id":"")"},
      {"FeatureIdMustBeUnique", "unit", R"("id":"shop")", R"("id":"toilet")"},
      {"FeatureMustHaveId", "unit", R"("id":"shop",)", ""},
      {"FeatureMustHaveFeatureType", "unit", R"("feature_type":"unit",)", ""},
      {"FeatureTypeMustBeString", "unit", R"("feature_type":"unit")", R"("feature_type":1)"},
      {"FeatureTypeMustNotBeEmpty", "unit", R"("feature_type":"unit")", R"("feature_type":"")"},
      {"feature-type-unknown", "unit", R"("feature_type":"unit")", R"("feature_type":"x")",
       Severity::info},
      {"ZeroCountOfUnitQualifiedAddresses", "address", R"("unit":"2",)", "", Severity::info},
      {"ManifestVersionMustBeValid", "manifest", "1.0.0", "2.0.0"},
      {"VenueCountMustBeExactlyOne", "venue", R"("features":[)",
       R"("features":[)" + feature("venue", "v2", "null", "") + ','},
      {"VenueGeometryMustContainDisplayPoint", "venue", point(5, 5), point(50, 50)},
      {"VenueMustCoverAllChildFeatures", "venue", box(0, 0, 40, 40), box(0, 0, 30, 40),
       Severity::warning},
      {"VenueMustHaveAddress", "venue", "\"adr\"", "null"},
      {"VenueMustHaveAtLeastOneBuilding", "building", "\"building\"", "\"other\""},
      {"BuildingMustHaveAtLeastOneFootprint", "footprint", "[\"bui\"]", "[]"},
      {"FootprintMustReferenceBuilding", "footprint", "[\"bui\"]", "[\"no\"]"},
      {"BuildingCategoryMustBeValid", "building", "unspecified", "mansion"},
      {"FootprintCategoryMustBeValid", "footprint", "ground", "air"},
      {"RelationshipCategoryMustBeValid", "relationship", "\"escalator\"", "\"rocket\""},
      {"LevelMustHaveName", "level", R"("name":{"en":"Floor 0"},)", ""},
      {"LevelMustHaveShortName", "level", R"("short_name":{"en":"0"})", R"("short_name":null)"},
      {"LevelMustHaveOrdinal", "level", R"("ordinal":1)", R"("ordinal":"up")"},
      {"LevelMustBeReferencedByUnit", "level", R"("features":[)",
       R"("features":[)" + feature("level", "l9", box(0, 0, 1, 1), R"("ordinal":9)") + ',',
       Severity::warning},
      {"OpeningMustHaveLineStringGeometry", "opening", line(10, 12, 14), point(10, 12)},
      {"OpeningMustBeCoveredByReferencedLevel", "opening", line(10, 12, 14), line(60, 12, 14)},
      {"OpeningMustBeCoveredByUnitBoundary", "opening", line(10, 12, 14), line(15, 12, 14),
       Severity::warning},
      {"OccupantMustReferenceAnchor", "occupant", "\"anc\"", "\"none\""},
      {"OccupantMustHaveName", "occupant", R"({"en":"News"})", "null"},
      {"NameMustBeString", "occupant", R"("en":"News")", R"("en":"News","de":4)",
       Severity::warning},
      {"DetailMustHaveLinealGeometry", "detail", line(3, 3, 5), point(3, 3)},
      {"GeofenceMustHaveLevelOrBuildingReference", "geofence", "lev0", "lev7"},
      {"RelationshipDirectionMustBeValid", "relationship", "\"directed\"", "\"up\""},
      {"ReferencedFeatureIDMustBeResolvable", "anchor", "\"shop\"", "\"shed\""},
      {"FileMustBeValidGeoJSON", "detail", "FeatureCollection\",", "FeatureCollection\""},
      {"FileMustContainFeatureCollection", "detail", "FeatureCollection", "Features",
       Severity::warning},
  };
  for (const auto& [title, shape] :
       std::map<std::string, std::string>{{"Venue", box(0, 0, 40, 40)},
                                          {"Footprint", box(0, 0, 40, 40)},
                                          {"Level", box(0, 0, 40, 40)},
                                          {"Fixture", box(2, 30, 4, 32)},
                                          {"Section", box(0, 0, 10, 20)},
                                          {"Kiosk", box(4, 18, 6, 22)},
                                          {"Geofence", box(0, 0, 10, 20)}})
    cases.push_back({title + "MustHavePolygonalGeometry", typeOf(title), shape, point(5, 5)});
  for (const char* title : {"Building", "Level", "Opening", "Occupant", "Fixture", "Section",
                            "Geofence", "Relationship"})
    cases.push_back({title + std::string("MustHaveCategory"), typeOf(title), "category", "kind"});
  for (const char* title : {"Opening", "Detail", "Fixture", "Section", "Kiosk"})
    cases.push_back({title + std::string("MustReferenceLevel"), typeOf(title), "lev0", "lev7"});
  for (const Case& each : cases) {
    SCOPED_TRACE(each.rule);
    Archive files = archive();
    std::string& text = files[each.file + (each.file == "manifest" ? ".json" : ".geojson")];
    const std::size_t at = text.find(each.from);
    ASSERT_NE(at, text.npos);
    text.replace(at, each.from.size(), each.to);
    Findings findings;
    EXPECT_FALSE(read(files, findings).areas.empty());
    bool found = false;
    for (const Finding& finding : findings.sorted())
      found = found || (finding.rule == each.rule && finding.severity == each.severity &&
                        !finding.file.empty() && !finding.message.empty());
    EXPECT_TRUE(found);
  }
  Archive files = archive();
  files.erase("manifest.json");
  Findings findings;
  read(files, findings);
  EXPECT_EQ(findings.countOf("ManifestFileMustBePresent"), 1U);
}

// Changes of the archive, and what they mean.
TEST(Imdf, KeepsWhatFeaturesSay) {
  const auto changed = [](const char* file, const std::string& from, const std::string& to) {
    Archive files = archive();
    std::string& text = files[file];
    text.replace(text.find(from), from.size(), to);
    Findings findings;
    return read(files, findings);
  };
  const auto amenity = [](const char* id, const char* unit, const char* category) {
    return feature("amenity", id, point(15, 25),
                   std::string(R"("category":")") + category + R"(","unit_ids":[")" + unit + "\"]");
  };
  Building building =
      changed("amenity.geojson", "\"features\":[",
              "\"features\":[" + amenity("a", "toilet", "restroom.male") + ',' +
                  amenity("b", "shop", "phone") + ',' + amenity("c", "shop", "atm") + ',');
  for (const char* id : {"a", "b", "c", "wc"}) EXPECT_EQ(placeOf(building, id).id, id);
  building = changed("relationship.geojson",
                     R"("origin":{"id":"flight0","feature_type":"unit"},)"
                     R"("destination":{"id":"flight1","feature_type":"unit"})",
                     R"("origin":{"id":"hall0"},"intermediary":[{"id":"flight0"}],)"
                     R"("destination":{"id":"hall1"})");
  ASSERT_EQ(building.connectorHints.size(), 2U);
  EXPECT_THAT(building.connectorHints[0].areas, ElementsAre("flight0"));
  ASSERT_EQ(building.connectorHints[0].spots.size(), 1U);
  EXPECT_EQ(building.connectorHints[0].spots[0].level, 1.0);
  building = changed("occupant.geojson", R"("hours")", R"("alt_name":{"en":"Inn"},"hours")");
  EXPECT_EQ(placeOf(building, "occ").description.at(""), "Inn");
}

TEST(Imdf, WithoutLevelsOrTheBuildingIsRefused) {
  const auto errorOf = [](const Archive& files, const std::string& building) -> std::string {
    Findings findings;
    try {
      read(files, findings, building);
    } catch (const SourceError& error) {
      return error.what();
    }
    return {};
  };
  EXPECT_THAT(errorOf(archive(), "Tower"), HasSubstr("no building \"Tower\"; there are: House"));
  Archive files = archive();
  files.erase("level.geojson");
  EXPECT_THAT(errorOf(files, {}), HasSubstr("a.zip: no level.geojson"));
}

}  // namespace orivanta::importer
