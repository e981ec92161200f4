// Reads the input as an OpenStreetMap extract in PBF: once as a file, and once as the contents of
// an uncompressed block, so that the search gets past the compression.
#include "Fuzz/ImportedBuilding.hpp"

namespace orivanta::importer {
namespace {

std::string varint(std::size_t number) {
  std::string bytes;
  for (; number >= 0x80; number >>= 7U) bytes += static_cast<char>(0x80U | (number & 0x7FU));
  return bytes + static_cast<char>(number);
}

std::string block(std::string_view type, std::string_view data) {
  const std::string blob = "\x0A" + varint(data.size()) + std::string(data);
  const std::string header =
      "\x0A" + varint(type.size()) + std::string(type) + "\x18" + varint(blob.size());
  return std::string(3, '\0') + static_cast<char>(header.size()) + header + blob;
}

void checkOsmPbf(std::string_view input) {
  checkSource(input, Format::osmPbf);
  checkSource(block("OSMHeader", {}) + block("OSMData", input), Format::osmPbf);
}

}  // namespace
}  // namespace orivanta::importer

ORIVANTA_FUZZER(OsmPbf, orivanta::importer::checkOsmPbf)
