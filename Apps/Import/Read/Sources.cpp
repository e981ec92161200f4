#include "Apps/Import/Read/Sources.hpp"

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <utility>

#include "Apps/Import/Read/CleanTexts.hpp"

namespace orivanta::importer {

namespace {

// Returns what the readers have freed to the system: it is more than the building takes, in pieces
// that later stages can hardly use.
void releaseFreeMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

Building readAs(Format format, std::vector<SourceFile> files, const Options& options,
                Findings& findings) {
  switch (format) {
    case Format::imdf:
      return readImdf(std::move(files), options, findings);
    case Format::osmXml:
      return readOsmXml(std::move(files), options, findings);
    case Format::osmPbf:
      return readOsmPbf(std::move(files), options, findings);
    case Format::overpassJson:
      return readOverpassJson(std::move(files), options, findings);
    case Format::osmGeoJson:
      return readOsmGeoJson(std::move(files), options, findings);
    case Format::indoorGml:
      return readIndoorGml(std::move(files), options, findings);
    case Format::stations:
      return readStations(std::move(files), options, findings);
  }
  return {};
}

}  // namespace

Building readBuilding(std::vector<SourceFile> files, Format format, const Options& options,
                      Findings& findings) {
  Building building = readAs(format, std::move(files), options, findings);
  releaseFreeMemory();
  cleanTexts(building, findings);
  return building;
}

}  // namespace orivanta::importer
