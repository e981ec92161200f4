// Files, folders and archives; the formats that they are recognized as.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Read/TextEncoding.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Tests/Apps/Import/Archive.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::importer {

namespace {

using test::ArchiveMember;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

Limits smallLimits() {
  Limits limits;
  limits.bytes = 1U << 20U;
  return limits;
}

std::vector<std::string> namesIn(const std::filesystem::path& source) {
  std::vector<std::string> names;
  for (const SourceFile& file : readFiles({source}, smallLimits())) names.push_back(file.name);
  return names;
}

// The message of the error; empty if there is none.
template <class Action>
std::string errorOf(const Action& action) {
  try {
    action();
  } catch (const SourceError& error) {
    return error.what();
  }
  return {};
}

}  // namespace

TEST(ImportFiles, AreReadFromFoldersAndArchives) {
  const test::TemporaryFolder folder;
  for (const char* name : {"plan/b.osm", "plan/a/c.GML", "plan/.hidden.osm", "plan/notes.txt"})
    folder.write(name, "x");
  EXPECT_THAT(namesIn(folder.path() / "plan"), ElementsAre("plan/a/c.GML", "plan/b.osm"));
  EXPECT_THAT(namesIn(folder.path() / "plan" / ""), ElementsAre("plan/a/c.GML", "plan/b.osm"));
  EXPECT_THAT(namesIn(folder.write("only.txt", "x")), ElementsAre("only.txt"));
  for (const char* name : {"a.shp", "a.dbf", "a.prj", "b.dbf"}) folder.write(name, "x");
  EXPECT_THAT(namesIn(folder.path() / "a.shp"), ElementsAre("a.shp", "a.dbf", "a.prj"));
  const std::filesystem::path archive = folder.path() / "mall.zip";
  test::writeArchive(archive, {{"z/level.geojson", "{}"},
                               {"unit.geojson", "[]"},
                               {"__MACOSX/unit.geojson", "x"},
                               {"huge.txt", std::string(2U << 20U, 'x')}});
  const std::vector<SourceFile> files = readFiles({archive}, smallLimits());
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0].name, "mall.zip/unit.geojson");
  EXPECT_EQ(files[1].bytes, "{}");
}

TEST(ImportFiles, AreConvertedToUtf8) {
  const std::string declared = "<?xml version='1.0' encoding='EUC-KR'?>\xB9\xE6";
  const std::string unknown = "<?xml version='1.0' encoding='x-none'?>\xB9";
  for (const auto& [text, expected] :
       {std::pair(std::string("\xFF\xFE{\0}\0", 6), std::string("{}")),
        {std::string("\xFE\xFF\0{\0}", 6), "{}"},
        {declared, "<?xml version='1.0' encoding='UTF-8'?>\uBC29"},
        {unknown, unknown},
        {"<?xml version='1.0' encoding='utf-16'?>\u00FC",  // as a program had it in memory
         "<?xml version='1.0' encoding='UTF-8'?>\u00FC"},
        {"<?xml version='1.0' encoding='", "<?xml version='1.0' encoding='"},
        {"plain \xFC", "plain \xFC"}}) {
    std::string converted = text;
    EXPECT_TRUE(decodeText(converted, 64));
    EXPECT_EQ(converted, expected);
  }
  std::string longer = "<?xml version='1.0' encoding='CP437'?>" + std::string(40, '\xB0');
  EXPECT_FALSE(decodeText(longer, 64));
}

TEST(ImportFiles, RefuseWhatIsHostileOrDamaged) {
  const test::TemporaryFolder folder;
  struct Case {
    std::vector<ArchiveMember> members;
    const char* message;
  };
  std::vector<ArchiveMember> many;
  for (int each = 0; each < 20'001; ++each) many.push_back({std::to_string(each), ""});
  const std::vector<Case> cases = {
      {{{"a.osm", std::string(2U << 20U, ' ')}}, "too large when unpacked"},
      {{{"a.osm", std::string(700'000, ' ')}, {"b.osm", std::string(700'000, ' ')}}, "too large"},
      {{{"../a.osm", "x"}}, "outside of the archive"},
      {{{"/a.osm", "x"}}, "outside of the archive"},
      {{{"a.osm", "/etc/passwd", true}}, "symbolic link"},
      {{{"a.osm", "x", false, true}}, "is encrypted"},
      {{{"notes.txt", "x"}}, "no file that can be imported"},
      {many, "more than 20000 members"},
  };
  const std::filesystem::path archive = folder.path() / "a.zip";
  for (const Case& each : cases) {
    test::writeArchive(archive, each.members);
    const std::string message = errorOf([&] { readFiles({archive}, smallLimits()); });
    EXPECT_THAT(message, HasSubstr(each.message));
    EXPECT_THAT(message, ::testing::StartsWith("a.zip: "));
  }
  test::writeArchive(archive, {{"a.osm", std::string(1000, 'x')}, {"b.osm", "y"}});
  std::filesystem::resize_file(archive, std::filesystem::file_size(archive) - 30);
  EXPECT_THAT(errorOf([&] { readFiles({archive}, smallLimits()); }), HasSubstr("cut off"));
  EXPECT_THAT(errorOf([&] { readFiles({folder.path() / "none"}, smallLimits()); }),
              HasSubstr("no such file"));
  const auto large = folder.write("large.osm", std::string(2U << 20U, 'x'));
  EXPECT_THAT(errorOf([&] { readFiles({large}, smallLimits()); }), HasSubstr("larger than 1 MiB"));
}

TEST(ImportFiles, TellTheirFormat) {
  struct Case {
    const char* name;
    std::string bytes;
    Format format;
  };
  const std::vector<Case> cases = {
      {"x", "\xEF\xBB\xBF<?xml version='1.0'?><!-- <a> --><osm version='0.6'/>", Format::osmXml},
      {"x.xml", "<core:IndoorFeatures xmlns:core='http://www.opengis.net/indoorgml/1.0/core'/>",
       Format::indoorGml},
      {"x.gml", "<IndoorFeatures/>", Format::indoorGml},
      {"x", std::string("\0\0\0\x0d\x0a\x09OSMHeader", 15), Format::osmPbf},
      {"x.json", R"({"version": 0.6, "elements": []})", Format::overpassJson},
      {"x.geojson", R"({"features": [{"id": "way/1", "properties": {"level": "0"}}]})",
       Format::osmGeoJson},
      {"x.geojson", R"({"features": [{"properties": {"floor_id": "1", "category": "B001"}}]})",
       Format::stations},
      {"x.geojson", R"({"features": [{"feature_type": "unit"}]})", Format::imdf},
      {"a/manifest.json", R"({"version": "1.0.0"})", Format::imdf},
      {"x.shp", std::string("\0\0\x27\x0a", 4), Format::stations},
      {"empty.gml", "", Format::indoorGml},
  };
  for (const Case& each : cases) EXPECT_EQ(recognizeFormat({{each.name, each.bytes}}), each.format);
  for (const auto& [bytes, message] :
       std::vector<std::pair<std::string, const char*>>{{"\x1f\x8b\x08", "gunzip"},
                                                        {"BZh9", "bunzip2"},
                                                        {"hello", "known are IMDF"},
                                                        {"{}", "--format"}})
    EXPECT_THAT(errorOf([&] { recognizeFormat({{"x", bytes}}); }), HasSubstr(message));
  EXPECT_THAT(errorOf([&] {
                recognizeFormat({{"a", cases[0].bytes}, {"b", cases[1].bytes}});
              }),
              HasSubstr("a and b have different formats"));
}

}  // namespace orivanta::importer
