// Reads the input as an answer of Overpass in JSON.
#include "Fuzz/ImportedBuilding.hpp"

namespace orivanta::importer {
namespace {

void checkOverpassJson(std::string_view input) { checkSource(input, Format::overpassJson); }

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(OverpassJson, orivanta::importer::checkOverpassJson)
