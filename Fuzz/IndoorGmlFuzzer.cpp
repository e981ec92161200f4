// Reads the input as an IndoorGML document.
#include <string_view>

#include "Fuzz/SourceFiles.hpp"

namespace orivanta::importer {
namespace {

void checkIndoorGml(std::string_view input) { checkReader(input, readIndoorGml); }

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(IndoorGml, orivanta::importer::checkIndoorGml)
