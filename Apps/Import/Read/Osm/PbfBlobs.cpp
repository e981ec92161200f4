#include "Apps/Import/Read/Osm/PbfBlobs.hpp"

#include <fmt/core.h>
#include <zlib.h>

#include <protozero/pbf_reader.hpp>

#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

// The greatest sizes that the format allows.
constexpr std::size_t greatestHeader = 64U << 10U;
constexpr std::size_t greatestBlob = 32U << 20U;

std::string_view viewOf(protozero::data_view data) { return {data.data(), data.size()}; }

std::size_t bigEndian(std::string_view bytes) {
  std::size_t number = 0;
  for (const char byte : bytes) number = number << 8U | static_cast<unsigned char>(byte);
  return number;
}

// The names of the members of a blob that hold its data.
std::string_view compressionOf(protozero::pbf_tag_type tag) {
  switch (tag) {
    case 4:
      return "LZMA";
    case 5:
      return "bzip2";
    case 6:
      return "LZ4";
    case 7:
      return "zstd";
    default:
      return {};
  }
}

}  // namespace

PbfBlobs::PbfBlobs(const SourceFile& file, const Limits& limits)
    : rest_(file.bytes), name_(file.name), bytesLeft_(limits.bytes) {}

std::string_view PbfBlobs::inflated(std::string_view packed, std::size_t size) {
  buffer_.resize(size);
  uLongf length = size;
  const int result = uncompress(reinterpret_cast<Bytef*>(buffer_.data()), &length,
                                reinterpret_cast<const Bytef*>(packed.data()), packed.size());
  if (result != Z_OK || length != size) throw protozero::end_of_buffer_exception();
  return buffer_;
}

std::string_view PbfBlobs::unpacked(std::string_view blob) {
  protozero::pbf_reader reader(blob.data(), blob.size());
  std::string_view raw;
  std::string_view packed;
  std::size_t size = 0;
  while (reader.next()) {
    if (const std::string_view compression = compressionOf(reader.tag()); !compression.empty())
      throw SourceError(fmt::format(
          "{}: block {} is compressed with {}; save it with zlib, for example with \"osmium cat -o "
          "new.osm.pbf -f pbf,pbf_compression=zlib\"",
          name_, number_, compression));
    const bool isNumber = reader.has_wire_type(protozero::pbf_wire_type::varint);
    const bool isBytes = reader.has_wire_type(protozero::pbf_wire_type::length_delimited);
    if (reader.tag() == 1 && isBytes)
      raw = viewOf(reader.get_view());
    else if (reader.tag() == 2 && isNumber)
      size = static_cast<std::size_t>(std::max(reader.get_int32(), 0));
    else if (reader.tag() == 3 && isBytes)
      packed = viewOf(reader.get_view());
    else
      reader.skip();
  }
  size = packed.empty() ? raw.size() : size;
  if (size > bytesLeft_ || size > greatestBlob)
    throw SourceError(fmt::format(
        "{}: the unpacked blocks are too large; cut out the building first, for example with "
        "\"osmium extract\"",
        name_));
  bytesLeft_ -= size;
  return packed.empty() ? raw : inflated(packed, size);
}

PbfBlobs::Blob PbfBlobs::next() {
  if (rest_.empty() || isCut_) return {};
  const std::size_t headerSize = bigEndian(rest_.substr(0, 4));
  if (number_ == 0 && (headerSize > greatestHeader || headerSize + 4 > rest_.size()))
    throw SourceError(
        fmt::format("{}: the file does not begin with an OSMHeader block; is this an "
                    ".osm.pbf file?",
                    name_));
  ++number_;
  isCut_ = headerSize > greatestHeader || headerSize + 4 > rest_.size();
  if (isCut_) return {};
  protozero::pbf_reader header(rest_.data() + 4, headerSize);
  rest_.remove_prefix(headerSize + 4);
  std::string_view type;
  std::size_t size = 0;
  while (header.next()) {
    if (header.tag() == 1 && header.has_wire_type(protozero::pbf_wire_type::length_delimited))
      type = viewOf(header.get_view());
    else if (header.tag() == 3 && header.has_wire_type(protozero::pbf_wire_type::varint))
      size = static_cast<std::size_t>(std::max(header.get_int32(), 0));
    else
      header.skip();
  }
  isCut_ = size > greatestBlob || size > rest_.size();
  if (isCut_) return {};
  const std::string_view blob = rest_.substr(0, size);
  rest_.remove_prefix(size);
  // An empty type would look like the end.
  return {type.empty() ? "unknown" : type, unpacked(blob)};
}

}  // namespace orivanta::importer
