#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "Apps/Import/Projection.hpp"
#include "Apps/Import/Read/CoordinateCheck.hpp"
#include "Apps/Import/Read/FreeMemory.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Read/Stations/StationAreas.hpp"
#include "Apps/Import/Read/Stations/StationLayer.hpp"
#include "Apps/Import/Read/Stations/StationNetwork.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

void report(Findings& findings, Severity severity, const char* rule, const std::string& file,
            std::string message, const char* effect, const char* advice) {
  Finding finding;
  finding.severity = severity;
  finding.rule = rule;
  finding.file = file;
  finding.message = std::move(message);
  finding.effect = effect;
  finding.advice = advice;
  findings.add(std::move(finding));
}

bool isDegrees(const std::vector<StationLayer>& layers) {
  bool within = true;
  for (const StationLayer& layer : layers)
    for (const StationFeature& feature : layer.features) {
      forPositions(feature.geometry, [&](Point point) {
        within = within && std::abs(point.x) <= 180.0 && std::abs(point.y) <= 90.0;
      });
    }
  return within;
}

// The unit of all layers. Layers that do not state theirs have that of the others.
CoordinateUnit commonUnit(std::vector<StationLayer>& layers, Findings& findings) {
  const StationLayer* first = nullptr;
  for (const StationLayer& layer : layers) {
    if (layer.unit == CoordinateUnit::unknown) continue;
    if (first == nullptr) first = &layer;
    if (layer.unit != first->unit)
      throw SourceError(first->file + " and " + layer.file +
                        " have different reference systems; convert one of them with: ogr2ogr "
                        "-t_srs EPSG:4326 -f GeoJSON NEW.geojson FILE");
  }
  if (first != nullptr) return first->unit;
  CoordinateCheck check;
  for (const StationLayer& layer : layers)
    for (const StationFeature& feature : layer.features) check.add(feature.geometry);
  if (check.areSwappedDegrees()) {
    for (StationLayer& layer : layers)
      for (StationFeature& feature : layer.features)
        changePositions(feature.geometry, [](Point point) { return Point{point.y, point.x}; });
    report(findings, Severity::warning, "coordinates-swapped", layers.front().file,
           "The latitude comes before the longitude.", "The coordinates are exchanged.",
           "Export the files with the longitude first.");
    return CoordinateUnit::degrees;
  }
  check.refuseMercator(layers.front().file);
  const bool degrees = isDegrees(layers);
  report(findings, Severity::warning, "reference-system-unknown", layers.front().file,
         "The files do not state their coordinate reference system.",
         degrees ? "The coordinates are taken as longitude and latitude."
                 : "The coordinates are taken as meters.",
         "If the building has the wrong size, convert the files with ogr2ogr -t_srs EPSG:4326.");
  return degrees ? CoordinateUnit::degrees : CoordinateUnit::meters;
}

// Moves the origin to the middle of the building and makes all coordinates meters.
class Placement {
 public:
  Placement(std::vector<StationLayer>& layers, CoordinateUnit unit) : layers_(layers) {
    PlaneOrigin middle;
    for (const StationLayer& layer : layers)
      for (const StationFeature& feature : layer.features) middle.add(feature.geometry);
    origin_ = middle.rounded(unit == CoordinateUnit::degrees ? 0.001 : 100.0);
    if (unit == CoordinateUnit::degrees) projection_.emplace(Georeference{origin_.y, origin_.x});
  }

  std::optional<Georeference> georeference() const {
    return projection_ ? projection_->origin() : fromNodes();
  }

  void apply() {
    for (StationLayer& layer : layers_)
      for (StationFeature& feature : layer.features)
        changePositions(feature.geometry, [&](Point point) {
          return projection_ ? projection_->toPlane(point.x, point.y) : point - origin_;
        });
  }

 private:
  // Nodes state their longitude and latitude as well. Before `apply`.
  std::optional<Georeference> fromNodes() const {
    std::optional<Georeference> nearest;
    double least = 0.0;
    for (const StationLayer& layer : layers_)
      for (const StationFeature& feature : layer.features) {
        const auto latitude = numberIn(feature["lat"]);
        const auto longitude = numberIn(feature["lon"]);
        if (layer.kind != LayerKind::node || !latitude || !longitude ||
            feature.geometry.points.empty() || std::abs(*latitude) > 89.0 ||
            std::abs(*longitude) > 180.0)
          continue;
        const Point offset = feature.geometry.points.front() - origin_;
        if (nearest && package::length(offset) >= least) continue;
        least = package::length(offset);
        nearest = moved({*latitude, *longitude}, offset);
      }
    return nearest;
  }

  // The position from which the offset leads to the given one.
  static Georeference moved(Georeference from, Point offset) {
    constexpr double step = 0.001;
    const Point meters =
        Projection(from).toPlane(from.longitude + step, from.latitude + step) * (1.0 / step);
    return {from.latitude - offset.y / meters.y, from.longitude - offset.x / meters.x};
  }

  std::vector<StationLayer>& layers_;
  Point origin_;
  std::optional<Projection> projection_;
};

void keepWithin(const Bounds& bounds, std::vector<StationLayer>& layers) {
  const auto within = [&](const StationFeature& feature) {
    bool any = false;
    forPositions(feature.geometry, [&](Point point) {
      any = any || (bounds[0] <= point.y && point.y <= bounds[2] && bounds[1] <= point.x &&
                    point.x <= bounds[3]);
    });
    return any;
  };
  for (StationLayer& layer : layers)
    layer.features.erase(std::remove_if(layer.features.begin(), layer.features.end(),
                                        [&](const StationFeature& feature) {
                                          return layer.kind != LayerKind::floor && !within(feature);
                                        }),
                         layer.features.end());
}

// Without floors, the nodes tell which there are. Their ordinals count from the ground floor 1.
void addStoreysOfNodes(const Options& options, Building& building) {
  if (!building.storeys.empty()) return;
  std::set<double> ordinals;
  for (const SourceNode& node : building.sourceNodes)
    if (node.spot.level == std::round(node.spot.level) && node.spot.level != 0.0)
      ordinals.insert(node.spot.level);
  for (const double ordinal : ordinals) {
    Storey storey;
    storey.id = fmt::format("floor {}", ordinal);
    storey.ordinal = ordinal;
    const bool isBelow = ordinal < 0.0;
    storey.names.name = fmt::format("{}{}階", isBelow ? "地下" : "", std::abs(ordinal));
    storey.shortName = fmt::format("{}{}F", isBelow ? "B" : "", std::abs(ordinal));
    storey.elevation = (isBelow ? ordinal : ordinal - 1.0) * options.storeyHeight;
    building.storeys.push_back(std::move(storey));
  }
}

}  // namespace

Building readStations(std::vector<SourceFile> files, const Options& options, Findings& findings) {
  TextPool texts;
  std::vector<StationLayer> layers = readStationLayers(files, options.limits, texts, findings);
  if (layers.empty())
    throw SourceError(
        (files.empty() ? "" : files.front().name + ": ") +
        "there is no layer of a station network (Floor, Space, Facility, node, link); "
        "name the folder with all of them");
  const CoordinateUnit unit = commonUnit(layers, findings);
  if (options.bounds && unit == CoordinateUnit::degrees) {
    keepWithin(*options.bounds, layers);
  } else if (options.bounds) {
    report(findings, Severity::warning, "bounds-ignored", layers.front().file,
           "The coordinates are meters, and the bounds are degrees.", "Everything is imported.",
           "Convert the files with ogr2ogr -t_srs EPSG:4326.");
  }
  if (!options.building.empty())
    report(findings, Severity::warning, "building-ignored", layers.front().file,
           "A station network does not tell buildings apart.", "Everything is imported.",
           "Leave out --building, or name only the files of the building.");
  Building building;
  building.id = layers.front().area;
  building.names = {layers.front().area, {}, true};
  building.language = "ja";
  Placement placement(layers, unit);
  building.georeference = placement.georeference();
  placement.apply();
  readStationNetwork(layers, building, findings);
  releaseFreeMemory();
  readStationAreas(layers, options, building, findings);
  addStoreysOfNodes(options, building);
  return building;
}

}  // namespace orivanta::importer
