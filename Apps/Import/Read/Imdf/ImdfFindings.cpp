#include "Apps/Import/Read/Imdf/ImdfFindings.hpp"

#include <utility>

namespace orivanta::importer {

namespace {

std::optional<Point> firstPosition(const GeoGeometry& geometry) {
  if (!geometry.points.empty()) return geometry.points.front();
  for (const auto& line : geometry.lines)
    if (!line.empty()) return line.front();
  for (const Polygon& polygon : geometry.polygons)
    if (!polygon.outer.empty()) return polygon.outer.front();
  return std::nullopt;
}

}  // namespace

Finding findingFor(const ImdfArchive& archive, const ImdfFeature& feature, ImdfBreach breach) {
  Finding finding;
  finding.severity = breach.severity;
  finding.rule = std::move(breach.rule);
  finding.source = feature.id;
  finding.file = feature.file;
  finding.field = std::move(breach.field);
  finding.level = archive.levelOf(feature);
  finding.position = firstPosition(feature.geometry);
  finding.message = std::move(breach.message);
  finding.effect = std::move(breach.effect);
  finding.advice = std::move(breach.advice);
  return finding;
}

}  // namespace orivanta::importer
