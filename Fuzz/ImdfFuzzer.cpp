// Reads the input as an IMDF archive.
#include <string_view>

#include "Fuzz/SourceFiles.hpp"

namespace orivanta::importer {
namespace {

void checkImdf(std::string_view input) { checkReader(input, readImdf); }

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(Imdf, orivanta::importer::checkImdf)
