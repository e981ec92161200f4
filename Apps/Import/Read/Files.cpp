#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

std::vector<SourceFile> readFiles(const std::vector<std::filesystem::path>&, const Limits&) {
  throw SourceError("not yet");
}

Format recognizeFormat(const std::vector<SourceFile>&) { throw SourceError("not yet"); }

}  // namespace orivanta::importer
