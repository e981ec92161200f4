#include "Apps/Import/Read/Stations/StationLayer.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Stations/Shapefile.hpp"
#include "Apps/Import/Read/Stations/StationCodes.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

struct KnownLayer {
  std::string_view name;
  LayerKind kind;
};

constexpr std::array knownLayers = {
    KnownLayer{"floor", LayerKind::floor},     KnownLayer{"space", LayerKind::space},
    KnownLayer{"opening", LayerKind::opening}, KnownLayer{"facility", LayerKind::facility},
    KnownLayer{"fixture", LayerKind::fixture}, KnownLayer{"node", LayerKind::node},
    KnownLayer{"link", LayerKind::link},       KnownLayer{"drawing", LayerKind::drawing},
    KnownLayer{"twsiline", LayerKind::other},  KnownLayer{"twsipoint", LayerKind::other},
    KnownLayer{"segment", LayerKind::other},   KnownLayer{"site", LayerKind::other},
    KnownLayer{"building", LayerKind::other},  KnownLayer{"connect", LayerKind::other},
};

std::vector<std::string> partsOf(const std::string& file) {
  std::vector<std::string> parts(1);
  for (const char character : std::filesystem::path(file).stem().string())
    if (character == '_')
      parts.emplace_back();
    else
      parts.back() += character;
  return parts;
}

// Names the area of files that are called only as their layers are.
std::string folderOf(const std::filesystem::path& file) {
  return (file.has_parent_path() ? file.parent_path().filename() : file.stem()).string();
}

// The ordinal of "B1", "0" or "2out".
std::optional<double> ordinalOf(std::string_view text) {
  std::string level = lowerCase(text);
  if (level.ends_with("out")) level.resize(level.size() - 3);
  if (level.ends_with("f")) level.pop_back();
  const bool below = level.starts_with('b');
  if (below) level.erase(0, 1);
  if (level.empty() || level.size() > 4 ||
      level.find_first_not_of("0123456789.") != std::string::npos)
    return std::nullopt;
  const std::optional<double> number = numberIn(level);
  constexpr double mostStoreys = 200.0;  // larger numbers are years
  if (number && *number > mostStoreys) return std::nullopt;
  return number && below ? -*number : number;
}

// What the fields of a layer with an unknown name say.
LayerKind kindOf(const StationFeature& feature) {
  if (!feature["link_id"].empty() || !feature["start_id"].empty()) return LayerKind::link;
  if (!feature["node_id"].empty()) return LayerKind::node;
  switch (feature["category"].substr(0, 1).empty() ? ' ' : feature["category"][0]) {
    case 'B':
      return LayerKind::space;
    case 'F':
      return LayerKind::facility;
    case 'C':
      return LayerKind::fixture;
    default:
      return feature["floor_id"].empty() && !feature["ordinal"].empty() ? LayerKind::floor
                                                                        : LayerKind::other;
  }
}

// What the name of the file says. Nothing for a layer with an unknown name.
std::optional<LayerKind> kindByName(const std::string& file) {
  std::string last = lowerCase(partsOf(file).back());
  if (last.ends_with('s')) last.pop_back();
  const auto known = std::find_if(knownLayers.begin(), knownLayers.end(),
                                  [&](const KnownLayer& each) { return each.name == last; });
  return known == knownLayers.end() ? std::nullopt : std::optional(known->kind);
}

StationLayer describedLayer(const std::string& file, std::vector<StationFeature> features) {
  const std::vector<std::string> parts = partsOf(file);
  StationLayer layer;
  layer.file = file;
  layer.area = parts.size() > 1 ? parts.front() : folderOf(file);
  for (const std::string& part : parts)
    if (const auto ordinal = ordinalOf(part)) layer.ordinal = ordinal;
  if (const auto kind = kindByName(file))
    layer.kind = *kind;
  else if (!features.empty())
    layer.kind = kindOf(features.front());
  layer.features = std::move(features);
  return layer;
}

class LayerReader {
 public:
  LayerReader(const Limits& limits, TextPool& texts, Findings& findings)
      : limits_(limits), texts_(texts), findings_(findings) {}

  void read(const SourceFile& file) {
    if (kindByName(file.name) == LayerKind::other) return;
    // Most facilities are connectors and signs.
    const bool areFacilities = kindByName(file.name) == LayerKind::facility;
    std::vector<StationFeature> features;
    const GeoFrame frame = readGeoJson(file, limits_, vertices_, findings_, [&](GeoFeature& each) {
      if (!areFacilities || isPlace(memberText(each.properties, "category")))
        features.push_back(featureOf(each, file.name));
    });
    add(describedLayer(file.name, std::move(features)), frame.crs);
  }

  void read(const Shapefile& file) {
    if (kindByName(file.name) == LayerKind::other) return;
    add(describedLayer(file.name, readShapefile(file, limits_, vertices_, texts_, findings_)),
        std::string(file.prj));
  }

  std::vector<StationLayer> release() { return std::move(layers_); }

 private:
  void add(StationLayer layer, const std::string& crs) {
    if (layer.kind == LayerKind::other) return;
    layer.unit = unitOf(crs, layer.file);
    layer.features.shrink_to_fit();
    layers_.push_back(std::move(layer));
  }

  StationFeature featureOf(GeoFeature& each, const std::string& file) {
    std::vector<std::pair<StationFeature::UsedName, std::string_view>> fields;
    for (const auto& [key, value] : each.properties)
      if (const auto used = StationFeature::usedName(lowerCase({key.data(), key.size()}));
          used.known != StationFeature::Known::no)
        fields.emplace_back(used,
                            texts_.keep(memberText(each.properties, {key.data(), key.size()})));
    StationFeature feature;
    feature.reserve(fields.size());
    for (const auto known : {StationFeature::Known::yes, StationFeature::Known::inOtherWords})
      for (const auto& [used, value] : fields)
        if (used.known == known) feature.add(used.name, value);
    requireMemory(texts_, limits_, file);
    feature.geometry = std::move(each.geometry);
    return feature;
  }

  const Limits& limits_;
  TextPool& texts_;
  Findings& findings_;
  std::size_t vertices_ = 0;
  std::vector<StationLayer> layers_;
};

}  // namespace

std::optional<double> stationOrdinal(std::string_view text) {
  const std::optional<double> number = numberIn(text);
  return number ? number : ordinalOf(text);
}

void requireMemory(const TextPool& texts, const Limits& limits, const std::string& file) {
  if (texts.bytes() > limits.bytes / 4)
    throw SourceError(fmt::format(
        "{}: the attributes have more than {} MiB of different texts; import a part of the file",
        file, limits.bytes >> 22U));
}

std::size_t countOf(const std::vector<StationLayer>& layers, LayerKind kind) {
  std::size_t count = 0;
  for (const StationLayer& layer : layers)
    if (layer.kind == kind) count += layer.features.size();
  return count;
}

std::vector<StationLayer> readStationLayers(std::vector<SourceFile>& files, const Limits& limits,
                                            TextPool& texts, Findings& findings) {
  LayerReader reader(limits, texts, findings);
  for (SourceFile& file : files) {
    const std::string extension = lowerCase(std::filesystem::path(file.name).extension().string());
    if (extension != ".geojson" && extension != ".json") continue;
    reader.read(file);
    file.release();
  }
  for (const Shapefile& file : findShapefiles(files)) reader.read(file);
  for (SourceFile& file : files) file.release();
  return reader.release();
}

}  // namespace orivanta::importer
