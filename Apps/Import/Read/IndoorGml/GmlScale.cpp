#include "Apps/Import/Read/IndoorGml/GmlScale.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Read/IndoorGml/GmlFootprint.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"
#include "Apps/Import/Read/ReferenceSystem.hpp"
#include "Apps/Package/Box.hpp"

namespace orivanta::importer {

namespace {

template <class Visit>
void forPositions(const GmlDocument& document, const Visit& visit) {
  for (const GmlSpace& cell : document.cells)
    for (const GmlFace& face : cell.faces)
      for (const GmlPosition& position : face.outer) visit(Point{position.x, position.y});
  for (const GmlState& state : document.states)
    for (const GmlPosition& position : state.positions) visit(Point{position.x, position.y});
}

package::Box boxAround(const GmlDocument& document) {
  package::Box box;
  forPositions(document, [&](Point point) { box.add(point); });
  return box;
}

// All of them are degrees, and they lie within a fraction of a degree.
bool looksLikeDegrees(const package::Box& box, double largest) {
  const auto& [least, most] = box;
  return least.x >= -180.0 && most.x <= 180.0 && least.y >= -180.0 && most.y <= 180.0 &&
         most.x - least.x < largest && most.y - least.y < largest;
}

// No building is so small in any unit, and none is drawn so far from the origin of its plane.
bool areSurelyDegrees(const package::Box& box) {
  constexpr double largest = 0.02;
  return looksLikeDegrees(box, largest) &&
         std::max(std::abs(box.least.x), std::abs(box.least.y)) > 1.0;
}

void reportDegrees(const GmlDocument& document, Findings& findings) {
  Finding finding = makeFinding(
      Severity::warning, "scale-guessed", "",
      {"The document does not state its reference system.", "The coordinates are taken as degrees.",
       "Add srsName=\"EPSG:4326\" to its envelope."});
  finding.file = document.file;
  findings.add(std::move(finding));
}

std::optional<double> doorWidth(const GmlDocument& document) {
  std::vector<double> widths;
  const auto measure = [&](const std::vector<GmlSpace>& spaces, bool all) {
    for (const GmlSpace& space : spaces)
      if (all || space.element == "ConnectionSpace" || space.element == "ConnectionBoundary")
        if (const std::vector<Point> line = baseLineOf(space.faces); line.size() == 2)
          widths.push_back(package::distance(line[0], line[1]));
  };
  measure(document.cells, false);
  measure(document.boundaries, true);
  if (widths.empty()) return std::nullopt;
  const auto middle = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() / 2);
  std::nth_element(widths.begin(), middle, widths.end());
  return *middle > 0.0 ? std::optional(*middle) : std::nullopt;
}

// The unit in which a length is plausible: meters, centimeters, millimeters or one of its own.
double plausibleUnit(double length, double least, double greatest, double expected) {
  for (const double unit : {1.0, 0.01, 0.001})
    if (least <= length * unit && length * unit <= greatest) return unit;
  // A length that is no length must not move positions out of all bounds.
  return std::clamp(expected / length, 1e-4, 1e3);
}

}  // namespace

GmlScale::GmlScale(const GmlDocument& document, const GmlStoreys& storeys, const Options& options,
                   Findings& findings) {
  const CoordinateUnit unit = supportedUnitOf(document.reference);
  const package::Box box = boxAround(document);
  const bool areUnstated = unit == CoordinateUnit::unknown && areSurelyDegrees(box);
  const bool degrees =
      areUnstated || (unit == CoordinateUnit::degrees && looksLikeDegrees(box, 0.5));
  if (areUnstated) reportDegrees(document, findings);
  if (!degrees && unit != CoordinateUnit::meters) guess(document, storeys, options, findings);
  PlaneOrigin middle;
  forPositions(document, [&](Point point) { middle.add(point * metersPerUnit_); });
  origin_ = middle.rounded(degrees ? 0.001 : 10.0);
  if (!degrees) return;
  // The full names of geographic systems have the latitude first.
  latitudeFirst_ = areUnstated ? std::abs(box.least.y) > 90.0
                               : document.reference.starts_with("urn:") ||
                                     document.reference.starts_with("http");
  projection_.emplace(latitudeFirst_ ? Georeference{origin_.x, origin_.y}
                                     : Georeference{origin_.y, origin_.x});
}

void GmlScale::guess(const GmlDocument& document, const GmlStoreys& storeys, const Options& options,
                     Findings& findings) {
  known_ = false;
  const std::optional<double> door = doorWidth(document);
  std::string reason = "neither storeys nor doors have a size";
  if (storeys.height() > 0.0) {
    metersPerUnit_ = plausibleUnit(storeys.height(), 2.2, 8.0, options.storeyHeight);
    reason = fmt::format("a storey is {:.3g} units high", storeys.height());
    if (door) reason += fmt::format(", and a door is {:.3g} units wide", *door);
  } else if (door) {
    metersPerUnit_ = plausibleUnit(*door, 0.6, 3.0, 1.0);
    reason = fmt::format("a door is {:.3g} units wide", *door);
  }
  Finding finding;
  finding.severity = metersPerUnit_ == 1.0 ? Severity::info : Severity::warning;
  finding.rule = "scale-guessed";
  finding.file = document.file;
  finding.message = "The document does not state how long its unit is: " + reason + '.';
  finding.effect = fmt::format("One unit is taken as {:.3g} meters.", metersPerUnit_);
  finding.advice = "If lengths are wrong, give the real height of a storey with --storey-height.";
  findings.add(std::move(finding));
}

Point GmlScale::toPlane(Point point) const {
  if (!projection_) return point * metersPerUnit_ - origin_;
  return latitudeFirst_ ? projection_->toPlane(point.y, point.x)
                        : projection_->toPlane(point.x, point.y);
}

std::optional<Georeference> GmlScale::georeference() const {
  return projection_ ? std::optional(projection_->origin()) : std::nullopt;
}

}  // namespace orivanta::importer
