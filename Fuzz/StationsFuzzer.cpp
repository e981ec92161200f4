// Reads the input as a station network of GeoJSON files and Shapefiles.
#include <string_view>

#include "Fuzz/SourceFiles.hpp"

namespace orivanta::importer {
namespace {

void checkStations(std::string_view input) { checkReader(input, readStations); }

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(Stations, orivanta::importer::checkStations)
