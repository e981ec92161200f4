// The same extract in all formats, whole and damaged.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "Apps/Import/SourceError.hpp"
#include "Tests/Apps/Import/House/House.hpp"
#include "Tests/Apps/Import/Osm/OsmText.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::importer {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

Building read(const std::vector<SourceFile>& files, const Options& options = {}) {
  Findings findings;
  return readBuilding(files, recognizeFormat(files), options, findings);
}

SourceFile file(const fs::path& path) { return {path.filename().string(), test::contentsOf(path)}; }

// Small extracts of different kinds, and real ones if there are any.
std::vector<SourceFile> extracts() {
  std::vector<SourceFile> all = house::asOsmXml(house::make());
  const auto venues = test::venuesFolder();
  for (const char* path : {"osm-dresden-apb/APBorig.osm", "osm-grenoble-caserne/caserne.osm"})
    if (venues && fs::exists(*venues / "../raw" / path))
      all.push_back(file(*venues / "../raw" / path));
  return all;
}

TEST(OsmFormats, GiveTheSameBuilding) {
  const Building house = house::make();
  Options options;
  options.network = NetworkChoice::source;
  const std::string expected = described(read(house::asOsmXml(house), options));
  EXPECT_EQ(described(read(house::asOverpassJson(house), options)), expected);
  EXPECT_EQ(described(read(house::asOsmGeoJson(house), options)), expected);
  for (const SourceFile& xml : extracts()) {
    const std::string whole = described(read({xml}, options));
    const std::pair<const char*, const char*> ways[] = {
        {"a.osm.pbf", "cat -f pbf"},
        {"a.osm.pbf", "cat -f pbf,pbf_dense_nodes=false,pbf_compression=none"},
        {"a.geojson", "export -f geojson -u type_id -a id,type"}};
    for (const auto& [name, how] : ways) {
      const SourceFile other = house::converted(xml, name, how);
      if (other.bytes.empty()) GTEST_SKIP() << "osmium is not installed";
      EXPECT_EQ(described(read({other}, options)), whole) << xml.name << " " << how;
    }
  }
}

TEST(OsmFormats, RealBuildingsHaveTheRoomsOfTheirPackages) {
  const auto venues = test::venuesFolder();
  if (!venues || !fs::exists(*venues / "../raw")) GTEST_SKIP() << "no real venues";
  struct Row {
    const char* path;
    std::map<AreaKind, int> areas;
    std::size_t doors;
  };
  const Row rows[] = {{"osm-dresden-apb/APBorig.osm",
                       {{AreaKind::room, 392},
                        {AreaKind::walkway, 44},
                        {AreaKind::elevator, 8},
                        {AreaKind::stairs, 29}},
                       529},
                      {"osm-grenoble-grandplace/grand-place.geojson",
                       {{AreaKind::room, 124}, {AreaKind::stairs, 0}},
                       13}};
  for (const Row& row : rows) {
    Building building = read({file(*venues / "../raw" / row.path)});
    std::map<AreaKind, int> areas;
    for (const Area& area : building.areas)
      if (area.level >= 0.0) ++areas[area.kind];
    for (const auto& [kind, number] : row.areas) EXPECT_EQ(areas[kind], number) << row.path;
    EXPECT_GE(building.doors.size(), row.doors) << row.path;
  }
}

TEST(OsmFormats, CutAndDamagedFilesAreReadAsFarAsPossible) {
  const Building house = house::make();
  for (const auto& write : {house::asOsmXml, house::asOverpassJson, house::asOsmGeoJson}) {
    const std::vector<SourceFile> files = write(house);
    const Format format = recognizeFormat(files);
    const std::size_t size = files[0].bytes.size();
    for (std::size_t step = 1; step <= 40; ++step) {
      for (const bool isCut : {true, false}) {
        SourceFile damaged = files[0];
        if (isCut)
          damaged.bytes.resize(size * step / 41);
        else
          damaged.bytes[size * step / 41] = '\x01';
        Findings findings;
        try {
          const Building building = readBuilding({damaged}, format, {}, findings);
          EXPECT_LE(building.areas.size(), 40U);
        } catch (const SourceError& error) {
          EXPECT_THAT(error.what(), HasSubstr(damaged.name));
        }
      }
    }
  }
}

TEST(OsmFormats, UnreadableFilesAreRefusedWithTheNextStep) {
  struct Row {
    Format format;
    std::string bytes;
    const char* message;
  };
  const std::string header("\x00\x00\x00\x0d\x0a\x09OSMHeader\x18\x00", 17);
  const std::string zstd("\x00\x00\x00\x0b\x0a\x07OSMData\x18\x04\x3a\x02zz", 19);
  const Row rows[] = {
      {Format::osmXml, "<html/>", "begins with <html> instead of <osm>"},
      {Format::osmXml, "plain", "begins with no element"},
      {Format::osmXml, "<?xml version='1.0' encoding='ISO-8859-1'?><osm/>", "save it in UTF-8"},
      {Format::osmXml, "<osm></osm>", "nothing in it is indoors"},
      {Format::osmPbf, "PK\x03\x04 something else", "is this an .osm.pbf file?"},
      {Format::osmPbf, header + zstd, "block 2 is compressed with zstd; save it with zlib"},
      {Format::overpassJson, "{\"elements\":{}}", "is this an answer of Overpass in JSON?"},
  };
  for (const Row& row : rows) {
    Findings findings;
    EXPECT_THAT(
        [&] {
          readBuilding({{"plan", row.bytes}}, row.format, {}, findings);
        },
        testing::ThrowsMessage<SourceError>(HasSubstr(row.message)));
  }
}

TEST(OsmFormats, ManyObjectsStayWithinTheLimits) {
  OsmText levels;
  levels.box(1, 0, 0, 5, 5, {{"indoor", "room"}, {"level", "-90-90"}, {"repeat_on", "0-190"}});
  OsmText copies;
  copies.box(1, 0, 0, 5, 5, {{"indoor", "room"}, {"level", "0-190"}});
  OsmText shared;
  shared.box(1, 0, 0, 5, 5, {});
  for (int i = 0; i < 500; ++i)
    shared.relation(1 + i, {{"outer", 1}},
                    {{"type", "multipolygon"}, {"indoor", "room"}, {"level", "0"}});
  OsmText texts;
  for (int i = 0; i < 700; ++i)
    texts.node(i, 0, 0, {{"amenity", "an amenity with an unusually long name"}});
  Options options;
  options.limits.vertices = 1000;
  options.limits.bytes = 100'000;
  for (const auto& [text, message] : {std::pair(levels, "lists of levels are too long"),
                                      {copies, "more than 1000 points"},
                                      {shared, "relations share them"},
                                      {texts, "MiB of tags"}}) {
    Findings findings;
    const std::vector<SourceFile> files = text.files();
    EXPECT_THAT([&] { readOsmXml(files, options, findings); },
                testing::ThrowsMessage<SourceError>(HasSubstr(message)));
  }
}

TEST(OsmFormats, SeveralFilesAreOneExtract) {
  // Rooms without identifiers, one in each file, with a common corner that has a door.
  const auto room = [](double west) {
    std::string ring;
    for (const auto& [x, y] : {std::pair(west, 0.5),
                               {west + 1e-4, 0.5},
                               {west + 1e-4, 0.5001},
                               {west, 0.5001},
                               {west, 0.5}})
      ring += fmt::format("{}[{:.7f},{:.7f}]", ring.empty() ? "" : ",", x, y);
    return R"({"type":"Feature","properties":{"indoor":"room","level":"0"},"geometry":)"
           R"({"type":"Polygon","coordinates":[[)" +
           ring + "]]}}";
  };
  const auto file = [](const char* name, const std::string& features) {
    return SourceFile{name, R"({"type":"FeatureCollection","features":[)" + features + "]}"};
  };
  const std::string door =
      R"({"type":"Feature","id":"node/7","properties":{"highway":"footway","door":"yes"},)"
      R"("geometry":{"type":"Point","coordinates":[13.0001,0.5]}})";
  const Building building = read({file("a", room(13.0)), file("b", room(13.0001) + ',' + door)});
  ASSERT_EQ(building.areas.size(), 2U);
  EXPECT_NE(building.areas[0].shape[0].outer[0].x, building.areas[1].shape[0].outer[0].x);
  ASSERT_EQ(building.doors.size(), 1U);
  EXPECT_EQ(building.doors[0].areas.size(), 2U);
}

}  // namespace
}  // namespace orivanta::importer
