// Reads the input as GeoJSON, and recognizes its format.
#include <string_view>

#include "Apps/Import/Read/GeoJson.hpp"
#include "Fuzz/SourceFiles.hpp"

namespace orivanta::importer {
namespace {

void checkGeoJson(std::string_view input) {
  const SourceFile file{"a.geojson", std::string(input)};
  Limits limits;
  limits.vertices = 100'000;
  std::size_t vertices = 0;
  Findings findings;
  try {
    const GeoFeatures collection = readGeoJson(file, limits, vertices, findings);
    ORIVANTA_REQUIRE(collection.features.size() <= vertices);
    for (const GeoFeature& feature : collection.features) {
      ORIVANTA_REQUIRE(isFinite(feature.geometry.points));
      for (const auto& line : feature.geometry.lines) ORIVANTA_REQUIRE(isFinite(line));
      for (const Polygon& polygon : feature.geometry.polygons)
        ORIVANTA_REQUIRE(isFinite(polygon.outer));
    }
    recognizeFormat({file});
  } catch (const SourceError& error) {
    ORIVANTA_REQUIRE(std::string_view(error.what()).substr(0, 9) == "a.geojson");
  }
}

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(GeoJson, orivanta::importer::checkGeoJson)
