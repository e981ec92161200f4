#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Apps/Import/Projection.hpp"
#include "Apps/Import/Read/GeoJsonGeometry.hpp"
#include "Apps/Import/Read/Imdf/ImdfFindings.hpp"
#include "Apps/Import/Read/Imdf/ImdfRules.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

// Positions this near to a border lie on it. Editors round to about a centimeter.
constexpr double tolerance = 0.1;

struct OutOfEffort {};

// Counts what is looked at, so that a hostile archive cannot stop the import.
class Effort {
 public:
  void spend(std::size_t amount) {
    if (amount > left_) throw OutOfEffort();
    left_ -= amount;
  }

 private:
  std::size_t left_ = 200'000'000;
};

// The shape of a feature with its extent.
class Cover {
 public:
  Cover(const std::vector<Polygon>& polygons, Effort& effort)
      : polygons_(&polygons), effort_(&effort) {
    for (const Polygon& polygon : polygons)
      for (const Point point : polygon.outer) {
        least_ = {std::min(least_.x, point.x), std::min(least_.y, point.y)};
        greatest_ = {std::max(greatest_.x, point.x), std::max(greatest_.y, point.y)};
      }
  }

  bool isNear(Point point) const {
    return least_.x - tolerance <= point.x && point.x <= greatest_.x + tolerance &&
           least_.y - tolerance <= point.y && point.y <= greatest_.y + tolerance;
  }

  bool contains(Point point) const {
    return isNear(point) &&
           (std::any_of(polygons_->begin(), polygons_->end(),
                        [&](const Polygon& polygon) { return isInside(polygon, point); }) ||
            isOnBorder(point));
  }

  bool isOnBorder(Point point) const {
    const auto touches = [&](const Outline& ring) {
      effort_->spend(ring.size());
      return !ring.empty() && package::distanceToBorder(ring, point) <= tolerance;
    };
    return isNear(point) &&
           std::any_of(polygons_->begin(), polygons_->end(), [&](const Polygon& polygon) {
             return touches(polygon.outer) ||
                    std::any_of(polygon.holes.begin(), polygon.holes.end(), touches);
           });
  }

 private:
  bool isInside(const Polygon& polygon, Point point) const {
    const auto within = [&](const Outline& ring) {
      effort_->spend(ring.size());
      return package::contains(ring, point);
    };
    return within(polygon.outer) &&
           std::none_of(polygon.holes.begin(), polygon.holes.end(), within);
  }

  static constexpr double far = std::numeric_limits<double>::max();

  const std::vector<Polygon>* polygons_;
  Effort* effort_;
  Point least_{far, far};
  Point greatest_{-far, -far};
};

class ShapeChecker {
 public:
  ShapeChecker(const ImdfArchive& archive, Findings& findings)
      : archive_(archive), findings_(findings) {}

  void check() {
    checkVenues();
    for (const ImdfFeature* unit : archive_.ofType("unit"))
      unitsOfLevel_[unit->text("level_id")].emplace_back(unit->geometry.polygons, effort_);
    for (const ImdfFeature* opening : archive_.ofType("opening")) checkOpening(*opening);
  }

 private:
  void report(const ImdfFeature& feature, ImdfBreach breach) {
    findings_.add(findingFor(archive_, feature, std::move(breach)));
  }

  void checkVenues() {
    for (const ImdfFeature* venue : archive_.ofType("venue")) {
      if (venue->geometry.polygons.empty()) continue;
      const Cover cover(venue->geometry.polygons, effort_);
      checkDisplayPoint(*venue, cover);
      for (const char* type : {"level", "footprint"})
        for (const ImdfFeature* child : archive_.ofType(type)) checkChild(cover, *child);
    }
  }

  void checkDisplayPoint(const ImdfFeature& venue, const Cover& cover) {
    GeoGeometry geometry;
    std::size_t vertices = 0;
    const auto* member = memberOf(venue.properties, "display_point");
    if (member != nullptr) readGeometry(*member, geometry, vertices);
    if (!geometry.points.empty()) {
      const Point point = geometry.points.front();
      if (cover.contains(Projection(archive_.origin).toPlane(point.x, point.y))) return;
    }
    report(venue, {Severity::violation, "VenueGeometryMustContainDisplayPoint", "display_point",
                   "The display point does not lie within the venue, or there is none.", "",
                   "Move it into the venue."});
  }

  void checkChild(const Cover& cover, const ImdfFeature& child) {
    for (const Polygon& polygon : child.geometry.polygons)
      for (const Point point : polygon.outer)
        if (!cover.contains(point))
          return report(child,
                        {Severity::warning, "VenueMustCoverAllChildFeatures", "geometry",
                         "A part of the " + std::string(child.type) + " lies outside of the venue.",
                         "", "Extend the venue, or correct the " + std::string(child.type) + "."});
  }

  void checkOpening(const ImdfFeature& opening) {
    const std::string level = opening.text("level_id");
    const ImdfFeature* drawn = archive_.find(level, "level");
    if (drawn == nullptr || opening.geometry.lines.empty()) return;
    const std::vector<Point>& line = opening.geometry.lines.front();
    const Cover& cover =
        levels_.try_emplace(level, drawn->geometry.polygons, effort_).first->second;
    if (!drawn->geometry.polygons.empty() &&
        !std::all_of(line.begin(), line.end(), [&](Point point) { return cover.contains(point); }))
      report(opening, {Severity::violation, "OpeningMustBeCoveredByReferencedLevel", "geometry",
                       "The opening lies outside of its level.", "It may join nothing.",
                       "Move it onto a wall of the level."});
    const std::vector<Cover>& units = unitsOfLevel_[level];
    effort_.spend(units.size() * line.size());
    if (!std::any_of(units.begin(), units.end(), [&](const Cover& unit) {
          return std::all_of(line.begin(), line.end(),
                             [&](Point point) { return unit.isOnBorder(point); });
        }))
      report(opening, {Severity::warning, "OpeningMustBeCoveredByUnitBoundary", "geometry",
                       "The opening does not lie on the boundary of a unit.",
                       "It may join nothing.", "Move it onto the wall between two units."});
  }

  const ImdfArchive& archive_;
  Findings& findings_;
  Effort effort_;
  std::unordered_map<std::string, Cover> levels_;
  std::unordered_map<std::string, std::vector<Cover>> unitsOfLevel_;
};

}  // namespace

void checkImdfShapes(const ImdfArchive& archive, Findings& findings) {
  try {
    ShapeChecker(archive, findings).check();
  } catch (const OutOfEffort&) {
    Finding finding;
    finding.severity = Severity::info;
    finding.rule = "check-incomplete";
    finding.file = archive.file;
    finding.message = "The archive is too large to check all openings.";
    finding.effect = "The rules for the positions of openings were checked for a part of them.";
    findings.add(std::move(finding));
  }
}

}  // namespace orivanta::importer
