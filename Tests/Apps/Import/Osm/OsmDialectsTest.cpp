// Extracts as the programs that convert OpenStreetMap write them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/json.hpp>
#include <map>

#include "Apps/Import/SourceError.hpp"
#include "Apps/Import/Stages.hpp"
#include "Tests/Apps/Import/House/House.hpp"
#include "Tests/Apps/Import/Osm/OsmText.hpp"

namespace orivanta::importer {
namespace {

namespace json = boost::json;

Building readText(const std::string& text, Findings& findings) {
  const std::vector<SourceFile> files = {{"plan", text}};
  return readBuilding(files, recognizeFormat(files), {}, findings);
}

std::string describedText(const std::string& text) {
  Findings findings;
  return described(readText(text, findings));
}

// Replaces the identifier and the tags of each feature by `properties(type, number, tags)`.
template <class Properties>
std::string rewritten(const SourceFile& file, const Properties& properties) {
  json::value collection = json::parse(file.bytes);
  for (json::value& feature : collection.at("features").as_array()) {
    json::object& members = feature.as_object();
    json::object tags = members["properties"].as_object();
    const std::string id(members["id"].as_string());
    tags.erase("@id");
    members.erase("id");
    const std::size_t slash = id.find('/');
    members["properties"] = properties(id.substr(0, slash), id.substr(slash + 1), tags);
  }
  return json::serialize(collection);
}

json::object with(json::object first, const json::object& more) {
  first.insert(more.begin(), more.end());
  return first;
}

std::string hstore(const json::object& tags) {
  std::string text;
  for (const auto& [key, value] : tags)
    text += fmt::format("{}\"{}\"=>{}", text.empty() ? "" : ",", std::string_view(key),
                        json::serialize(value));
  return text;
}

TEST(OsmDialects, GeoJsonOfAllConvertersGivesTheSameBuilding) {
  const SourceFile file = house::asOsmGeoJson(house::make())[0];
  const std::string expected = describedText(file.bytes);
  using Object = json::object;
  using Text = std::string;
  const std::vector<Object (*)(const Text&, const Text&, const Object&)> dialects = {
      [](const Text& type, const Text& id, const Object& tags) {
        return with({{"full_id", type[0] + id}, {"osm_id", id}, {"osm_type", type}}, tags);
      },
      [](const Text& type, const Text& id, const Object& tags) {
        return with({{"element_type", type}, {"osmid", std::stoll(id)}, {"shop", nullptr}}, tags);
      },
      [](const Text& type, const Text& id, const Object& tags) {
        return Object{{"osm_type", type}, {"osm_id", id}, {"tags", hstore(tags)}};
      },
      [](const Text& type, const Text& id, const Object& tags) {
        return with({{"@osmId", type + "/" + id}}, tags);
      },
      [](const Text& type, const Text& id, const Object& tags) {
        return Object{{type == "way" ? "osm_way_id" : "osm_id", id},
                      {"osm_version", nullptr},
                      {"other_tags", hstore(tags)}};
      },
      [](const Text& type, const Text& id, const Object& tags) {
        return Object{{"osm_id", id},
                      {"osm_way_id", type == "way" ? json::value(id) : json::value()},
                      {"all_tags", json::serialize(tags)}};
      },
      [](const Text& type, const Text& id, const Object& tags) {
        Object others = tags;
        json::array relations;
        if (type == "way" && others.contains("level")) {
          const Object own = {{"type", "level"}, {"level", others["level"]}};
          relations.push_back(Object{{"reltags", own}});
          others.erase("level");
        }
        return Object{{"type", type}, {"id", id}, {"tags", others}, {"relations", relations}};
      }};
  for (const auto& dialect : dialects) {
    const std::string text = rewritten(file, dialect);
    EXPECT_EQ(describedText(text), expected) << text.substr(0, 600);
  }
}

// The ways and the members of relations get their positions instead of the numbers of their nodes.
TEST(OsmDialects, GeometryOfOverpassNeedsNoNodes) {
  const std::string bytes = house::asOverpassJson(house::make())[0].bytes;
  json::value answer = json::parse(bytes);
  std::map<std::int64_t, json::object> nodes;
  std::map<std::int64_t, json::array> geometries;
  json::array elements;
  for (json::value& element : answer.at("elements").as_array())
    if (element.at("type") == "node")
      nodes[element.at("id").as_int64()] = {{"lat", element.at("lat")}, {"lon", element.at("lon")}};
  for (json::value& element : answer.at("elements").as_array()) {
    json::object& members = element.as_object();
    if (members["type"] == "way") {
      json::array& geometry = geometries[members["id"].as_int64()];
      for (const json::value& node : members["nodes"].as_array())
        geometry.push_back(nodes[node.as_int64()]);
      members["geometry"] = geometry;
      members.erase("nodes");
    }
    if (members["type"] == "relation" || members.contains("tags")) elements.push_back(element);
  }
  for (json::value& element : elements)
    if (element.at("type") == "relation")
      for (json::value& member : element.at("members").as_array()) {
        member.as_object()["geometry"] = geometries[member.at("ref").as_int64()];
        member.as_object()["tags"] = {{"name", "of a member, which tells nothing"}};
      }
  answer.at("elements") = elements;
  EXPECT_EQ(describedText(json::serialize(answer)), describedText(bytes));
}

TEST(OsmDialects, LevelsComeFromNumbersAndRelations) {
  Findings findings;
  const Building numbered = readText(  // in Windows-1252, with a ring that is not closed
      "{\"features\":[{\"properties\":{\"indoor\":\"room\",\"level\":1.0,\"name\":\"K\xFC\"},"
      "\"geometry\":{\"type\":\"Polygon\",\"coordinates\":[[[8,47],[8.0001,47],[8.0001,47.0001]]]}}"
      "]}",
      findings);
  EXPECT_EQ(numbered.areas.at(0).level, 1.0);
  EXPECT_EQ(numbered.places.at(0).names.name, "K\u00FC");
  EXPECT_EQ(findings.countOf("text-not-utf8"), 1U);

  OsmText old;
  old.box(1, 0, 0, 5, 5, {{"buildingpart", "room"}});
  old.relation(7, {{"buildingpart", 1}}, {{"type", "level"}, {"level", "-2"}});
  EXPECT_EQ(readText(old.xml(), findings).areas.at(0).level, -2.0);
  EXPECT_EQ(findings.count(), 1U);

  // An elevator and an escalator lead from a corridor on level 1 to a path without a level.
  OsmText exits;
  exits.node(1, 0, 0, {{"highway", "elevator"}});
  for (const int id : {2, 3, 4}) exits.node(id, id, 0);
  exits.way(5, {1, 2}, {{"highway", "footway"}, {"indoor", "yes"}, {"level", "1"}});
  exits.way(6, {1, 3}, {{"highway", "footway"}, {"indoor", "yes"}});
  exits.way(7, {3, 4, 2}, {{"highway", "steps"}, {"conveying", "yes"}, {"indoor", "yes"}});
  const Building joined = readText(exits.xml(), findings);
  EXPECT_EQ(joined.connectorHints.at(0).spots.at(0).level, 0.0);
  EXPECT_EQ(joined.lines.at(1).levels, std::vector<double>{0.0});
  EXPECT_EQ(joined.lines.at(2).levels, (std::vector<double>{0.0, 1.0}));
  EXPECT_EQ(findings.countOf("level-missing"), 1U);
}

TEST(OsmDialects, RowsThatRepeatAnIdentifierAreSeveralRooms) {
  std::string rows;
  for (const int left : {1, 2, 2})
    rows += fmt::format(
        R"({}{{"properties":{{"osm_id":-5,"indoor":"room","level":0}},"geometry":{{"type":)"
        R"("Polygon","coordinates":[[[8.000{},47],[8.0009,47],[8.0009,47.0001]]]}}}})",
        rows.empty() ? "" : ",", left);
  Findings findings;
  EXPECT_EQ(readText("{\"features\":[" + rows + "]}", findings).areas.size(), 2U);
}

TEST(OsmDialects, DoorsMayBeLines) {
  OsmText text;
  text.box(1, 0, 0, 5, 5, {{"indoor", "room"}, {"level", "2"}});
  text.node(2, 1, 5);
  text.node(3, 3, 5);
  text.way(2, {2, 3}, {{"indoor", "door"}, {"door", "yes"}, {"level", "2"}});
  Findings findings;
  const Building building = readText(text.xml(), findings);
  ASSERT_EQ(building.doors.size(), 1U);
  EXPECT_EQ(building.doors[0].id, "way/2");
  EXPECT_EQ(building.doors[0].level, 2.0);
}

TEST(OsmDialects, ErrorsTellWhyNothingIsIndoors) {
  OsmText signs;
  signs.box(1, 0, 0, 5, 5, {{"indoor", "room"}, {"level", "EG"}});
  for (const auto& [text, cause] :
       {std::pair(signs.xml(), "way/1: The level \"EG\" is no number"),
        {R"({"elements":[{"type":"way","id":1,"center":{"lat":1,"lon":2},"nodes":[1,2,3,1],)"
         R"("tags":{"indoor":"room","level":"0"}}]})",
         "with \"out geom;\""},
        {R"({"elements":[],"remark":"runtime error: Query timed out"})", "Query timed out"},
        {"<osm><remark> runtime error: out of memory </remark></osm>", "error: out of memory"}}) {
    Findings findings;
    EXPECT_THAT([&] { readText(text, findings); },
                testing::ThrowsMessage<SourceError>(testing::HasSubstr(cause)));
  }
}

TEST(OsmDialects, DoorsBesideTheWallJoinBothSides) {
  for (const double offset : {0.0, 2e-6, -2e-6}) {  // degrees; a fifth of a meter
    OsmText text;
    text.box(1, 0, 0, 20, 10, {{"indoor", "room"}, {"level", "1"}});
    text.box(2, 0, 10, 20, 14, {{"indoor", "corridor"}, {"level", "1"}});
    text.box(3, -1, -1, 21, 15, {{"building", "yes"}});
    std::string xml = text.xml();
    const std::string door =
        fmt::format("<node id='99' lon='13.0001' lat='{:.7f}'><tag k='door' v='yes'/></node>",
                    0.5 + 10e-5 + offset);
    xml.insert(xml.find("<node"), door);
    Findings findings;
    Building building = readText(xml, findings);
    Options options;
    options.doors = DoorChoice::strict;
    arrangeStoreys(building, options, findings);
    repairShapes(building, options, findings);
    joinDoors(building, options, findings);
    ASSERT_EQ(building.doors.size(), 1U);
    EXPECT_EQ(building.doors[0].areas.size(), 2U) << offset;
  }
}

}  // namespace
}  // namespace orivanta::importer
