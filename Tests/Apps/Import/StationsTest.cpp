// Station networks from GeoJSON and Shapefiles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <shapefil.h>

#include <filesystem>
#include <map>

#include "Apps/Import/Read/ReferenceSystem.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::importer {

namespace {

using ::testing::HasSubstr;
using Fields = std::vector<std::pair<const char*, std::string>>;

// A layer of a Shapefile, written record by record.
class Layer {
 public:
  Layer(const std::filesystem::path& path, int type, const std::vector<const char*>& fields)
      : type_(type), shapes_(SHPCreate(path.c_str(), type)), table_(DBFCreate(path.c_str())) {
    for (const char* field : fields)
      if (std::string_view(field) == "route_type" || std::string_view(field) == "ordinal")
        DBFAddField(table_, field, FTDouble, 10, 3);
      else
        DBFAddField(table_, field, FTString, 40, 0);
  }
  ~Layer() {
    SHPClose(shapes_);
    DBFClose(table_);
  }
  Layer(const Layer&) = delete;
  Layer& operator=(const Layer&) = delete;

  void add(std::vector<double> xs, std::vector<double> ys, const std::vector<std::string>& values,
           std::vector<int> starts = {0}) {
    SHPObject* shape =
        SHPCreateObject(type_, -1, static_cast<int>(starts.size()), starts.data(), nullptr,
                        static_cast<int>(xs.size()), xs.data(), ys.data(), nullptr, nullptr);
    const int row = SHPWriteObject(shapes_, -1, shape);
    for (std::size_t each = 0; each < values.size(); ++each) {
      const int field = static_cast<int>(each);
      if (DBFGetFieldInfo(table_, field, nullptr, nullptr, nullptr) == FTDouble)
        DBFWriteDoubleAttribute(table_, row, field, std::stod(values[each]));
      else
        DBFWriteStringAttribute(table_, row, field, values[each].c_str());
    }
    SHPDestroyObject(shape);
  }

 private:
  int type_;
  SHPHandle shapes_;
  DBFHandle table_;
};

// Two floors: a hall with a hole, a shop named in Shift_JIS, an elevator and stairs.
void writeShapefiles(const test::TemporaryFolder& folder) {
  const auto path = [&](const char* name) { return folder.path() / name; };
  for (const char* name : {"S_1_Floor", "S_1_Space", "S_1_Drawing", "S_node", "S_link"})
    folder.write(std::string(name) + ".prj",
                 "PROJCS[\"JGD_2011_Japan_Zone_9\",GEOGCS[\"GCS_JGD_2011\"],PROJECTION["
                 "\"Transverse_Mercator\"],UNIT[\"Meter\",1.0]]");
  const std::vector<double> xs = {100, 100, 120, 120, 100};
  const std::vector<double> ys = {200, 210, 210, 200, 200};
  Layer floors(path("S_1_Floor"), SHPT_POLYGON, {"id", "ordinal", "short_name", "category"});
  floors.add(xs, ys, {"f1", "1", "1F", "1"});
  floors.add(xs, ys, {"f2", "2.0", "2F", "1"});
  Layer spaces(path("S_1_Space"), SHPT_POLYGON, {"ID", "category", "floor_id", "name"});
  spaces.add({100, 100, 120, 120, 100, 105, 106, 106, 105},
             {200, 210, 210, 200, 200, 205, 205, 206, 205},
             {"hall", "B029", "f1", "\x95\x73\x96\xBE"}, {0, 5});
  spaces.add(xs, ys, {"shop", "B001", "f2", "\x93\x58"});
  spaces.add({110, 110, 114, 114, 110}, {200, 202, 202, 200, 200}, {"stairs", "B021", "f1", ""});
  Layer drawings(path("S_1_Drawing"), SHPT_ARC, {"id", "floor_id"});
  drawings.add({111, 111}, {200, 202}, {"edge", "f1"});
  drawings.add({100, 120}, {205, 205}, {"decoration", "f1"});
  Layer nodes(path("S_node"), SHPT_POINT,
              {"NodeID", "floor", "lat", "lon"});  // not the usual names
  nodes.add({100}, {200}, {"n1", "1", "36.0", "139.8"});
  nodes.add({110}, {200}, {"n2", "1"});
  nodes.add({110}, {200}, {"n3", "2F"});
  nodes.add({110}, {200}, {"n4", "3"});
  Layer links(path("S_link"), SHPT_ARC,
              {"link_id", "start_id", "end_id", "route_type", "direction", "elevator", "distance"});
  links.add({100, 105, 110}, {200, 201, 200}, {"walk", "n1", "n2", "1", "2", "1", "10.2"});
  links.add({110, 110}, {200, 200}, {"up", "n2", "n3", "4", "1", "99", "0"});
  links.add({110, 110}, {200, 200}, {"top", "n3", "n4", "4", "1", "5", "4"});
  links.add({110, 130}, {200, 200}, {"out", "n2", "n5", "1", "3", "1", ""});
  links.add({110, 110}, {200, 200}, {"top", "n4", "n3", "4", "1", "5", "4"});
  links.add({110, 130}, {200, 200}, {"lost", "n6", "n7", "1", "1", "1", ""});
}

std::map<LinkKind, std::size_t> kindsOf(const Building& building) {
  std::map<LinkKind, std::size_t> kinds;
  for (const SourceLink& link : building.sourceLinks) ++kinds[link.kind];
  return kinds;
}

}  // namespace

TEST(Stations, AreReadFromShapefiles) {
  const test::TemporaryFolder folder;
  writeShapefiles(folder);
  const std::vector<SourceFile> files = readFiles({folder.path()}, {});
  ASSERT_EQ(recognizeFormat(files), Format::stations);
  Findings findings;
  const Building building = readStations(files, {}, findings);
  ASSERT_EQ(building.storeys.size(), 2U);
  EXPECT_EQ(building.storeys[1].elevation, 4.0);
  ASSERT_EQ(building.areas.size(), 3U);
  EXPECT_EQ(building.areas[2].stepEdges.size(), 1U);
  EXPECT_EQ(building.areas[0].shape.at(0).holes.size(), 1U);
  ASSERT_EQ(building.places.size(), 1U);
  EXPECT_EQ(building.places[0].names.name, "店");
  EXPECT_NEAR(building.georeference.value().latitude, 36.0, 0.01);
  EXPECT_EQ(building.sourceNodes.size(), 6U);  // with a bend and a node that only a link has
  EXPECT_EQ(kindsOf(building),
            (std::map<LinkKind, std::size_t>{{LinkKind::walk, 3}, {LinkKind::elevator, 3}}));
  EXPECT_EQ(building.sourceLinks[5].id, "top#2");
  EXPECT_EQ(findings.countOf("id-not-unique"), 1U);
  EXPECT_EQ(building.sourceLinks[0].direction, Direction::forward);
  for (const SourceLink& link : building.sourceLinks)
    if (link.kind == LinkKind::elevator) {
      EXPECT_EQ(link.wheelchair, Wheelchair::yes) << link.id;
    }
  EXPECT_EQ(findings.countOf("network-incomplete"), 2U);
}

TEST(Stations, AcceptDegreesAndTrueMeters) {
  const std::vector<std::pair<const char*, CoordinateUnit>> cases = {
      {"", CoordinateUnit::unknown},
      {"urn:ogc:def:crs:EPSG::6677", CoordinateUnit::meters},
      {"urn:ogc:def:crs:OGC:1.3:CRS84", CoordinateUnit::degrees},
      {"EPSG:6668", CoordinateUnit::degrees},
      {"EPSG:32654", CoordinateUnit::meters},
      {"GEOGCS[\"GCS_WGS_1984\",UNIT[\"Degree\",0.017]]", CoordinateUnit::degrees}};
  for (const auto& [crs, unit] : cases) EXPECT_EQ(unitOf(crs, "x"), unit) << crs;
  for (const char* crs :
       {"EPSG:3857", "EPSG:2263", "GEOGCS[\"GCS_Tokyo\"]", "nonsense",
        "PROJCS[\"x\",PROJECTION[\"Mercator\"],UNIT[\"Meter\",1]]",
        "PROJCS[\"x\",PROJECTION[\"Transverse_Mercator\"],UNIT[\"Foot_US\",0.3]]"})
    try {
      unitOf(crs, "x.shp");
      ADD_FAILURE() << crs;
    } catch (const SourceError& error) {
      EXPECT_THAT(error.what(), HasSubstr("ogr2ogr -t_srs EPSG:4326 -f GeoJSON"));
    }
}

TEST(Stations, TellDegreesFromMeters) {
  const auto read = [](const char* x, const char* y) {
    const std::string text =
        R"({"features":[{"properties":{"node_id":"n","ordinal":1},"geometry":{"type":"Point",)"
        R"("coordinates":[)" +
        std::string(x) + ',' + y + "]}}]}";
    Findings findings;
    return readStations({{"S_node.geojson", text}}, {}, findings);
  };
  EXPECT_NEAR(read("139.7", "35.6").georeference.value().latitude, 35.6, 0.01);
  EXPECT_NEAR(read("35.6", "139.7").georeference.value().latitude, 35.6, 0.01);
  EXPECT_FALSE(read("-12000", "-34000").georeference.has_value());
  EXPECT_THAT([&] { read("15550000", "4250000"); },
              ::testing::ThrowsMessage<SourceError>(HasSubstr("Web Mercator")));
}

TEST(Stations, LayersAreKnownByTheirNamesAndFields) {
  const auto layer = [](const char* name, const char* properties, const char* geometry) {
    return SourceFile{name, std::string(R"({"features":[{"properties":{)") + properties +
                                R"(},"geometry":{)" + geometry + "}}]}"};
  };
  Findings findings;
  const Building building =
      readStations({layer("Central/openings.geojson", R"("id":"o","ordinal":-2)",
                          R"("type":"LineString","coordinates":[[0,0],[1,0]])"),
                    layer("Central/nodes.geojson", R"("node_id":"n","ordinal":-2)",
                          R"("type":"Point","coordinates":[-12000,-34000])")},
                   {}, findings);
  EXPECT_EQ(building.names.name, "Central");
  EXPECT_EQ(building.doors.size(), 1U);
  ASSERT_EQ(building.storeys.size(), 1U);
  EXPECT_EQ(building.storeys[0].names.name, "地下2階");
  EXPECT_EQ(building.storeys[0].elevation, -8.0);
}

TEST(Stations, OfARealStationAreComplete) {
  const std::filesystem::path folder = ORIVANTA_RAW "/jp-shinjuku";
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << folder << " is missing";
  Findings findings;
  const Building building = readStations(readFiles({folder}, {}), {}, findings);
  const auto spaces = std::count_if(building.areas.begin(), building.areas.end(),
                                    [](const Area& area) { return area.category[0] == 'B'; });
  EXPECT_EQ(spaces, 1162);  // 1172, of which 10 are there twice
  EXPECT_EQ(building.storeys.size(), 203U);
  const auto surveyed =
      std::count_if(building.sourceNodes.begin(), building.sourceNodes.end(),
                    [](const SourceNode& node) { return node.id.find('-') == std::string::npos; });
  EXPECT_EQ(surveyed, 1986);  // 1985 and one that only links name
  EXPECT_EQ(kindsOf(building)[LinkKind::elevator], 79U);
  EXPECT_EQ(kindsOf(building)[LinkKind::escalator], 74U);
  EXPECT_NEAR(building.georeference.value().latitude, 35.69, 0.01);
}

}  // namespace orivanta::importer
