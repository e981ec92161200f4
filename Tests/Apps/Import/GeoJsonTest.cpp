#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "Apps/Import/Read/Countries.hpp"
#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

using ::testing::HasSubstr;

std::string collection(const std::string& features) {
  return R"({"type": "FeatureCollection", "name": "n", "crs": {"type": "name", "properties":
             {"name": "EPSG:6677"}}, "features": [)" +
         features + "]}";
}

std::string feature(const std::string& geometry) {
  return R"({"type": "Feature", "id": 7, "feature_type": "unit", "properties": {"a": 1}, "geometry": )" +
         geometry + '}';
}

std::string geometry(const std::string& type, const std::string& coordinates) {
  return R"({"type": ")" + type + R"(", "coordinates": )" + coordinates + '}';
}

GeoFeatures read(const std::string& text, Findings& findings) {
  std::size_t vertices = 0;
  Limits limits;
  limits.vertices = 100;
  return readGeoJson({"x.geojson", text}, limits, vertices, findings);
}

}  // namespace

TEST(GeoJson, ReadsAllGeometries) {
  Findings findings;
  const std::string square = "[[0,0],[1,0],[1,1],[0,0]]";
  const GeoFeatures read1 = read(
      "\xEF\xBB\xBF" +
          collection(feature(geometry("Point", "[0.1, 139.70101799999999, 5]")) + ',' +
                     feature(geometry("MultiPolygon", "[[" + square + ',' + square + "]]")) + ',' +
                     feature(R"({"type": "GeometryCollection", "geometries": [)" +
                             geometry("LineString", "[[0,0],[1,1]]") + ',' +
                             geometry("MultiPoint", "[[1,2],[3,4]]") + "]}") +
                     ',' + feature("null")),
      findings);
  ASSERT_EQ(read1.features.size(), 4U);
  EXPECT_EQ(findings.count(), 0U);
  EXPECT_EQ(read1.name + ' ' + read1.crs, "n EPSG:6677");
  EXPECT_EQ(read1.features[0].id, "7");
  EXPECT_TRUE(read1.features[0].members.contains("feature_type"));
  EXPECT_EQ(read1.features[0].geometry.points.at(0).y, 139.70101799999999);
  EXPECT_EQ(read1.features[1].geometry.polygons.at(0).holes.size(), 1U);
  EXPECT_EQ(read1.features[2].geometry.lines.size(), 1U);
  EXPECT_EQ(read1.features[2].geometry.points.size(), 2U);
  EXPECT_EQ(read('[' + feature("null") + ']', findings).features.size(), 1U);
  EXPECT_EQ(read(feature("null"), findings).features.size(), 1U);
}

TEST(GeoJson, LeavesOutBadFeaturesOnly) {
  const std::string good = feature(geometry("Point", "[1, 2]"));
  const std::string deep = std::string(100'000, '[') + std::string(100'000, ']');
  const std::vector<std::string> bad = {
      feature(geometry("Point", "[1e400, 2]")),
      feature(geometry("Point", "[\"1\", 2]")),
      feature(geometry("Point", "[1]")),
      feature(geometry("Point", "[1e9, 2]")),
      feature(geometry("Circle", "[1, 2]")),
      feature(geometry("Polygon", "[1, 2]")),
      feature(geometry("Point", deep)),
      feature("[]"),
      R"({"type": "Feature", "geometry": null,})",
      "4",
  };
  for (const std::string& each : bad) {
    Findings findings;
    EXPECT_EQ(read(collection(good + ',' + each + ",\n" + good), findings).features.size(), 2U);
    EXPECT_EQ(findings.countOf("feature-unreadable"), 1U) << each.substr(0, 100);
  }
  Findings findings;
  EXPECT_EQ(read(collection(good + ",\n{,},\n" + good + ','), findings).features.size(), 2U);
  EXPECT_THAT(findings.sorted().at(0).message, HasSubstr("Line 3:"));
}

TEST(GeoJson, TellsWhetherCoordinatesAreDegrees) {
  // A square room, turned by 30 degrees, drawn many times around a position.
  const auto rooms = [](double x, double y, double perMeterX, double perMeterY) {
    std::string all;
    for (int i = 0; i < 12; ++i) {
      std::string ring;
      for (const auto& [east, north] :
           {std::pair(0.0, 0.0), {8.66, 5.0}, {3.66, 13.66}, {-5.0, 8.66}, {0.0, 0.0}})
        ring += fmt::format("{}[{},{}]", ring.empty() ? "" : ",", x + (east + i) * perMeterX,
                            y + north * perMeterY);
      all += (all.empty() ? "" : ",") + feature(geometry("Polygon", "[[" + ring + "]]"));
    }
    return R"({"type": "FeatureCollection", "features": [)" + all + "]}";
  };
  constexpr double north = 1 / 111'250.0;
  constexpr double east = 1 / 68'700.0;  // at 52 degrees
  struct Case {
    std::string text;
    const char* result;  // of the error, or the rule of the finding
    double x;
  };
  const std::vector<Case> cases = {
      {rooms(13, 52, east, north), "", 13},
      {rooms(52, 13, north, east), "coordinates-swapped", 52},
      {rooms(35.6, 139.7, north, north / 0.81), "coordinates-swapped", 139.7},
      {rooms(1'447'000, 6'800'000, 1.6, 1.6), "Web Mercator", 0},
      {collection(feature(geometry("Point", "[1, 2]"))), "reference system \"EPSG:6677\"", 0}};
  for (const Case& each : cases) {
    Findings findings;
    std::size_t vertices = 0;
    std::string result;
    double x = 0.0;
    try {
      readGeoJsonInDegrees(
          {"x.geojson", each.text}, {}, vertices, findings,
          [&](const GeoFeature& read) { x = read.geometry.polygons[0].outer[0].x; });
      for (const Finding& finding : findings.sorted()) result += finding.rule;
    } catch (const SourceError& error) {
      result = error.what();
    }
    EXPECT_THAT(result, *each.result == '\0' ? HasSubstr("") : HasSubstr(each.result));
    EXPECT_EQ(result.empty(), *each.result == '\0') << result;
    EXPECT_NEAR(x, each.x, 0.01);
  }
}

TEST(GeoJson, CountriesTellWhetherCoordinatesAreSwapped) {
  const std::tuple<double, double, const char*, std::size_t> cases[] = {
      {52.0, 13.0, "DE", 0}, {13.0, 52.0, "DE", 1}, {13.0, 52.0, "XX", 0}, {0.0, 0.0, "DE", 0}};
  for (const auto& [latitude, longitude, country, expected] : cases) {
    Findings findings;
    reportIfSwapped({latitude, longitude}, country, "x.geojson", findings);
    EXPECT_EQ(findings.countOf("coordinates-swapped"), expected) << latitude << country;
  }
}

TEST(GeoJson, RefusesWhatIsNoGeoJson) {
  std::string many;
  for (int each = 0; each < 60; ++each) many += feature(geometry("Point", "[1, 2]")) + ',';
  const std::string whole = collection(feature(geometry("Point", "[1, 2]")));
  const std::vector<std::pair<std::string, const char*>> cases = {
      {"", "line 1 is no valid JSON"},
      {"{\"a\":\n}", "line 2 is no valid JSON"},
      {R"({"type": "Topology"})", "it has no array \"features\""},
      {whole.substr(0, whole.size() - 20), "the file ends within the array of features"},
      {whole.substr(0, whole.size() - 1), "no valid JSON"},
      {collection(many), "more than 100 positions"},
      {"\xFF\xFE{", "UTF-16"},
  };
  for (const auto& [text, message] : cases) {
    Findings findings;
    std::string error;
    try {
      read(text, findings);
    } catch (const SourceError& caught) {
      error = caught.what();
    }
    EXPECT_THAT(error, HasSubstr(message));
  }
}

}  // namespace orivanta::importer
