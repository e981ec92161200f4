// Reads the input as an OpenStreetMap extract in XML.
#include "Fuzz/ImportedBuilding.hpp"

namespace orivanta::importer {
namespace {

void checkOsmXml(std::string_view input) { checkSource(input, Format::osmXml); }

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(OsmXml, orivanta::importer::checkOsmXml)
