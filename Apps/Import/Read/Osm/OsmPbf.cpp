#include <fmt/core.h>

#include <protozero/pbf_reader.hpp>
#include <utility>

#include "Apps/Import/Read/Osm/OsmReading.hpp"
#include "Apps/Import/Read/Osm/PbfBlobs.hpp"
#include "Apps/Import/Read/Osm/PbfBlock.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

std::string_view viewOf(protozero::data_view data) { return {data.data(), data.size()}; }

void checkHeader(std::string_view bytes, const std::string& file) {
  protozero::pbf_reader reader(bytes.data(), bytes.size());
  while (reader.next(4, protozero::pbf_wire_type::length_delimited)) {
    const std::string_view feature = viewOf(reader.get_view());
    if (feature != "OsmSchema-V0.6" && feature != "DenseNodes")
      throw SourceError(fmt::format(
          "{}: the file requires the feature \"{}\", which is not supported; save it anew, for "
          "example with \"osmium cat\"",
          file, feature.substr(0, 40)));
  }
}

void readPbf(const SourceFile& file, const Limits& limits, OsmData& data, Findings& findings) {
  PbfBlobs blobs(file, limits);
  for (std::size_t number = 1;; ++number) {
    try {
      const PbfBlobs::Blob blob = blobs.next();
      if (blob.type.empty()) break;
      if (blob.type == "OSMHeader") checkHeader(blob.data, file.name);
      if (blob.type == "OSMData") addPbfBlock(blob.data, data);
    } catch (const protozero::exception&) {
      if (number == 1)
        throw SourceError(
            fmt::format("{}: the first block is damaged; is this an .osm.pbf file?", file.name));
      reportUnreadable(file.name, fmt::format("Block {}", number), "it is damaged", findings);
    }
  }
  if (blobs.isCut()) reportCut(file.name, 0, findings);
}

}  // namespace

Building readOsmPbf(std::vector<SourceFile> files, const Options& options, Findings& findings) {
  return readOsm(std::move(files), options, findings, [&](const SourceFile& file, OsmData& data) {
    readPbf(file, options.limits, data, findings);
  });
}

}  // namespace orivanta::importer
