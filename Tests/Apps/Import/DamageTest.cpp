// Cut and changed sources of all formats: an error or findings, but nothing worse.
#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "Apps/Import/Read/CleanTexts.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer {

namespace {

// Other exceptions than the one for sources fail the test.
void tryToRead(const std::vector<SourceFile>& files, Format format) {
  Options options;
  options.limits.vertices = 100'000;
  Findings findings;
  try {
    const Building building = readBuilding(files, format, options, findings);
    for (const Area& area : building.areas) EXPECT_FALSE(area.shape.empty());
  } catch (const SourceError& error) {
    EXPECT_NE(std::string(error.what()).find(": "), std::string::npos) << error.what();
  }
}

}  // namespace

TEST(Damage, IsSurvivedByAllReaders) {
  const Building building = house::make();
  const std::vector<std::pair<Format, std::vector<SourceFile>>> sources = {
      {Format::imdf, house::asImdf(building)},
      {Format::osmXml, house::asOsmXml(building)},
      {Format::overpassJson, house::asOverpassJson(building)},
      {Format::osmGeoJson, house::asOsmGeoJson(building)},
      {Format::indoorGml, house::asIndoorGml(building)},
      {Format::stations, house::asStations(building)},
  };
  std::mt19937 random(1);
  for (const auto& [format, files] : sources) {
    SCOPED_TRACE(static_cast<int>(format));
    for (int seed = 0; seed < 60; ++seed) {
      std::vector<SourceFile> damaged = files;
      std::string& bytes = damaged[random() % damaged.size()].bytes;
      const std::string whole = bytes;
      bytes.resize(random() % bytes.size());
      tryToRead(damaged, format);
      bytes = whole;
      for (int each = 0; each < 20; ++each)
        bytes[random() % bytes.size()] = "0123456789-\"[]{}<>,:=/#ex \xFF"[random() % 27];
      tryToRead(damaged, format);
    }
  }
}

// Every text of a building must be valid in the package.
TEST(Damage, TextsAreMadeUtf8) {
  for (const auto& [write, format, from, to] :
       {std::tuple(&house::asOsmXml, Format::osmXml, "Library", "Li\xE9\x01y"),
        {&house::asIndoorGml, Format::indoorGml, "Library", "Li\xC3"},
        {&house::asIndoorGml, Format::indoorGml, "Space gml:id=\"", "Space gml:id=\"\xFF"}}) {
    std::vector<SourceFile> files = write(house::make());
    std::string& bytes = files.front().bytes;
    bytes.replace(bytes.find(from), std::string_view(from).size(), to);
    Findings findings;
    Building building = readBuilding(files, format, {}, findings);
    EXPECT_GE(findings.countOf("text-not-utf8"), 1U);
    for (const Finding& finding : findings.sorted()) {
      std::string message = finding.source + finding.message;
      EXPECT_FALSE(cleanText(message)) << message;
    }
    Findings again;
    cleanTexts(building, again);
    EXPECT_EQ(again.count(), 0U);
  }
}

}  // namespace orivanta::importer
