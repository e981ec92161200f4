// The layers of a station network: what a GeoJSON file and a Shapefile have in common.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/GeoJson.hpp"
#include "Apps/Import/Read/ReferenceSystem.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

struct StationFeature {
  /// Names in lower case, and values as trimmed texts. Without empty values.
  std::vector<std::pair<std::string, std::string>> fields;
  GeoGeometry geometry;

  /// The value; empty if there is none.
  std::string_view operator[](std::string_view name) const;
};

enum class LayerKind { other, floor, space, opening, facility, fixture, node, link };

struct StationLayer {
  LayerKind kind = LayerKind::other;
  std::string file;
  std::string area;               ///< the first part of the file's name, such as "Shinjuku"
  std::optional<double> ordinal;  ///< as in the file's name: "B1" is -1
  CoordinateUnit unit = CoordinateUnit::unknown;
  std::vector<StationFeature> features;
};

/// Reads all GeoJSON files and Shapefiles. Layers that the importer does not use are left out.
/// Throws `SourceError` as `readGeoJson` and `unitOf` do.
std::vector<StationLayer> readStationLayers(const std::vector<SourceFile>& files,
                                            const Limits& limits, Findings& findings);

}  // namespace orivanta::importer
