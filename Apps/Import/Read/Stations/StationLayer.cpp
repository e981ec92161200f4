#include "Apps/Import/Read/Stations/StationLayer.hpp"

#include <algorithm>
#include <array>
#include <filesystem>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Stations/Shapefile.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

struct KnownLayer {
  std::string_view name;
  LayerKind kind;
};

constexpr std::array knownLayers = {
    KnownLayer{"floor", LayerKind::floor},     KnownLayer{"space", LayerKind::space},
    KnownLayer{"opening", LayerKind::opening}, KnownLayer{"facility", LayerKind::facility},
    KnownLayer{"fixture", LayerKind::fixture}, KnownLayer{"node", LayerKind::node},
    KnownLayer{"link", LayerKind::link},       KnownLayer{"drawing", LayerKind::other},
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

// The ordinal of "B1", "0" or "2out".
std::optional<double> ordinalOf(const std::string& text) {
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
  if (feature["floor_id"].empty())
    return feature["ordinal"].empty() ? LayerKind::other : LayerKind::floor;
  switch (feature["category"].substr(0, 1).empty() ? ' ' : feature["category"][0]) {
    case 'B':
      return LayerKind::space;
    case 'F':
      return LayerKind::facility;
    case 'C':
      return LayerKind::fixture;
    default:
      return LayerKind::other;
  }
}

StationLayer describedLayer(const std::string& file, const std::vector<StationFeature>& features) {
  const std::vector<std::string> parts = partsOf(file);
  StationLayer layer;
  layer.file = file;
  layer.area = parts.front();
  for (const std::string& part : parts)
    if (const auto ordinal = ordinalOf(part)) layer.ordinal = ordinal;
  const std::string last = lowerCase(parts.back());
  const auto known = std::find_if(knownLayers.begin(), knownLayers.end(),
                                  [&](const KnownLayer& each) { return each.name == last; });
  if (known != knownLayers.end())
    layer.kind = known->kind;
  else if (!features.empty())
    layer.kind = kindOf(features.front());
  return layer;
}

void addGeoJson(const SourceFile& file, const Limits& limits, std::size_t& vertices,
                Findings& findings, std::vector<StationLayer>& layers) {
  GeoFeatures collection = readGeoJson(file, limits, vertices, findings);
  std::vector<StationFeature> features;
  features.reserve(collection.features.size());
  for (GeoFeature& each : collection.features) {
    StationFeature feature;
    for (const auto& [key, value] : each.properties)
      if (std::string text = memberText(each.properties, {key.data(), key.size()}); !text.empty())
        feature.fields.emplace_back(lowerCase({key.data(), key.size()}), std::move(text));
    feature.geometry = std::move(each.geometry);
    features.push_back(std::move(feature));
  }
  StationLayer layer = describedLayer(file.name, features);
  if (layer.kind == LayerKind::other) return;
  layer.unit = unitOf(collection.crs, file.name);
  layer.features = std::move(features);
  layers.push_back(std::move(layer));
}

void addShapefile(const Shapefile& file, const Limits& limits, std::size_t& vertices,
                  Findings& findings, std::vector<StationLayer>& layers) {
  std::vector<StationFeature> features = readShapefile(file, limits, vertices, findings);
  StationLayer layer = describedLayer(file.name, features);
  if (layer.kind == LayerKind::other) return;
  layer.unit = unitOf(std::string(file.prj), file.name);
  layer.features = std::move(features);
  layers.push_back(std::move(layer));
}

}  // namespace

std::string_view StationFeature::operator[](std::string_view name) const {
  for (const auto& [field, value] : fields)
    if (field == name) return value;
  return {};
}

std::vector<StationLayer> readStationLayers(const std::vector<SourceFile>& files,
                                            const Limits& limits, Findings& findings) {
  std::vector<StationLayer> layers;
  std::size_t vertices = 0;
  for (const SourceFile& file : files) {
    const std::string extension = lowerCase(std::filesystem::path(file.name).extension().string());
    if (extension == ".geojson" || extension == ".json")
      addGeoJson(file, limits, vertices, findings, layers);
  }
  for (const Shapefile& file : findShapefiles(files))
    addShapefile(file, limits, vertices, findings, layers);
  return layers;
}

}  // namespace orivanta::importer
