#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

Building readBuilding(const std::vector<SourceFile>& files, Format format, const Options& options,
                      Findings& findings) {
  switch (format) {
    case Format::imdf:
      return readImdf(files, options, findings);
    case Format::osmXml:
      return readOsmXml(files, options, findings);
    case Format::osmPbf:
      return readOsmPbf(files, options, findings);
    case Format::overpassJson:
      return readOverpassJson(files, options, findings);
    case Format::osmGeoJson:
      return readOsmGeoJson(files, options, findings);
    case Format::indoorGml:
      return readIndoorGml(files, options, findings);
    case Format::stations:
      return readStations(files, options, findings);
  }
  return {};
}

}  // namespace orivanta::importer
