// IMDF archives as converters and programs that do not know the standard well write them.
#include <gtest/gtest.h>

#include <boost/json.hpp>

#include "Apps/Import/Read/Sources.hpp"
#include "Tests/Apps/Import/House/House.hpp"
#include "Tests/Apps/Import/Osm/OsmText.hpp"

namespace orivanta::importer {
namespace {

namespace json = boost::json;

using Rewrite = void (*)(json::object& feature);

std::string inUpperCase(const json::value& value) {
  std::string text(value.as_string());
  for (char& each : text)
    if (each >= 'a' && each <= 'z') each = static_cast<char>(each - 'a' + 'A');
  return text;
}

std::string describedArchive(Rewrite rewrite) {
  std::vector<SourceFile> files = house::asImdf(house::make());
  for (SourceFile& file : files) {
    json::value contents = json::parse(file.bytes);
    if (!contents.as_object().contains("features")) continue;
    for (json::value& feature : contents.at("features").as_array()) rewrite(feature.as_object());
    file.bytes = json::serialize(contents);
  }
  Findings findings;
  return described(readBuilding(files, recognizeFormat(files), {}, findings));
}

TEST(ImdfDialects, GiveTheSameBuilding) {
  const std::string expected = describedArchive([](json::object&) {});
  const Rewrite dialects[] = {
      // A table with one column for each property.
      [](json::object& feature) {
        json::object& properties = feature["properties"].as_object();
        for (auto& member : properties)
          if (member.value().is_structured()) member.value() = json::serialize(member.value());
        for (const char* each : {"id", "feature_type"}) properties[each] = feature[each];
        for (const char* each : {"id", "feature_type"}) feature.erase(each);
      },
      // Two programs that write UUIDs differently.
      [](json::object& feature) {
        for (auto& member : feature["properties"].as_object())
          if (std::string_view(member.key()).ends_with("_id") && member.value().is_string())
            member.value() = inUpperCase(member.value());
        if (json::value* units = feature["properties"].as_object().if_contains("unit_ids"))
          for (json::value& unit : units->as_array()) unit = inUpperCase(unit);
      }};
  for (const Rewrite& dialect : dialects) EXPECT_EQ(describedArchive(dialect), expected);
}

TEST(ImdfDialects, CategoriesAndOpeningsNeedNotFollowTheStandard) {
  const std::vector<SourceFile> files = {
      {"a/level.geojson",
       R"({"type":"FeatureCollection","features":[{"id":"l","type":"Feature",)"
       R"("feature_type":"level","geometry":null,"properties":{"ordinal":0}}]})"},
      {"a/unit.geojson",
       R"({"type":"FeatureCollection","features":[{"id":"u","type":"Feature",)"
       R"("feature_type":"unit","properties":{"category":"Hallway","level_id":"l"},"geometry":)"
       R"({"type":"Polygon","coordinates":[[[8,47],[8.001,47],[8.001,47.001],[8,47]]]}}]})"},
      {"a/opening.geojson", R"({"type":"FeatureCollection","features":[{"id":"o","type":"Feature",)"
                            R"("feature_type":"opening","properties":{"level_id":"l"},"geometry":)"
                            R"({"type":"Point","coordinates":[8.0005,47]}}]})"}};
  Findings findings;
  const Building building = readImdf(files, {}, findings);
  EXPECT_EQ(building.areas.at(0).kind, AreaKind::walkway);
  ASSERT_EQ(building.doors.size(), 1U);
  EXPECT_TRUE(building.doors[0].line.empty());
  EXPECT_EQ(findings.countOf("OpeningMustBeCoveredByReferencedLevel"), 0U);
}

}  // namespace
}  // namespace orivanta::importer
