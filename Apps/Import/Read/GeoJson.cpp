#include "Apps/Import/Read/GeoJson.hpp"

#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

GeoFeatures readGeoJson(const SourceFile&, const Limits&, std::size_t&, Findings&) {
  throw SourceError("not yet");
}

}  // namespace orivanta::importer
