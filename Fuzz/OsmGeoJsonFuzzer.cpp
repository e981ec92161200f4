// Reads the input as an OpenStreetMap extract in GeoJSON.
#include "Fuzz/ImportedBuilding.hpp"

namespace orivanta::importer {
namespace {

void checkOsmGeoJson(std::string_view input) { checkSource(input, Format::osmGeoJson); }

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(OsmGeoJson, orivanta::importer::checkOsmGeoJson)
