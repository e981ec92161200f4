#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

Building readIndoorGml(const std::vector<SourceFile>&, const Options&, Findings&) {
  throw SourceError("not yet");
}

}  // namespace orivanta::importer
