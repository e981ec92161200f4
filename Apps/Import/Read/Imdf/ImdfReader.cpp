#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Projection.hpp"
#include "Apps/Import/Read/Countries.hpp"
#include "Apps/Import/Read/GeoJsonGeometry.hpp"
#include "Apps/Import/Read/Imdf/ImdfImport.hpp"
#include "Apps/Import/Read/Imdf/ImdfRules.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

void readVenue(const ImdfArchive& archive, Building& building) {
  building.language = archive.language;
  building.georeference = archive.origin;
  const std::vector<const ImdfFeature*> venues = archive.ofType("venue");
  if (venues.empty()) return;
  building.id = venues.front()->id;
  building.names = archive.names(venues.front()->properties, "name");
}

std::string nameOf(const ImdfArchive& archive, const ImdfFeature& building) {
  const std::string name = archive.names(building.properties, "name").name;
  return name.empty() ? building.id : name;
}

// Whether it has the identifier or one of the names that the person has chosen.
bool isChosen(const ImdfArchive& archive, const ImdfFeature& building, const std::string& chosen) {
  const Names names = archive.names(building.properties, "name");
  return building.id == chosen || names.name == chosen ||
         std::any_of(names.byLanguage.begin(), names.byLanguage.end(),
                     [&](const auto& name) { return name.second == chosen; });
}

void requireBuilding(const ImdfArchive& archive, const std::string& chosen) {
  std::string others;
  for (const ImdfFeature* building : archive.ofType("building")) {
    if (isChosen(archive, *building, chosen)) return;
    others += (others.empty() ? "" : ", ") + nameOf(archive, *building);
  }
  throw SourceError(archive.file + ": there is no building \"" + chosen +
                    "\"; there are: " + others);
}

// Reports what a person may expect on the map.
void reportUnused(const ImdfArchive& archive, Findings& findings) {
  const auto report = [&](const char* file, const char* field, std::size_t number,
                          const char* what) {
    if (number == 0) return;
    Finding finding = makeFinding(Severity::info, "not-imported", "",
                                  {fmt::format("{} {}.", number, what),
                                   "The package has no such records, so they are left out."});
    finding.file = archive.file + '/' + file;
    finding.field = field;
    findings.add(std::move(finding));
  };
  report("geofence.geojson", "", archive.ofType("geofence").size(),
         "geofences mark parts of the building");
  report("detail.geojson", "", archive.ofType("detail").size(), "details are drawn as lines");
  const auto occupants = archive.ofType("occupant");
  report("occupant.geojson", "validity",
         static_cast<std::size_t>(std::count_if(
             occupants.begin(), occupants.end(),
             [](const ImdfFeature* each) { return memberOf(each->properties, "validity"); })),
         "occupants state from when until when they are there");
}

class LevelReader {
 public:
  explicit LevelReader(ImdfImport& import) : import_(import) {}

  void read() {
    for (const ImdfFeature* level : import_.archive.ofType("level")) readLevel(*level);
  }

 private:
  void readLevel(const ImdfFeature& level) {
    const boost::json::object& properties = level.properties;
    const std::optional<double> ordinal = memberNumber(properties, "ordinal");
    if (!ordinal) return;
    std::vector<const ImdfFeature*> buildings;
    for (const std::string& id : memberTexts(properties, "building_ids"))
      if (const ImdfFeature* building = import_.archive.find(id, "building"))
        buildings.push_back(building);
    const std::string& chosen = import_.options.building;
    if (!chosen.empty() &&
        std::none_of(buildings.begin(), buildings.end(), [&](const ImdfFeature* building) {
          return isChosen(import_.archive, *building, chosen);
        }))
      return;
    Storey storey;
    storey.id = level.id;
    storey.ordinal = *ordinal;
    storey.names = import_.archive.names(properties, "name");
    storey.shortName = import_.archive.names(properties, "short_name").name;
    storey.outdoor = memberBool(properties, "outdoor").value_or(false);
    if (buildings.size() == 1) storey.building = nameOf(import_.archive, *buildings.front());
    storey.footprint = level.geometry.polygons;
    import_.levels.emplace(level.id, *ordinal);
    import_.building.storeys.push_back(std::move(storey));
  }

  ImdfImport& import_;
};

}  // namespace

std::optional<double> ImdfImport::levelOf(const ImdfFeature& feature) const {
  const auto found = levels.find(feature.text("level_id"));
  return found == levels.end() ? std::nullopt : std::optional(found->second);
}

Area* ImdfImport::area(const std::string& featureId) const {
  const auto found = areas.find(featureId);
  return found == areas.end() ? nullptr : &building.areas[found->second];
}

bool ImdfImport::isWithinBounds(const ImdfFeature& feature) const {
  if (!options.bounds) return true;
  const Projection projection(archive.origin);
  const auto& [south, west, north, east] = *options.bounds;
  const Point least = projection.toPlane(west, south);
  const Point greatest = projection.toPlane(east, north);
  bool within = false;
  const auto look = [&](const std::vector<Point>& points) {
    for (const Point point : points)
      within = within || (least.x <= point.x && point.x <= greatest.x && least.y <= point.y &&
                          point.y <= greatest.y);
  };
  const GeoGeometry& geometry = feature.geometry;
  look(geometry.points);
  for (const auto& line : geometry.lines) look(line);
  for (const Polygon& polygon : geometry.polygons) look(polygon.outer);
  return within;
}

Wheelchair imdfWheelchair(const ImdfFeature& feature) {
  const std::vector<std::string> values = memberTexts(feature.properties, "accessibility");
  const bool stated = std::find(values.begin(), values.end(), "wheelchair") != values.end();
  return stated ? Wheelchair::yes : Wheelchair::unknown;
}

Access imdfAccess(const ImdfFeature& feature) {
  const std::string restriction = feature.text("restriction");
  const bool restricted = restriction == "employeesonly" || restriction == "restricted" ||
                          feature.category() == "nonpublic";
  return restricted ? Access::staff : Access::everybody;
}

Point imdfMiddle(const Polygon& polygon) {
  Point sum;
  for (const Point point : polygon.outer) sum = sum + point;
  return polygon.outer.empty() ? sum : sum * (1.0 / static_cast<double>(polygon.outer.size()));
}

std::optional<Point> imdfDisplayPoint(const ImdfArchive& archive, const ImdfFeature& feature) {
  const boost::json::value* member = memberOf(feature.properties, "display_point");
  GeoGeometry geometry;
  std::size_t vertices = 0;
  if (member == nullptr || !readGeometry(*member, geometry, vertices).empty() ||
      geometry.points.empty())
    return std::nullopt;
  return Projection(archive.origin).toPlane(geometry.points[0].x, geometry.points[0].y);
}

Building readImdf(std::vector<SourceFile> files, const Options& options, Findings& findings) {
  const ImdfArchive archive = readImdfArchive(std::move(files), options, findings);
  if (archive.ofType("level").empty())
    throw SourceError(archive.file + ": no level.geojson with levels; is this an IMDF archive?");
  const auto tell = [&](double share) {
    if (options.progress) options.progress("reading", share);
  };
  tell(imdfFilesShare);
  checkImdf(archive, findings);
  if (!options.building.empty()) requireBuilding(archive, options.building);
  Building building;
  readVenue(archive, building);
  ImdfImport import{archive, options, building, findings, {}, {}, {}};
  LevelReader(import).read();
  if (building.storeys.empty())
    throw SourceError(archive.file +
                      ": no level has an ordinal and belongs to the building; add ordinals to "
                      "level.geojson");
  tell(0.8);
  readImdfAreas(import);
  tell(0.85);
  readImdfPlaces(import);
  tell(0.95);
  readImdfConnectors(import);
  reportUnused(archive, findings);
  if (const auto addresses = archive.ofType("address"); !addresses.empty())
    reportIfSwapped(archive.origin, addresses.front()->text("country"), archive.file, findings);
  return building;
}

}  // namespace orivanta::importer
