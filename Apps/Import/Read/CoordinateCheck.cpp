#include "Apps/Import/Read/CoordinateCheck.hpp"

#include <fmt/format.h>

#include <cmath>
#include <numbers>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Read/ReferenceSystem.hpp"

namespace orivanta::importer {

namespace {

bool isPosition(double longitude, double latitude) {
  return std::abs(longitude) <= 180.0 && std::abs(latitude) <= 90.0;
}

// Whether the corner is a right angle on the ground, within 1.7 degrees.
bool isRight(Point arriving, Point leaving, double latitude) {
  const double narrowing = std::cos(latitude * std::numbers::pi / 180.0);
  arriving.x *= narrowing;
  leaving.x *= narrowing;
  return std::abs(package::dot(arriving, leaving)) <
         0.03 * package::length(arriving) * package::length(leaving);
}

Point swapped(Point point) { return {point.y, point.x}; }

std::string conversionOf(const std::string& file) {
  return "convert the file with: ogr2ogr -t_srs EPSG:4326 -f GeoJSON NEW.geojson \"" + file + '"';
}

}  // namespace

void requireDegrees(const std::string& crs, const std::string& file) {
  if (crs.empty() || supportedUnitOf(crs) == CoordinateUnit::degrees) return;
  throw CoordinateError(fmt::format(
      "{}: the coordinates are in the reference system \"{}\", but must be longitude and "
      "latitude; {}",
      file, crs.substr(0, 80), conversionOf(file)));
}

void CoordinateCheck::add(Point position) {
  if (positions_++ == 0) example_ = position;
  if (isPosition(position.x, position.y))
    ++degrees_;
  else if (isPosition(position.y, position.x))
    ++exchanged_;
}

void CoordinateCheck::addCorners(const Outline& ring) {
  for (std::size_t i = 0; i + 2 < ring.size(); ++i) {
    const Point arriving = ring[i + 1] - ring[i];
    const Point leaving = ring[i + 2] - ring[i + 1];
    ++corners_;
    right_ += isRight(arriving, leaving, ring[i].y) ? 1 : 0;
    rightIfSwapped_ += isRight(swapped(arriving), swapped(leaving), ring[i].x) ? 1 : 0;
  }
}

void CoordinateCheck::add(const GeoGeometry& geometry) {
  for (const Point point : geometry.points) add(point);
  for (const auto& line : geometry.lines)
    for (const Point point : line) add(point);
  for (const Polygon& polygon : geometry.polygons) {
    for (const Point point : polygon.outer) add(point);
    addCorners(polygon.outer);
  }
}

bool CoordinateCheck::areSwapped(const std::string& file, Findings& findings) const {
  constexpr std::size_t fewestCorners = 20;
  Finding finding = makeFinding(Severity::warning, "coordinates-swapped", "", {});
  finding.file = file;
  finding.advice = "Export the file with the longitude first.";
  if (exchanged_ > 0 && 10 * degrees_ < positions_ && 2 * exchanged_ > positions_) {
    finding.message = fmt::format("The latitude comes before the longitude, as in [{}, {}].",
                                  example_.x, example_.y);
    finding.effect = "The coordinates are exchanged.";
    findings.add(std::move(finding));
    return true;
  }
  if (2 * degrees_ < positions_)
    throw CoordinateError(fmt::format(
        "{}: the coordinates, such as [{}, {}], are no longitudes and latitudes{}; {}", file,
        example_.x, example_.y,
        std::abs(example_.x) > 1000.0 ? "; they look like meters of a map projection such as Web "
                                        "Mercator (EPSG:3857)"
                                      : "",
        conversionOf(file)));
  if (corners_ >= fewestCorners && 10 * rightIfSwapped_ >= 8 * corners_ &&
      10 * right_ <= 3 * corners_) {
    finding.message =
        "Most corners of the shapes would be right angles if the latitude came before the "
        "longitude, and hardly any is one as it is.";
    finding.effect = "If they are swapped, the building is distorted and at the wrong place.";
    findings.add(std::move(finding));
  }
  return false;
}

}  // namespace orivanta::importer
