#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <optional>

#include "Apps/Import/Read/JsonText.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

constexpr std::string_view knownFormats =
    "known are IMDF 1.0 (a zip archive or folder with manifest.json and level.geojson), "
    "OpenStreetMap (.osm, .osm.pbf, Overpass JSON, GeoJSON with ids such as way/1), IndoorGML 1.0 "
    "and 1.1 (.gml) and station networks (GeoJSON or Shapefiles); choose one with --format if it "
    "is one of them";

// How much of a file is looked at.
constexpr std::size_t sampleBytes = 256U << 10U;

bool has(std::string_view text, std::initializer_list<std::string_view> any) {
  // Much faster than `std::string_view::find` for texts with many quotation marks.
  return std::any_of(any.begin(), any.end(), [&](std::string_view each) {
    return memmem(text.data(), text.size(), each.data(), each.size()) != nullptr;
  });
}

bool endsWith(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() &&
         std::equal(ending.rbegin(), ending.rend(), name.rbegin(), [](char first, char second) {
           return std::tolower(static_cast<unsigned char>(second)) == first;
         });
}

// The name of the first element without its prefix.
std::string_view rootElement(std::string_view text) {
  for (std::size_t at = text.find('<'); at != text.npos; at = text.find('<', at + 1)) {
    if (text.substr(at, 4) == "<!--") {
      at = text.find("-->", at);
      if (at == text.npos) break;
      continue;
    }
    if (at + 1 >= text.size() || text[at + 1] == '?' || text[at + 1] == '!') continue;
    std::string_view name = text.substr(at + 1);
    name = name.substr(0, name.find_first_of(" \t\r\n/>"));
    return name.substr(name.find(':') + 1);
  }
  return {};
}

std::optional<Format> formatOfXml(std::string_view text) {
  const std::string_view root = rootElement(text);
  if (root == "osm") return Format::osmXml;
  if (root == "IndoorFeatures" || has(text.substr(0, 4096), {"opengis.net/indoorgml"}))
    return Format::indoorGml;
  return std::nullopt;
}

std::optional<Format> formatOfJson(std::string_view text) {
  if (has(text, {"\"feature_type\""})) return Format::imdf;
  if (has(text, {"\"osm3s\""}) || (has(text, {"\"elements\""}) && !has(text, {"\"features\""})))
    return Format::overpassJson;
  if (has(text, {"\"@id\"", "\"@type\"", "\"way/", "\"node/", "\"relation/", "\"osm_id\"",
                 "\"osm_way_id\"", "\"osmid\""}))
    return Format::osmGeoJson;
  if (has(text, {"\"floor_id\"", "\"link_id\"", "\"node_id\"", "\"start_id\"", "\"FLOOR_ID\"",
                 "\"LINK_ID\"", "\"NODE_ID\"", "\"floorid\"", "\"linkid\"", "\"nodeid\""}) ||
      (has(text, {"\"ordinal\""}) && has(text, {"\"short_name\""})))
    return Format::stations;
  if (has(text, {"\"indoor\"", "\"level\"", "\"highway\""})) return Format::osmGeoJson;
  return std::nullopt;
}

bool isPbf(std::string_view bytes) { return has(bytes.substr(0, 64), {"OSMHeader"}); }

bool isShapefile(std::string_view bytes) {
  return bytes.starts_with(std::string_view("\0\0\x27\x0a", 4));
}

void refuseCompressed(const SourceFile& file) {
  struct Compression {
    std::string_view mark, name, program;
  };
  constexpr std::array<Compression, 5> compressions = {{{"\x1f\x8b", "gzip", "gunzip"},
                                                        {"BZh", "bzip2", "bunzip2"},
                                                        {"\xFD\x37zXZ", "xz", "unxz"},
                                                        {"\x28\xB5\x2F\xFD", "zstd", "unzstd"},
                                                        {"7z\xBC\xAF", "7z", "7z x"}}};
  for (const Compression& each : compressions)
    if (std::string_view(file.bytes).starts_with(each.mark))
      throw SourceError(file.name + ": the file is compressed with " + std::string(each.name) +
                        "; unpack it first, for example with " + std::string(each.program));
}

std::optional<Format> formatOf(const SourceFile& file) {
  refuseCompressed(file);
  if (isPbf(file.bytes)) return Format::osmPbf;
  if (isShapefile(file.bytes)) return Format::stations;
  std::string_view text = withoutByteOrderMark(file.bytes).substr(0, sampleBytes);
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  if (endsWith(file.name, "manifest.json") && has(text, {"\"version\""})) return Format::imdf;
  if (text.starts_with('<')) return formatOfXml(text);
  if (text.starts_with('{') || text.starts_with('[')) return formatOfJson(text);
  return std::nullopt;
}

std::optional<Format> formatOfName(std::string_view name) {
  if (endsWith(name, ".osm.pbf")) return Format::osmPbf;
  if (endsWith(name, ".osm")) return Format::osmXml;
  if (endsWith(name, ".gml")) return Format::indoorGml;
  return std::nullopt;
}

}  // namespace

Format recognizeFormat(const std::vector<SourceFile>& files) {
  const SourceFile* first = nullptr;
  std::optional<Format> format;
  for (const SourceFile& file : files) {
    const std::optional<Format> each = formatOf(file);
    if (!each || each == format) continue;
    // In an IMDF archive, extensions may add files of any contents.
    if (format == Format::imdf) continue;
    if (format && each != Format::imdf)
      throw SourceError(first->name + " and " + file.name +
                        " have different formats; name the files of one format, or choose one with "
                        "--format");
    first = &file;
    format = each;
  }
  for (const SourceFile& file : files)
    if (!format) format = formatOfName(file.name);
  if (!format)
    throw SourceError((files.empty() ? "" : files.front().name + ": ") +
                      "the format is not known; " + std::string(knownFormats));
  return *format;
}

}  // namespace orivanta::importer
